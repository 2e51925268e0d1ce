#include "platform/qt/program_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace morvane {
namespace {

/// A spade in a square of side 1: two lobes under a point, and a foot.
QPainterPath Spade() {
  QPainterPath path({0.5, 0.1});
  path.cubicTo(0.6, 0.3, 0.9, 0.42, 0.9, 0.6);
  path.cubicTo(0.9, 0.78, 0.66, 0.84, 0.54, 0.66);
  path.quadTo(0.55, 0.82, 0.66, 0.9);
  path.lineTo(0.34, 0.9);
  path.quadTo(0.45, 0.82, 0.46, 0.66);
  path.cubicTo(0.34, 0.84, 0.1, 0.78, 0.1, 0.6);
  path.cubicTo(0.1, 0.42, 0.4, 0.3, 0.5, 0.1);
  return path;
}

QPixmap Card(int size) {
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size, size);
  painter.setPen(QPen(QColor(0x55, 0x55, 0x55), 1.0 / size));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(0.14, 0.03, 0.72, 0.94), 0.1, 0.1);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x10, 0x28, 0x48));
  painter.translate(0.2, 0.2);
  painter.scale(0.6, 0.6);
  painter.drawPath(Spade());
  return pixmap;
}

}  // namespace

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) icon.addPixmap(Card(size));
  return icon;
}

}  // namespace morvane
