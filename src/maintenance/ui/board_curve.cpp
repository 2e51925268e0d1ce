#include "maintenance/ui/board_curve.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <utility>

#include "maintenance/ui/service_widgets.h"
#include "platform/qt/readable_colour.h"

namespace morvane::maintenance {
namespace {

using Sweep = BoardCalibration::Sweep;

constexpr int kGap = 6;  // all in pixels
constexpr double kThick = 2;
constexpr double kDot = 4;     // of the sign where the sweep is, from its middle
constexpr int kBeside = 3;     // the lines of the sweeps stand so far off their level
constexpr int kSample = 4;     // of a line in the legend, in heights of a letter
constexpr int kRowsBelow = 4;  // the numbers, and the legend
constexpr int kPlotRows = 7;
constexpr int kLeastPlotRows = 4;
constexpr const char* kWidest = "not seen";
constexpr std::array kNumbers{20, 50, 100, 150, 200, 255};

}  // namespace

BoardCurve::BoardCurve(const BoardCalibration& calibration, QWidget* parent)
    : QWidget(parent), Spoken(QAccessible::Graphic), calibration_(calibration) {
  setObjectName("BoardCurve");
  setAccessibleName("Where the board is seen, by sensitivity");
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize BoardCurve::sizeHint() const {
  const int width = fontMetrics().horizontalAdvance('0') * 80;
  return {width, (kPlotRows + 1 + kRowsBelow) * High() + (kRowsBelow + 1) * kGap};
}

QSize BoardCurve::minimumSizeHint() const {
  const int width = fontMetrics().horizontalAdvance('0') * 48;
  return {width, sizeHint().height() - (kPlotRows - kLeastPlotRows) * High()};
}

void BoardCurve::Show() {
  QString words = SpokenText();
  if (words != std::exchange(words_, words)) {
    update();
  } else {
    update(NewPart());
  }
  Announce(*this);
}

/// Between the last two signs of where the sweep is.
QRect BoardCurve::NewPart() const {
  const double now = PlaceOf(calibration_.Points().back().Sensitivity);
  const double reach = PlaceOf(1) - PlaceOf(0) + kDot + kThick;
  return QRectF(now - reach, Plot().top(), 2 * reach, Plot().height()).toAlignedRect();
}

// In words.

QString BoardCurve::SpokenText() const {
  QString text = DownText();
  if (calibration_.LostAt()) text += ", " + UpText();
  if (!BandText().isEmpty()) text += ", " + BandText();
  if (!RecommendedText().isEmpty()) text += ", " + RecommendedText();
  return text;
}

QString BoardCurve::DownText() const {
  const auto lost = calibration_.LostAt();
  if (lost) return QString("down: lost at %1").arg(*lost);
  return calibration_.Over() ? "down: never lost" : "down";
}

QString BoardCurve::UpText() const {
  const auto seen = calibration_.SeenAgainAt();
  if (seen) return QString("up: seen again at %1").arg(*seen);
  if (calibration_.NeverSeen()) return "seen at no sensitivity: is a board in the slot?";
  const bool tried = calibration_.Over() && calibration_.LostAt();
  return tried ? "up: never seen again" : "up";
}

QString BoardCurve::BandText() const {
  const auto lost = calibration_.LostAt();
  const auto seen = calibration_.SeenAgainAt();
  if (!lost || !seen) return {};
  if (*seen <= *lost + 1) return "hysteresis: none";
  return QString("hysteresis: %1 to %2").arg(*lost + 1).arg(*seen - 1);
}

QString BoardCurve::RecommendedText() const {
  const int value = calibration_.RecommendedSensitivity();
  return value == 0 ? QString() : QString("recommended: %1").arg(value);
}

// Where it stands.

QRect BoardCurve::Plot() const {
  const int left = fontMetrics().horizontalAdvance(kWidest) + 2 * kGap;
  const int right = fontMetrics().horizontalAdvance("255") / 2 + kGap;
  const int above = High() + kGap;
  const int below = kRowsBelow * (High() + kGap);
  return rect().adjusted(left, above, -right, -below);
}

double BoardCurve::PlaceOf(double sensitivity) const {
  const QRect plot = Plot();
  constexpr double kSpan = BoardCalibration::kHighest - BoardCalibration::kLowest;
  return plot.left() + (sensitivity - BoardCalibration::kLowest) * (plot.width() - 1) / kSpan;
}

/// Beside each other, so that neither hides the other.
int BoardCurve::LevelOf(bool seen, Sweep way) const {
  const QRect plot = Plot();
  const int level = seen ? plot.top() + plot.height() / 4 : plot.bottom() - plot.height() / 4;
  return level + (way == Sweep::kDown ? -kBeside : kBeside);
}

/// A corner wherever the board is lost or seen again.
QPainterPath BoardCurve::LineOf(Sweep way) const {
  QPainterPath line;
  const double half = way == Sweep::kDown ? 0.5 : -0.5;
  for (const BoardCalibration::Point& point : calibration_.Points()) {
    if (point.Way != way) continue;
    const double level = LevelOf(point.Seen, way);
    const QPointF from(PlaceOf(point.Sensitivity + half), level);
    if (line.isEmpty()) line.moveTo(from);
    if (line.currentPosition().y() != level) line.lineTo(from);
    line.lineTo(PlaceOf(point.Sensitivity - half), level);
  }
  return line;
}

// Its looks. What differs does so in its form, not only in its colour.

QPen BoardCurve::PenOf(Sweep way) const {
  const QColor ink = palette().color(QPalette::Text);
  if (way == Sweep::kDown) return {ink, kThick, Qt::SolidLine, Qt::FlatCap};
  return {ReadableOn(palette().color(QPalette::Base), palette().color(QPalette::Link)), kThick,
          Qt::DashLine, Qt::FlatCap};
}

QColor BoardCurve::BandColour() const {
  constexpr int kAlpha = 40;  // seen on dark grounds, too, and the lines on it
  QColor colour = palette().color(QPalette::Text);
  colour.setAlpha(kAlpha);
  return colour;
}

void BoardCurve::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(Plot(), palette().color(QPalette::Base));
  PaintBand(painter);
  PaintScale(painter);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  for (const Sweep way : {Sweep::kDown, Sweep::kUp}) {
    painter.setPen(PenOf(way));
    painter.drawPath(LineOf(way));
  }
  PaintHere(painter);
  PaintRecommended(painter);
  PaintLegend(painter);
}

/// Where the switch stays as it was.
void BoardCurve::PaintBand(QPainter& painter) const {
  const auto lost = calibration_.LostAt();
  const auto seen = calibration_.SeenAgainAt();
  if (!lost || !seen) return;
  const double left = PlaceOf(*lost + 0.5);
  painter.fillRect(QRectF(left, Plot().top(), PlaceOf(*seen - 0.5) - left, Plot().height()),
                   BandColour());
}

void BoardCurve::PaintScale(QPainter& painter) const {
  const QRect plot = Plot();
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(plot.adjusted(0, 0, -1, -1));
  for (const int number : kNumbers) {
    const int x = static_cast<int>(PlaceOf(number));
    painter.drawLine(x, plot.bottom(), x, plot.bottom() + kGap / 2);
  }
  painter.setPen(palette().color(QPalette::WindowText));
  for (const int number : kNumbers) {
    const QRectF below(PlaceOf(number) - High() * 2, plot.bottom() + kGap, High() * 4, High());
    painter.drawText(below, Qt::AlignHCenter, QString::number(number));
  }
  for (const bool seen : {true, false}) {
    const int level = LevelOf(seen, Sweep::kDown) + kBeside;
    const QRect beside(0, level - High() / 2, plot.left() - kGap, High());
    painter.drawText(beside, Qt::AlignRight | Qt::AlignVCenter, seen ? "seen" : kWidest);
  }
}

void BoardCurve::PaintHere(QPainter& painter) const {
  if (calibration_.Over() || calibration_.Points().empty()) return;
  const BoardCalibration::Point& last = calibration_.Points().back();
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::Text));
  painter.drawEllipse(QPointF(PlaceOf(last.Sensitivity), LevelOf(last.Seen, last.Way)), kDot, kDot);
}

