#include "icon_svg.h"

#include <QTransform>

#include "platform/qt/program_icon.h"

namespace morvane {
namespace {

constexpr int kSide = 64;

QString Point(const QPainterPath::Element& element) {
  return QString::number(element.x, 'g', 6) + "," + QString::number(element.y, 'g', 6);
}

/// The letter before an element; a curve's two further points have none.
QString Letter(const QPainterPath::Element& element) {
  if (element.isMoveTo()) return "M";
  if (element.isLineTo()) return "L";
  return element.isCurveTo() ? "C" : "";
}

QString OutlineText(const QPainterPath& outline) {
  QStringList words;
  for (int i = 0; i < outline.elementCount(); ++i) {
    words << Letter(outline.elementAt(i)) + Point(outline.elementAt(i));
  }
  return words.join(" ") + " Z";
}

QString PartText(const IconPart& part) {
  const QTransform scaled = QTransform::fromScale(kSide, kSide);
  const QString edge = part.Edge.isValid() ? " stroke=\"" + part.Edge.name() + "\"" : "";
  return "  <path fill=\"" + part.Fill.name() + "\"" + edge + " d=\"" +
         OutlineText(scaled.map(part.Outline)) + "\"/>\n";
}

}  // namespace

QString IconSvg() {
  const QString side = QString::number(kSide);
  QString text = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + side + "\" height=\"" +
                 side + "\" viewBox=\"0 0 " + side + " " + side + "\">\n";
  for (const IconPart& part : ProgramIconParts()) text += PartText(part);
  return text + "</svg>\n";
}

}  // namespace morvane
