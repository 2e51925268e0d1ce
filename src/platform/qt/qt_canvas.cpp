#include "platform/qt/qt_canvas.h"

#include <QFontMetricsF>
#include <QPageLayout>

#include "platform/qt/qt_text.h"

namespace morvane {
namespace {

constexpr double kPointsInInch = 72;
constexpr double kRuleWidth = 0.4;  // anything thinner is lost on some printers

QStringList FamiliesOf(Typeface face) {
  switch (face) {
    case Typeface::kTimes:
      return {"Times New Roman", "Liberation Serif", "Nimbus Roman"};
    case Typeface::kArial:
      return {"Arial", "Liberation Sans", "Nimbus Sans"};
    case Typeface::kSymbol:
      // Those that are named "Symbol" draw nothing for the code points of the suits, or put other
      // signs into the text of a PDF.
      return {"DejaVu Sans", "Segoe UI Symbol", "Noto Sans Symbols2", "Noto Sans Symbols"};
  }
  return {};
}

QFont FaceOf(const Font& font) {
  QFont face(FamiliesOf(font.Face));
  face.setPointSizeF(font.Size);
  face.setBold(font.Bold);
  face.setHintingPreference(QFont::PreferNoHinting);
  return face;
}

QColor ColourOf(Colour colour) { return {colour.Red, colour.Green, colour.Blue}; }

}  // namespace

QtCanvas::QtCanvas(QPagedPaintDevice& device) : device_(device), good_(painter_.begin(&device)) {
  scale_ = device.logicalDpiX() / kPointsInInch;
}

double QtCanvas::Width() const {
  return device_.pageLayout().paintRect(QPageLayout::Point).width();
}

double QtCanvas::Height() const {
  return device_.pageLayout().paintRect(QPageLayout::Point).height();
}

double QtCanvas::WidthOf(std::string_view text, const Font& font) const {
  return LettersOf(font).Metrics.horizontalAdvance(ToQt(text)) / scale_;
}

void QtCanvas::Text(double x, double y, std::string_view text, const Font& font, Colour colour) {
  painter_.setFont(LettersOf(font).Face);
  painter_.setPen(ColourOf(colour));
  painter_.drawText(QPointF(x, y + Ascent(font)) * scale_, ToQt(text));
}

void QtCanvas::Rule(double fromX, double fromY, double toX, double toY, Colour colour) {
  painter_.setPen(QPen(ColourOf(colour), kRuleWidth * scale_));
  painter_.drawLine(QPointF(fromX, fromY) * scale_, QPointF(toX, toY) * scale_);
}

void QtCanvas::Fill(const Area& area, Colour colour) {
  painter_.fillRect(
      QRectF(QPointF(area.X, area.Y) * scale_, QSizeF(area.Width, area.Height) * scale_),
      ColourOf(colour));
}

bool QtCanvas::NewPage() {
  good_ = good_ && device_.newPage();
  return good_;
}

const QtCanvas::Letters& QtCanvas::LettersOf(const Font& font) const {
  const std::tuple key{font.Face, font.Size, font.Bold};
  auto place = letters_.find(key);
  if (place == letters_.end()) {
    const QFont face = FaceOf(font);
    place = letters_.emplace(key, Letters{face, QFontMetricsF(face, &device_)}).first;
  }
  return place->second;
}

}  // namespace morvane
