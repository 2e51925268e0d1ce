#include "platform/qt/program_icon.h"

#include <QPainter>
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

QPainterPath Card() {
  QPainterPath path;
  path.addRoundedRect(QRectF(0.14, 0.03, 0.72, 0.94), 0.1, 0.1);
  return path;
}

QPen EdgeOf(const IconPart& part, int size) {
  return part.Edge.isValid() ? QPen(part.Edge, 1.0 / size) : QPen(Qt::NoPen);
}

}  // namespace

std::array<IconPart, 2> ProgramIconParts() {
  const QTransform middle(0.6, 0, 0, 0.6, 0.2, 0.2);
  return {{{Card(), Qt::white, QColor(0x55, 0x55, 0x55)},
           {middle.map(Spade()), QColor(0x10, 0x28, 0x48), QColor()}}};
}

QImage ProgramPicture(int size) {
  QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size, size);
  for (const IconPart& part : ProgramIconParts()) {
    painter.setPen(EdgeOf(part, size));
    painter.setBrush(part.Fill);
    painter.drawPath(part.Outline);
  }
  return picture;
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    icon.addPixmap(QPixmap::fromImage(ProgramPicture(size)));
  }
  return icon;
}

}  // namespace morvane
