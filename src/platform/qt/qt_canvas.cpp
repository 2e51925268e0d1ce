#include "platform/qt/qt_canvas.h"

#include <QFontDatabase>
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
      return {"DejaVu Sans", "Segoe UI Symbol"};
  }
  return {};
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
  return QFontMetricsF(FontOf(font), &device_).horizontalAdvance(ToQt(text)) / scale_;
}

void QtCanvas::Text(double x, double y, std::string_view text, const Font& font, Colour colour) {
  painter_.setFont(FontOf(font));
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

const QFont& QtCanvas::FontOf(const Font& font) const {
  const auto [place, isNew] = fonts_.try_emplace({font.Face, font.Size, font.Bold});
  if (isNew) {
    place->second.setFamilies(FamiliesOf(font.Face));
    place->second.setPointSizeF(font.Size);
    place->second.setBold(font.Bold);
    place->second.setHintingPreference(QFont::PreferNoHinting);
  }
  return place->second;
}

}  // namespace morvane
