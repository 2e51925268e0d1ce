#include "maintenance/ui/trace_line.h"

#include <QPainter>
#include <algorithm>

#include "maintenance/ui/service_widgets.h"
#include "platform/qt/readable_colour.h"

namespace morvane::maintenance {
namespace {

constexpr double kAround = 3;  // pixels above the highest and below the lowest
constexpr int kBandAlpha = 90;
constexpr double kLine = 1.5;

}  // namespace

TraceLine::TraceLine(const QString& name, const QString& spokenName, const TraceScale& scale,
                     QWidget* parent)
    : QWidget(parent), Spoken(QAccessible::Graphic), scale_(scale) {
  setObjectName(name);
  setAccessibleName(spokenName + " in the last half minute");
  setFixedHeight(2 * fontMetrics().height());
}

void TraceLine::Add(Trace::Time now, const Reading& reading) {
  const auto number = NumberIn(reading);
  if (!number || !trace_.Add(now, *number)) return;
  update();
  Announce(*this);
  setToolTip(SpokenText());
}

QString TraceLine::SpokenText() const {
  const auto whole = trace_.Whole();
  if (!whole) return {};
  return QString("%1 to %2 in the last half minute").arg(whole->Low).arg(whole->High);
}

Trace::Span TraceLine::Range() const {
  Trace::Span range = trace_.Whole().value_or(scale_.Right.value_or(Trace::Span{}));
  if (scale_.Right) {
    range.Low = std::min(range.Low, scale_.Right->Low);
    range.High = std::max(range.High, scale_.Right->High);
  }
  const double lacks = scale_.LeastSpan - (range.High - range.Low);
  if (lacks > 0) range = {range.Low - lacks / 2, range.High + lacks / 2};
  return range;
}

double TraceLine::HeightOf(double value, const Trace::Span& range) const {
  const double room = height() - 2 * kAround;
  return kAround + room * (range.High - value) / (range.High - range.Low);
}

void TraceLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor ground = palette().color(QPalette::Base);
  painter.fillRect(rect(), ground);
  const Trace::Span range = Range();
  if (scale_.Right) {
    QColor band = kGoodGround;
    band.setAlpha(kBandAlpha);
    const double top = HeightOf(scale_.Right->High, range);
    painter.fillRect(QRectF(0, top, width(), HeightOf(scale_.Right->Low, range) - top), band);
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette().color(QPalette::Text), kLine, Qt::SolidLine, Qt::RoundCap));
  const double step = static_cast<double>(width()) / Trace::kSteps;
  std::optional<QPointF> last;
  for (std::size_t ago = Trace::kSteps; ago-- > 0;) {
    const auto span = trace_.At(ago);
    if (!span) {
      last.reset();
      continue;
    }
    const double x = width() - (static_cast<double>(ago) + 0.5) * step;
    const QPointF high(x, HeightOf(span->High, range));
    const QPointF low(x, HeightOf(span->Low, range));
    if (last) painter.drawLine(*last, high);
    painter.drawLine(high, low);
    last = low;
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace morvane::maintenance