void BoardCurve::PaintRecommended(QPainter& painter) const {
  const QString text = RecommendedText();
  if (text.isEmpty()) return;
  const QRect plot = Plot();
  const double x = PlaceOf(calibration_.RecommendedSensitivity());
  painter.setPen(QPen(palette().color(QPalette::Text), kThick, Qt::DotLine));
  painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::Text));
  painter.drawConvexPolygon(QPolygonF(
      {{x - kGap, plot.top() + 0.0}, {x + kGap, plot.top() + 0.0}, {x, plot.top() + 2.0 * kGap}}));
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  const int wide = QFontMetrics(bold).horizontalAdvance(text) + 1;
  const int left = std::clamp(static_cast<int>(x) - wide / 2, 0, std::max(0, width() - wide));
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(QRect(left, 0, wide, High()), Qt::AlignLeft, text);
  painter.setFont(font());
}

void BoardCurve::PaintLegend(QPainter& painter) const {
  const QRect plot = Plot();
  const int wide = kSample * High();
  int y = plot.bottom() + High() + 2 * kGap;
  const auto add = [&](const QString& text, const auto& sample) {
    if (text.isEmpty()) return;
    const QRect row(plot.left(), y, width() - plot.left(), High());
    const QRect place(row.left(), row.top(), wide, row.height());
    painter.fillRect(place, palette().color(QPalette::Base));
    sample(place);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(row.adjusted(wide + kGap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, text);
    y += High() + kGap;
  };
  const auto line = [&](Sweep way) {
    return [&painter, pen = PenOf(way)](const QRect& place) {
      painter.setPen(pen);
      painter.drawLine(place.left(), place.center().y(), place.right(), place.center().y());
    };
  };
  add(DownText(), line(Sweep::kDown));
  add(UpText(), line(Sweep::kUp));
  add(BandText(), [&](const QRect& place) { painter.fillRect(place, BandColour()); });
}

}  // namespace morvane::maintenance
