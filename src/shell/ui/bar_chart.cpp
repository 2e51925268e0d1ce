#include "shell/ui/bar_chart.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/qt/qt_text.h"
#include "platform/qt/readable_colour.h"

namespace morvane::shell {
namespace {

constexpr int kGap = 4;
constexpr int kMostLines = 4;      // of the scale, above its foot
constexpr double kOfSlot = 0.8;    // both bars of a pair take this much of their place
constexpr int kLeastLines = 7;     // of text, in height
constexpr int kLeastLetters = 32;  // in width
constexpr int kUsualLetters = 46;
constexpr const char* kActual = "Actual";
constexpr const char* kExpected = "Expected";

/// The smallest of 1, 2, 5, 10, 20, ... that reaches `most` in few steps.
int StepFor(double most) {
  for (int decade = 1;; decade *= 10) {
    for (const int step : {decade, 2 * decade, 5 * decade}) {
      if (step * kMostLines >= most) return step;
    }
  }
}

}  // namespace

/// Where things stand at the present size.
struct BarChart::Frame {
  QRect Plot;  ///< between the head, the numbers of the scale and the names of the bars
  double SlotWidth = 0;
  double Most = 1;
  int Step = 1;          ///< of the scale
  bool Upright = false;  ///< the names, for want of room

  /// Pixels a hand.
  [[nodiscard]] double Scale() const { return Plot.height() / Most; }
  [[nodiscard]] double LeftOf(std::size_t bar) const {
    return Plot.left() + static_cast<double>(bar) * SlotWidth;
  }
  [[nodiscard]] double MiddleOf(std::size_t bar) const { return LeftOf(bar) + SlotWidth / 2; }
};

BarChart::BarChart(const char* name, const char* title, const char* spokenName, Legend legend,
                   QWidget* parent)
    : QWidget(parent), Spoken(QAccessible::Chart), title_(title), legend_(legend) {
  setObjectName(name);
  setAccessibleName(spokenName);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void BarChart::Show(std::vector<CountBar> bars, const QString& spoken) {
  bars_ = std::move(bars);
  spoken_ = spoken;
  Announce(*this);
  update();
}

QString BarChart::TextAt(const QPoint& place) const {
  const Frame frame = FrameNow();
  if (bars_.empty() || place.x() < frame.Plot.left() || place.y() < frame.Plot.top()) return {};
  const auto bar = static_cast<std::size_t>((place.x() - frame.Plot.left()) / frame.SlotWidth);
  return bar < bars_.size() ? ToQt(bars_[bar].Text()) : QString();
}

QSize BarChart::sizeHint() const {
  return {kUsualLetters * fontMetrics().averageCharWidth(), minimumSizeHint().height()};
}

/// Its head finds room.
QSize BarChart::minimumSizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  const int letters = kLeastLetters * metrics.averageCharWidth();
  const int head = metrics.horizontalAdvance(title_ + kActual + kExpected) +
                   2 * metrics.lineSpacing() + 4 * kGap;
  return {std::max(letters, head), kLeastLines * metrics.lineSpacing()};
}

bool BarChart::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  const QString text = TextAt(help.pos());
  if (text.isEmpty()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(help.globalPos(), text, this);
  }
  return true;
}

void BarChart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Frame frame = FrameNow();
  PaintHead(painter);
  PaintScale(painter, frame);
  PaintBars(painter, frame);
  PaintNames(painter, frame);
}

BarChart::Frame BarChart::FrameNow() const {
  const QFontMetrics metrics = fontMetrics();
  Frame frame;
  int widest = 0;
  for (const CountBar& bar : bars_) {
    frame.Most = std::max({frame.Most, double(bar.Actual), bar.Expected});
    widest = std::max(widest, metrics.horizontalAdvance(ToQt(bar.Name)));
  }
  frame.Step = StepFor(frame.Most);
  const auto bars = static_cast<int>(bars_.size());
  frame.Upright = (widest + 2 * kGap) * bars > width();
  const int line = metrics.lineSpacing();
  const int numbers = metrics.horizontalAdvance(QString::number(kMostLines * frame.Step)) + kGap;
  frame.Plot =
      rect().adjusted(numbers, line + line / 2, 0, -(frame.Upright ? widest : line) - kGap);
  frame.SlotWidth = frame.Plot.width() / static_cast<double>(std::max(1, bars));
  return frame;
}

