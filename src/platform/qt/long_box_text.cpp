#include "platform/qt/long_box_text.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QStyle>

#include "platform/qt/scrolling_part.h"

namespace morvane {
namespace {

constexpr const char* kPart = "MessageText";

/// Takes the place of the box's text in its layout.
QWidget* MakePart(QMessageBox& box, QLabel* text) {
  auto* grid = qobject_cast<QGridLayout*>(box.layout());
  if (grid == nullptr) return nullptr;
  int row = 0;
  int column = 0;
  int rows = 0;
  int columns = 0;
  grid->getItemPosition(grid->indexOf(text), &row, &column, &rows, &columns);
  grid->removeWidget(text);
  text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  auto* part = new ScrollingPart(text, &box);
  part->setObjectName(kPart);
  grid->addWidget(part, row, column, rows, columns);
  part->show();
  return part;
}

/// The text in its own lines, and the bars.
QSize Unbroken(QLabel& text) {
  const bool wrapped = text.wordWrap();
  text.setWordWrap(false);
  const QSize lines = text.sizeHint();
  text.setWordWrap(wrapped);
  const int bar = text.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &text);
  return lines + QSize(bar, bar);
}

}  // namespace

void FitBoxText(QWidget& window, QSize room) {
  auto* box = qobject_cast<QMessageBox*>(&window);
  if (box == nullptr) return;
  auto* text = box->findChild<QLabel*>("qt_msgbox_label");
  auto* part = box->findChild<QWidget*>(kPart);
  const bool fits = box->width() <= room.width() && box->height() <= room.height();
  if (text == nullptr || (fits && part == nullptr)) return;
  const QSize rest = box->size() - (part == nullptr ? text->size() : part->size());
  if (part == nullptr) part = MakePart(*box, text);
  if (part == nullptr) return;
  part->setMinimumSize(Unbroken(*text).boundedTo(room - rest));
  // The box makes itself as large as its layout needs when that has changed.
  QEvent changed(QEvent::LayoutRequest);
  QApplication::sendEvent(box, &changed);
}

}  // namespace morvane
