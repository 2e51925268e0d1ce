#include "platform/qt/preview_window.h"

#include <QGraphicsView>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/qt/held_enter.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_value.h"

namespace morvane {
namespace {

constexpr int kMargin = 12;
constexpr double kZoomStep = 1.25;
constexpr QSize kUsual{800, 900};
constexpr QSize kLeastPages{240, 160};

}  // namespace

PreviewWindow::PreviewWindow(QPrinter& device, Paint paint,
                             const std::vector<PreviewAction>& actions, QWidget* parent)
    : QDialog(parent) {
  setObjectName("Preview");
  setWindowTitle("Print Preview");
  QWidget* pages = MakePages(device, std::move(paint));
  Fill(*this, pages, MakeButtons(actions));
  MakeKeys();
  connect(pages_, &QPrintPreviewWidget::previewChanged, this, [this] { ShowWhere(); });
  ShowWhere();
  resize(kUsual);
}

QWidget* PreviewWindow::MakePages(QPrinter& device, Paint paint) {
  auto* body = new QWidget(this);
  pages_ = new QPrintPreviewWidget(&device, body);
  pages_->setObjectName("Pages");
  pages_->setMinimumSize(kLeastPages);
  connect(pages_, &QPrintPreviewWidget::paintRequested, this,
          [paint = std::move(paint)](QPrinter* printer) { paint(*printer); });
  pages_->fitInView();
  if (auto* view = pages_->findChild<QGraphicsView*>()) {
    view->setObjectName("PagesView");
    view->setAccessibleName("Pages");
  }
  auto* all = new QVBoxLayout(body);
  all->setContentsMargins(0, 0, 0, 0);
  all->addWidget(pages_);
  return body;
}

QPushButton* PreviewWindow::Add(const char* name, const char* caption, const char* tip,
                                std::function<void()> act) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->installEventFilter(this);
  button->setToolTip(tip);
  connect(button, &QPushButton::clicked, this, [act = std::move(act)] { act(); });
  return button;
}

QWidget* PreviewWindow::MakeButtons(const std::vector<PreviewAction>& actions) {
  auto* buttons = new QWidget(this);
  auto* rows = new QVBoxLayout(buttons);
  rows->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  auto* turning = new QHBoxLayout;
  auto* ending = new QHBoxLayout;
  rows->addLayout(turning);
  rows->addLayout(ending);

  previous_ = Add("PreviousPage", "P&revious", "The page before (Page Up)", [this] { Turn(-1); });
  next_ = Add("NextPage", "&Next", "The page behind (Page Down)", [this] { Turn(1); });
  where_ = new ShownValue("txtPage", "Page", this);
  turning->addWidget(previous_);
  turning->addWidget(next_);
  turning->addWidget(where_);
  turning->addStretch();
  const auto zoom = [this](double factor) { return [this, factor] { pages_->zoomIn(factor); }; };
  turning->addWidget(Add("ZoomIn", "Zoom &In", "Larger (Ctrl +)", zoom(kZoomStep)));
  turning->addWidget(Add("ZoomOut", "Zoom &Out", "Smaller (Ctrl -)", zoom(1 / kZoomStep)));

  ending->addWidget(Add("FitPage", "&Whole Page", "The whole page in the window",
                        [this] { pages_->fitInView(); }));
  ending->addWidget(Add("FitWidth", "Page Wi&dth", "The page as wide as the window",
                        [this] { pages_->fitToWidth(); }));
  ending->addStretch();
  for (const PreviewAction& action : actions) {
    ending->addWidget(Add(action.Name.c_str(), action.Caption.c_str(), "", action.Do));
  }
  QPushButton* close =
      Add("ClosePreview", "&Close", "Back to the options (Escape)", [this] { reject(); });
  close->setDefault(true);
  ending->addWidget(close);
  return buttons;
}

void PreviewWindow::MakeKeys() {
  const auto on = [this](const QKeySequence& key, std::function<void()> act) {
    auto* shortcut = new QShortcut(key, this);
    connect(shortcut, &QShortcut::activated, this, [act = std::move(act)] { act(); });
  };
  on(Qt::Key_PageUp, [this] { Turn(-1); });
  on(Qt::Key_PageDown, [this] { Turn(1); });
  on(Qt::Key_Home, [this] { ShowPage(1); });
  on(Qt::Key_End, [this] { ShowPage(pages_->pageCount()); });
  for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Equal}) {
    on(Qt::CTRL | key, [this] { pages_->zoomIn(kZoomStep); });
  }
  on(Qt::CTRL | Qt::Key_Minus, [this] { pages_->zoomOut(kZoomStep); });
}

/// One press opens it, and prints; held down, the key does not close it nor print again.
void PreviewWindow::keyPressEvent(QKeyEvent* event) {
  if (!IsHeldEnter(*event)) QDialog::keyPressEvent(event);
}

bool PreviewWindow::eventFilter(QObject* button, QEvent* event) {
  return IsHeldEnter(*event) || QDialog::eventFilter(button, event);
}

void PreviewWindow::Turn(int pages) { ShowPage(pages_->currentPage() + pages); }

void PreviewWindow::ShowPage(int page) {
  pages_->setCurrentPage(std::clamp(page, 1, std::max(pages_->pageCount(), 1)));
  ShowWhere();
}

/// The button that has just turned to the last page hands its focus on.
void PreviewWindow::ShowWhere() {
  const int page = pages_->currentPage();
  const int count = pages_->pageCount();
  for (QPushButton* button : {previous_, next_}) button->setEnabled(count > 1);
  if (page <= 1 && previous_->hasFocus()) next_->setFocus();
  if (page >= count && next_->hasFocus()) previous_->setFocus();
  previous_->setEnabled(page > 1);
  next_->setEnabled(page < count);
  where_->Show(QString("Page %1 of %2").arg(count == 0 ? 0 : page).arg(count));
}

}  // namespace morvane