void BarChart::PaintHead(QPainter& painter) const {
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(0, fontMetrics().ascent(), title_);
  if (legend_ == Legend::kShown) PaintLegend(painter);
}

/// From the right edge on.
void BarChart::PaintLegend(QPainter& painter) const {
  const QFontMetrics metrics = fontMetrics();
  const int mark = metrics.ascent() * 2 / 3;
  int x = width();
  for (const bool actual : {false, true}) {
    const QString text = actual ? kActual : kExpected;
    x -= metrics.horizontalAdvance(text);
    painter.drawText(x, metrics.ascent(), text);
    x -= mark + kGap;
    PaintBar(painter, QRectF(x, metrics.ascent() - mark, mark, mark), actual);
    x -= 2 * kGap;
  }
}

void BarChart::PaintScale(QPainter& painter, const Frame& frame) const {
  const QColor text = palette().color(QPalette::WindowText);
  QColor line = text;
  line.setAlphaF(0.25F);
  const double most = bars_.empty() ? 0 : frame.Most;
  for (int count = 0; count <= most; count += frame.Step) {
    const int y = frame.Plot.bottom() - static_cast<int>(std::lround(count * frame.Scale()));
    painter.setPen(line);
    painter.drawLine(frame.Plot.left(), y, frame.Plot.right(), y);
    painter.setPen(text);
    const QString number = QString::number(count);
    const int width = fontMetrics().horizontalAdvance(number);
    painter.drawText(frame.Plot.left() - kGap - width, y + fontMetrics().ascent() / 2, number);
  }
}

void BarChart::PaintBars(QPainter& painter, const Frame& frame) const {
  const double foot = frame.Plot.bottom();
  const double width = frame.SlotWidth * kOfSlot / 2;
  for (std::size_t i = 0; i < bars_.size(); ++i) {
    const double middle = frame.MiddleOf(i);
    const double actual = bars_[i].Actual * frame.Scale();
    const double expected = bars_[i].Expected * frame.Scale();
    PaintBar(painter, {middle - width, foot - actual, width, actual}, true);
    PaintBar(painter, {middle, foot - expected, width, expected}, false);
  }
}

void BarChart::PaintBar(QPainter& painter, const QRectF& bar, bool actual) const {
  const QColor ground = palette().color(QPalette::Window);
  if (actual) {
    painter.fillRect(bar, ReadableOn(ground, palette().color(QPalette::Highlight)));
  } else {
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawRect(bar.adjusted(0.5, 0.5, -0.5, -0.5));
  }
}

/// Every one, or every second, third, ... when they would touch.
void BarChart::PaintNames(QPainter& painter, const Frame& frame) const {
  painter.setPen(palette().color(QPalette::WindowText));
  const double needed = frame.Upright ? fontMetrics().height() : 0;
  const auto every = static_cast<std::size_t>(std::max(1.0, std::ceil(needed / frame.SlotWidth)));
  for (std::size_t bar = 0; bar < bars_.size(); bar += every) PaintName(painter, frame, bar);
}

void BarChart::PaintName(QPainter& painter, const Frame& frame, std::size_t bar) const {
  const QString name = ToQt(bars_[bar].Name);
  const int width = fontMetrics().horizontalAdvance(name);
  const double middle = frame.MiddleOf(bar);
  if (!frame.Upright) {
    painter.drawText(QPointF(middle - width / 2.0, height() - fontMetrics().descent()), name);
    return;
  }
  painter.save();
  painter.translate(middle + fontMetrics().ascent() / 2.0 - 1, frame.Plot.bottom() + kGap + width);
  painter.rotate(-90);
  painter.drawText(0, 0, name);
  painter.restore();
}

}  // namespace morvane::shell
