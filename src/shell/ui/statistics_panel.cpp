#include "shell/ui/statistics_panel.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/qt_text.h"
#include "platform/qt/shown_text.h"
#include "shell/ui/bar_chart.h"
#include "shell/ui/statistics_list.h"

namespace morvane::shell {
namespace {

constexpr int kSpacing = 8;
constexpr int kBarsGap = 24;  // the legend of one chart is not to be read with the next one's title
constexpr int kHandRows = 5;
constexpr const char* kWidestFigure = "00.00";

QStringList HandRowNames() {
  QStringList names;
  for (const HandRow& row : HandRows(SetTotals())) names << ToQt(row.Name);
  return names;
}

std::vector<QStringList> RowsOf(const std::vector<HandRow>& hands) {
  std::vector<QStringList> rows;
  rows.reserve(hands.size());
  for (const HandRow& hand : hands) {
    QStringList row{ToQt(hand.Name)};
    for (const std::string& cell : hand.Cells) row << ToQt(cell);
    rows.push_back(row);
  }
  return rows;
}

std::vector<QStringList> RowsOf(const std::vector<ShapeRow>& shapes) {
  std::vector<QStringList> rows;
  rows.reserve(shapes.size());
  for (const ShapeRow& shape : shapes) {
    rows.push_back(
        {ToQt(shape.Shape), ToQt(shape.Actual), ToQt(shape.Expected), ToQt(shape.Difference)});
  }
  return rows;
}

QString SpokenOf(const std::vector<CountBar>& bars) {
  QStringList texts;
  for (const CountBar& bar : bars) texts << ToQt(bar.Text());
  return texts.join("; ");
}

}  // namespace

StatisticsPanel::StatisticsPanel(QWidget* parent)
    : QWidget(parent),
      HandStat_(new StatisticsList("HandStat", "Hands statistic",
                                   {{"Hand:", 100, HandRowNames()},
                                    {"   N   ", 30, {kWidestFigure}},
                                    {"   S   ", 30, {kWidestFigure}},
                                    {"   E   ", 30, {kWidestFigure}},
                                    {"   W   ", 30, {kWidestFigure}},
                                    {"  NS  ", 30, {kWidestFigure}},
                                    {"  EW  ", 30, {kWidestFigure}}},
                                   this)),
      lbxShapes_(new StatisticsList("lbxShapes", "Actual and expected Hand shapes",
                                    {{"Shape", 34, {"4432"}},
                                     {"Actual", 34, {}},
                                     {"Expected", 52, {}},
                                     {"Diffrence", 52, {}}},
                                    this)) {
  HandStat_->setAccessibleName("Hand Statistics");
  lbxShapes_->setAccessibleName("Hand Shapes");
  HandStat_->ShowAtLeast(kHandRows);
  lists_ = MakeLists();
  bars_ = MakeBars();
  auto* all = new QBoxLayout(QBoxLayout::LeftToRight, this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(kSpacing);
  all->addWidget(lists_);
  all->addWidget(bars_, 1);
  setTabOrder(txtInDeals_, lbxShapes_);  // column by column, however the columns are arranged
}

QWidget* StatisticsPanel::MakeLists() {
  auto* lists = new QWidget(this);
  auto* hands = new QWidget(lists);
  auto* inHands = new QVBoxLayout(hands);
  inHands->setContentsMargins(0, 0, 0, 0);
  inHands->addWidget(new QLabel("Hand Statistics:", hands));
  inHands->addWidget(HandStat_, 1);
  inHands->addWidget(MakeExtremes());
  auto* shapes = new QWidget(lists);
  auto* inShapes = new QVBoxLayout(shapes);
  inShapes->setContentsMargins(0, 0, 0, 0);
  inShapes->addWidget(new QLabel("Hand Shapes:", shapes));
  inShapes->addWidget(lbxShapes_, 1);
  auto* both = new QBoxLayout(QBoxLayout::LeftToRight, lists);
  both->setContentsMargins(0, 0, 0, 0);
  both->setSpacing(kSpacing);
  both->addWidget(hands, 1);
  both->addWidget(shapes);
  return lists;
}

QWidget* StatisticsPanel::MakeBars() {
  auto* bars = new QWidget(this);
  // The second needs no legend of its own.
  shapeBars_ = new BarChart("ShapeBars", "Hands of each shape", "Bars of hand shapes",
                            BarChart::Legend::kShown, bars);
  pointBars_ = new BarChart("PointBars", "Hands by high-card points", "Bars of high-card points",
                            BarChart::Legend::kNone, bars);
  auto* both = new QBoxLayout(QBoxLayout::TopToBottom, bars);
  both->setContentsMargins(0, 0, 0, 0);
  both->setSpacing(kSpacing);
  both->addWidget(shapeBars_, 1);
  both->addWidget(pointBars_, 1);
  return bars;
}

int StatisticsPanel::WidthOfLists() const {
  return HandStat_->minimumWidth() + kSpacing + lbxShapes_->minimumWidth();
}

/// The width says how the parts are arranged, and not the other way round.
QSize StatisticsPanel::sizeHint() const { return {WidthOfLists(), layout()->sizeHint().height()}; }

QSize StatisticsPanel::minimumSizeHint() const {
  return {HandStat_->minimumWidth(), layout()->minimumSize().height()};
}

void StatisticsPanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const auto arrange = [](QWidget& part, bool sideBySide) {
    static_cast<QBoxLayout*>(part.layout())
        ->setDirection(sideBySide ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  };
  const int shapes = shapeBars_->minimumSizeHint().width();
  const int points = pointBars_->minimumSizeHint().width();
  const bool barsBeside = width() >= WidthOfLists() + kSpacing + shapes;
  const bool barsAbreast = !barsBeside && width() >= 2 * std::max(shapes, points) + kBarsGap;
  arrange(*lists_, width() >= WidthOfLists());
  arrange(*bars_, barsAbreast);
  bars_->layout()->setSpacing(barsAbreast ? kBarsGap : kSpacing);
  arrange(*this, barsBeside);
}

QWidget* StatisticsPanel::MakeExtremes() {
  auto* extremes = new QWidget(this);
  const auto box = [extremes](const char* name, const char* tip) {
    return new ShownText(name, tip, extremes);
  };
  txtMaxFreq_ = box("txtMaxFreq", "Maximum card frequency for any Hand (ave 25%)");
  txtMinFreq_ = box("txtMinFreq", "Minimum card frequency for any Hand (ave 25%)");
  txtInDeals_ = box("txtInDeals", "Board numbers for similar hands within the current set");
  auto* form = new QFormLayout(extremes);
  form->setContentsMargins(0, 0, 0, 0);
  form->addRow("Max frequency:", txtMaxFreq_);
  form->addRow("Min frequency:", txtMinFreq_);
  form->addRow("Inner Similarity:", txtInDeals_);
  return extremes;
}

void StatisticsPanel::Show(const StatisticsPage& page) {
  HandStat_->Show(RowsOf(page.Hands));
  lbxShapes_->Show(RowsOf(page.Shapes));
  const auto shapes = ShapeBars(page.Totals);
  shapeBars_->Show(shapes, shapes.empty() ? "" : "The numbers stand in the list of hand shapes");
  const auto points = PointBars(page.Totals);
  pointBars_->Show(points, SpokenOf(points));
  txtMaxFreq_->ShowSuits(ToQt(page.MaxFreq));
  txtMinFreq_->ShowSuits(ToQt(page.MinFreq));
  txtInDeals_->setText(ToQt(page.InDeals));
}

}  // namespace morvane::shell
