#include "print/ui/layout_picture.h"

#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include "print/layout.h"

namespace morvane::print {
namespace {

constexpr int kWidth = 48;
constexpr int kHeight = 68;  // as a sheet of A4
constexpr double kHead = 7;  // of the sheet, above the boards
constexpr double kEdge = 2.5;
constexpr float kPale = 0.6F;

/// Four hands around a table.
void PaintBoard(QPainter& painter, const QRectF& cell, const QColor& ink) {
  const QSizeF hand(cell.width() * 0.26, cell.height() * 0.2);
  const QPointF middle = cell.center();
  const double across = cell.width() * 0.3;
  const double up = cell.height() * 0.29;
  for (const QPointF& place :
       {QPointF(0, -up), QPointF(-across, 0), QPointF(across, 0), QPointF(0, up)}) {
    QRectF box(QPointF(), hand);
    box.moveCenter(middle + place);
    painter.fillRect(box, ink);
  }
}

}  // namespace

QSize LayoutPictureSize() { return {kWidth, kHeight}; }

QIcon LayoutPicture(const Layout& layout, const QWidget& widget) {
  QPixmap picture(LayoutPictureSize() * widget.devicePixelRatioF());
  picture.setDevicePixelRatio(widget.devicePixelRatioF());
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ink = widget.palette().color(QPalette::Text);
  painter.setPen(ink);
  painter.setBrush(widget.palette().color(QPalette::Base));
  painter.drawRect(QRectF(0.5, 0.5, kWidth - 1, kHeight - 1));
  QColor hands = ink;
  hands.setAlphaF(kPale);
  painter.drawLine(QPointF(kEdge, kHead - 2), QPointF(kWidth - kEdge, kHead - 2));
  const double width = (kWidth - 2 * kEdge) / layout.Columns;
  const double height = (kHeight - kHead - kEdge) / layout.Rows;
  for (int place = 0; place < layout.PerPage; ++place) {
    const int row = place / layout.Columns;
    const int column = place % layout.Columns;
    PaintBoard(painter, {kEdge + column * width, kHead + row * height, width, height}, hands);
  }
  return picture;
}

}  // namespace morvane::print
