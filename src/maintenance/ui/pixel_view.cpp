#include "maintenance/ui/pixel_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cstring>

namespace morvane::maintenance {
namespace {

constexpr int kFarStep = 10;  // of the cross, with Shift
constexpr int kNotch = 120;   // of a wheel

QRgb ShownAs(Colour colour) {
  return qRgb(static_cast<int>(colour & 0xFFU), static_cast<int>(colour >> 8U & 0xFFU),
              static_cast<int>(colour >> 16U & 0xFFU));
}

std::optional<QPoint> StepOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return QPoint(-1, 0);
    case Qt::Key_Right:
      return QPoint(1, 0);
    case Qt::Key_Up:
      return QPoint(0, -1);
    case Qt::Key_Down:
      return QPoint(0, 1);
    default:
      return std::nullopt;
  }
}

}  // namespace

PixelView::PixelView(const QString& name, const QString& spokenName, QSize pixels, int zoom,
                     QWidget* parent)
    : QAbstractScrollArea(parent),
      Spoken(QAccessible::Graphic),
      image_(pixels, QImage::Format_RGB32),
      firstZoom_(zoom),
      zoom_(zoom) {
  setObjectName(name);
  setAccessibleName(spokenName);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  viewport()->setMouseTracking(true);
  viewport()->setCursor(Qt::CrossCursor);
  viewport()->setBackgroundRole(QPalette::Mid);  // white belongs to the picture
  image_.fill(Qt::white);
}

void PixelView::ShowLines(const std::function<Colour(int x, int y)>& colour, int first, int end) {
  const int width = image_.width();
  std::vector<QRgb> line(static_cast<std::size_t>(width));
  for (int y = first; y < end; ++y) {
    for (int x = 0; x < width; ++x) line[static_cast<std::size_t>(x)] = ShownAs(colour(x, y));
    const std::size_t bytes = line.size() * sizeof(QRgb);
    if (std::memcmp(image_.constScanLine(y), line.data(), bytes) == 0) continue;
    std::memcpy(image_.scanLine(y), line.data(), bytes);
    viewport()->update(PlaceOf({0, y, width, 1}));
  }
}

void PixelView::Say(const QString& text) {
  spoken_ = text;
  Announce(*this);
}

QSize PixelView::SizeAt(int zoom) const {
  const int frame = 2 * frameWidth();
  return image_.size() * zoom + QSize(frame, frame);
}

/// A picture that is shown as it is may scroll.
QSize PixelView::minimumSizeHint() const {
  return SizeAt(1).boundedTo(QSize(12, 12) * fontMetrics().lineSpacing());
}

/// Where the first pixel is in the viewport: a picture with room around it stands in the middle.
QPoint PixelView::Origin() const {
  const QSize spare = (viewport()->size() - image_.size() * zoom_).expandedTo({0, 0}) / 2;
  return {spare.width() - horizontalScrollBar()->value(),
          spare.height() - verticalScrollBar()->value()};
}

std::optional<QPoint> PixelView::PixelAt(const QPoint& place) const {
  const QPoint from = place - Origin();
  const QPoint pixel(from.x() / zoom_, from.y() / zoom_);
  if (from.x() < 0 || from.y() < 0 || !image_.rect().contains(pixel)) return std::nullopt;
  return pixel;
}

QRect PixelView::PlaceOf(const QRect& pixels) const {
  return {Origin() + pixels.topLeft() * zoom_, pixels.size() * zoom_};
}

void PixelView::ZoomTo(int zoom) {
  ZoomAround(zoom, cross_ ? PlaceOf({*cross_, QSize(1, 1)}).center() : viewport()->rect().center());
}

/// What is at this place of the viewport stays there as well as can be.
void PixelView::ZoomAround(int zoom, const QPoint& place) {
  zoom = std::clamp(zoom, 1, kMostZoom);
  if (fixed_ || zoom == zoom_) return;
  const QPointF pixel = QPointF(place - Origin()) / zoom_;
  zoom_ = zoom;
  PlaceBars();
  const QPoint off = (Origin() + (pixel * zoom_).toPoint()) - place;
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + off.x());
  verticalScrollBar()->setValue(verticalScrollBar()->value() + off.y());
  viewport()->update();
  if (OnZoom) OnZoom();
}

/// A bar that comes or goes gives the viewport another size, and this is called again.
void PixelView::PlaceBars() {
  const QSize spare = image_.size() * zoom_ - viewport()->size();
  for (auto* bar : {horizontalScrollBar(), verticalScrollBar()}) {
    const bool across = bar == horizontalScrollBar();
    bar->setRange(0, std::max(0, across ? spare.width() : spare.height()));
    bar->setPageStep(across ? viewport()->width() : viewport()->height());
    bar->setSingleStep(fontMetrics().lineSpacing());
  }
}

