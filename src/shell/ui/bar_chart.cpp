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
  for (std::size_t bar = 0; bar < bars_.size(); ++bar) {
    if (SlotOf(bar).contains(place)) return ToQt(bars_[bar].Text());
  }
  return {};
}

QSize BarChart::sizeHint() const {
  return {kUsualLetters * fontMetrics().averageCharWidth(), minimumSizeHint().height()};
}

QSize BarChart::minimumSizeHint() const {
  return {kLeastLetters * fontMetrics().averageCharWidth(),
          kLeastLines * fontMetrics().lineSpacing()};
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
  PaintHead(painter);
  PaintScale(painter);
  PaintBars(painter);
  PaintNames(painter);
}

double BarChart::Most() const {
  double most = 1;
  for (const CountBar& bar : bars_) most = std::max({most, double(bar.Actual), bar.Expected});
  return most;
}

int BarChart::Step() const { return StepFor(Most()); }

/// Pixels a hand.
double BarChart::Scale() const { return Plot().height() / Most(); }

int BarChart::WidestName() const {
  int widest = 0;
  for (const CountBar& bar : bars_) {
    widest = std::max(widest, fontMetrics().horizontalAdvance(ToQt(bar.Name)));
  }
  return widest;
}

bool BarChart::NamesStandUpright() const {
  return (WidestName() + 2 * kGap) * static_cast<int>(bars_.size()) > width();
}

/// Between the head, the numbers of the scale and the names of the bars.
QRect BarChart::Plot() const {
  const int line = fontMetrics().lineSpacing();
  const int left = fontMetrics().horizontalAdvance(QString::number(kMostLines * Step())) + kGap;
  const int names = NamesStandUpright() ? WidestName() : line;
  return rect().adjusted(left, line + line / 2, 0, -names - kGap);
}

QRectF BarChart::SlotOf(std::size_t bar) const {
  const QRect plot = Plot();
  const double width = plot.width() / static_cast<double>(bars_.size());
  return {plot.left() + static_cast<double>(bar) * width, double(plot.top()), width,
          double(height() - plot.top())};
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

void BarChart::PaintScale(QPainter& painter) const {
  const QRect plot = Plot();
  const QColor text = palette().color(QPalette::WindowText);
  QColor line = text;
  line.setAlphaF(0.25F);
  const int most = bars_.empty() ? 0 : static_cast<int>(Most());
  for (int count = 0; count <= most; count += Step()) {
    const int y = plot.bottom() - static_cast<int>(std::lround(count * Scale()));
    painter.setPen(line);
    painter.drawLine(plot.left(), y, plot.right(), y);
    painter.setPen(text);
    const QString number = QString::number(count);
    const int width = fontMetrics().horizontalAdvance(number);
    painter.drawText(plot.left() - kGap - width, y + fontMetrics().ascent() / 2, number);
  }
}

void BarChart::PaintBars(QPainter& painter) const {
  const double foot = Plot().bottom();
  for (std::size_t i = 0; i < bars_.size(); ++i) {
    const QRectF slot = SlotOf(i);
    const double width = slot.width() * kOfSlot / 2;
    const double left = slot.center().x() - width;
    const double actual = bars_[i].Actual * Scale();
    const double expected = bars_[i].Expected * Scale();
    PaintBar(painter, {left, foot - actual, width, actual}, true);
    PaintBar(painter, {left + width, foot - expected, width, expected}, false);
  }
}

void BarChart::PaintBar(QPainter& painter, const QRectF& bar, bool actual) const {
  const QColor ground = palette().color(QPalette::Window);
  const QColor text = palette().color(QPalette::WindowText);
  painter.save();
  if (actual) {
    painter.fillRect(bar, ReadableOn(ground, palette().color(QPalette::Highlight)));
  } else {
    painter.setPen(text);
    painter.drawRect(bar.adjusted(0.5, 0.5, -0.5, -0.5));
  }
  painter.restore();
}

void BarChart::PaintNames(QPainter& painter) const {
  if (bars_.empty()) return;
  painter.setPen(palette().color(QPalette::WindowText));
  const double needed = NamesStandUpright() ? fontMetrics().height() : 0;
  const auto every = static_cast<std::size_t>(std::max(1.0, std::ceil(needed / SlotOf(0).width())));
  for (std::size_t bar = 0; bar < bars_.size(); bar += every) PaintName(painter, bar);
}

void BarChart::PaintName(QPainter& painter, std::size_t bar) const {
  const QString name = ToQt(bars_[bar].Name);
  const int width = fontMetrics().horizontalAdvance(name);
  const double middle = SlotOf(bar).center().x();
  painter.save();
  if (NamesStandUpright()) {
    painter.translate(middle + fontMetrics().ascent() / 2.0 - 1, Plot().bottom() + kGap + width);
    painter.rotate(-90);
    painter.drawText(0, 0, name);
  } else {
    painter.drawText(QPointF(middle - width / 2.0, height() - fontMetrics().descent()), name);
  }
  painter.restore();
}

}  // namespace morvane::shell
