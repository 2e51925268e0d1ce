#include "shell/ui/statistics_panel.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "platform/qt/shown_text.h"
#include "shell/ui/statistics_list.h"

namespace morvane::shell {
namespace {

constexpr int kSpacing = 8;

std::vector<QStringList> RowsOf(const std::vector<HandRow>& hands) {
  std::vector<QStringList> rows;
  for (const HandRow& hand : hands) {
    QStringList row{ToQt(hand.Name)};
    for (const std::string& cell : hand.Cells) row << ToQt(cell);
    rows.push_back(row);
  }
  return rows;
}

std::vector<QStringList> RowsOf(const std::vector<ShapeRow>& shapes) {
  std::vector<QStringList> rows;
  for (const ShapeRow& shape : shapes) {
    rows.push_back(
        {ToQt(shape.Shape), ToQt(shape.Actual), ToQt(shape.Expected), ToQt(shape.Difference)});
  }
  return rows;
}

}  // namespace

StatisticsPanel::StatisticsPanel(QWidget* parent)
    : QWidget(parent),
      HandStat_(new StatisticsList("HandStat", "Hands statistic",
                                   {{"Hand:", 100},
                                    {"   N   ", 30},
                                    {"   S   ", 30},
                                    {"   E   ", 30},
                                    {"   W   ", 30},
                                    {"  NS  ", 30},
                                    {"  EW  ", 30}},
                                   this)),
      lbxShapes_(new StatisticsList(
          "lbxShapes", "Actual and expected Hand shapes",
          {{"Shape", 34}, {"Actual", 34}, {"Expected", 52}, {"Diffrence", 52}}, this)) {
  HandStat_->setAccessibleName("Hand Statistics");
  lbxShapes_->setAccessibleName("Hand Shapes");
  auto* hands = new QVBoxLayout;
  hands->addWidget(new QLabel("Hand Statistics:", this));
  hands->addWidget(HandStat_, 1);
  hands->addWidget(MakeExtremes());
  auto* shapes = new QVBoxLayout;
  shapes->addWidget(new QLabel("Hand Shapes:", this));
  shapes->addWidget(lbxShapes_, 1);
  auto* both = new QHBoxLayout(this);
  both->setContentsMargins(0, 0, 0, 0);
  both->setSpacing(kSpacing);
  both->addLayout(hands, 1);
  both->addLayout(shapes);
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
  txtMaxFreq_->setText(ToQt(page.MaxFreq));
  txtMinFreq_->setText(ToQt(page.MinFreq));
  txtInDeals_->setText(ToQt(page.InDeals));
}

}  // namespace morvane::shell