/// Ctrl+C is the picture's, also where a window would use it otherwise.
bool PixelView::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.matches(QKeySequence::Copy)) event->accept();
  }
  const bool done = QAbstractScrollArea::event(event);
  if (event->type() == QEvent::Paint && hasFocus()) PaintFocus();
  return done;
}

/// The frame around the pixels, which styles leave as it is.
void PixelView::PaintFocus() {
  QPainter painter(this);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2 * frameWidth()));  // half is outside
  painter.drawRect(rect());
}

void PixelView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const QRect exposed = event->rect();
  const QPoint from = (exposed.topLeft() - Origin()) / zoom_ - QPoint(1, 1);
  const QSize size = exposed.size() / zoom_ + QSize(3, 3);
  const QRect pixels = QRect(from, size) & image_.rect();
  if (!pixels.isEmpty()) painter.drawImage(PlaceOf(pixels), image_, pixels);
  if (!cross_ || !hasFocus()) return;
  // Seen on every ground: each line beside one of the opposite colour.
  const QRect at = PlaceOf({*cross_, QSize(1, 1)});
  for (const auto& [away, colour] : {std::pair(1, Qt::black), {2, Qt::white}}) {
    painter.setPen(colour);
    painter.drawRect(at.adjusted(-away, -away, away - 1, away - 1));
  }
}

void PixelView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  PlaceBars();
}

void PixelView::scrollContentsBy(int /*dx*/, int /*dy*/) { viewport()->update(); }

void PixelView::wheelEvent(QWheelEvent* event) {
  if (fixed_) {
    QAbstractScrollArea::wheelEvent(event);
  } else {
    wheel_ += event->angleDelta().y();
    const int steps = wheel_ / kNotch;
    wheel_ %= kNotch;
    ZoomAround(zoom_ + steps, event->position().toPoint());
    event->accept();  // the part around it stays where it is
  }
  PointAt(PixelAt(event->position().toPoint()));
}

void PixelView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = event->pos();
  scrolledAtPress_ = {horizontalScrollBar()->value(), verticalScrollBar()->value()};
  dragged_ = false;
}

void PixelView::mouseMoveEvent(QMouseEvent* event) {
  if (pressed_) {
    const QPoint way = event->pos() - *pressed_;
    dragged_ = dragged_ || way.manhattanLength() >= QApplication::startDragDistance();
    if (dragged_) {
      horizontalScrollBar()->setValue(scrolledAtPress_.x() - way.x());
      verticalScrollBar()->setValue(scrolledAtPress_.y() - way.y());
    }
  }
  PointAt(PixelAt(event->pos()));
}

void PixelView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !pressed_) return;
  pressed_.reset();
  if (!dragged_ && PixelAt(event->pos()) && OnClick) OnClick();
}

/// Without the mouse the operator is at the cross, while that is seen.
bool PixelView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave) PointAt(hasFocus() ? cross_ : std::nullopt);
  return QAbstractScrollArea::viewportEvent(event);
}

void PixelView::PointAt(std::optional<QPoint> pixel) {
  if (OnPoint) OnPoint(pixel);
}

void PixelView::keyPressEvent(QKeyEvent* event) {
  const bool press = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                     event->key() == Qt::Key_Enter;
  if (event->matches(QKeySequence::Copy) && OnCopy) {
    OnCopy();
  } else if (press && OnClick) {
    if (!event->isAutoRepeat()) OnClick();
  } else if (const auto step = StepOf(event->key())) {
    MoveCross(*step * ((event->modifiers() & Qt::ShiftModifier) != 0 ? kFarStep : 1));
  } else if (!ZoomByKey(*event)) {
    QAbstractScrollArea::keyPressEvent(event);
  }
}

bool PixelView::ZoomByKey(const QKeyEvent& event) {
  if ((event.modifiers() & Qt::ControlModifier) == 0 || fixed_) return false;
  switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      ZoomTo(zoom_ + 1);
      return true;
    case Qt::Key_Minus:
      ZoomTo(zoom_ - 1);
      return true;
    case Qt::Key_0:
      ZoomTo(firstZoom_);
      return true;
    default:
      return false;
  }
}

/// It begins in the middle.
void PixelView::MoveCross(const QPoint& by) {
  const QPoint to = cross_ ? *cross_ + by : image_.rect().center();
  cross_ =
      QPoint(std::clamp(to.x(), 0, image_.width() - 1), std::clamp(to.y(), 0, image_.height() - 1));
  const QRect at = PlaceOf({*cross_, QSize(1, 1)});
  const QRect room = viewport()->rect();
  for (auto* bar : {horizontalScrollBar(), verticalScrollBar()}) {
    const bool across = bar == horizontalScrollBar();
    const int before = across ? at.left() : at.top();
    const int behind = across ? at.right() - room.right() : at.bottom() - room.bottom();
    if (before < 0) bar->setValue(bar->value() + before);
    if (behind > 0) bar->setValue(bar->value() + behind);
  }
  viewport()->update();
  PointAt(cross_);
}

void PixelView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

}  // namespace morvane::maintenance
