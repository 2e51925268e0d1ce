#include "platform/qt/scrolling_part.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace morvane {
namespace {

constexpr int kLeastLines = 5;
constexpr int kAround = 8;  // stays in sight around what has the focus

bool TakesTheTabKey(const QWidget* control) { return (control->focusPolicy() & Qt::TabFocus) != 0; }

}  // namespace

ScrollingPart::ScrollingPart(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setWidget(content);
  // The window's own ground shows through, whatever the style paints under a list.
  viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget* /*before*/, QWidget* now) { BringIntoSight(now); });
}

/// What has the focus in it loses it when it goes, and that no longer concerns this.
ScrollingPart::~ScrollingPart() { disconnect(qApp, nullptr, this, nullptr); }

QSize ScrollingPart::Needed() const {
  return widget()->sizeHint().expandedTo(widget()->minimumSizeHint());
}

/// A bar beside what scrolls down must not make it scroll sideways too. A scale of 150 % may round
/// a window down by a pixel, for which nothing is to scroll.
QSize ScrollingPart::sizeHint() const {
  const QSize bar(bars_ ? verticalScrollBar()->sizeHint().width() : 0, 0);
  const double scale = qApp->devicePixelRatio();
  const int spare = std::floor(scale) < scale ? 1 : 0;
  return Needed() + bar + QSize(spare, spare);
}

QSize ScrollingPart::minimumSizeHint() const {
  const int least = kLeastLines * fontMetrics().lineSpacing();
  return Needed().boundedTo({2 * least, least});
}

bool ScrollingPart::event(QEvent* event) {
  const bool done = QScrollArea::event(event);
  if (event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    NoteBars();
  }
  return done;
}

void ScrollingPart::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  NoteBars();
}

/// The whole control, not only its caret; where there is no room for it, its beginning.
void ScrollingPart::BringIntoSight(QWidget* control) {
  if (control == nullptr || !widget()->isAncestorOf(control)) return;
  const QRect place(control->mapTo(widget(), QPoint()), control->size());
  const QSize spare = viewport()->size() - control->size();
  const int across = std::clamp(spare.width() / 2, 0, kAround);
  const int down = std::clamp(spare.height() / 2, 0, kAround);
  ensureVisible(place.right(), place.bottom(), across, down);
  ensureVisible(place.left(), place.top(), across, down);
}

void ScrollingPart::NoteBars() {
  const bool bars = verticalScrollBar()->maximum() > 0;
  if (bars != bars_) updateGeometry();
  bars_ = bars;
  const auto controls = widget()->findChildren<QWidget*>();
  const bool alone = std::none_of(controls.begin(), controls.end(), TakesTheTabKey);
  const bool scrolls = bars || horizontalScrollBar()->maximum() > 0;
  setFocusPolicy(scrolls && alone ? Qt::StrongFocus : Qt::NoFocus);
}

void Fill(QWidget& window, QWidget* body, QWidget* buttons) {
  auto* all = new QVBoxLayout(&window);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  all->addWidget(new ScrollingPart(body, &window), 1);
  if (buttons != nullptr) all->addWidget(buttons);
}

}  // namespace morvane
