#pragma once

#include <QWidget>

#include "shell/refresh_statistics.h"

namespace morvane {
class ShownText;
}

namespace morvane::shell {

class BarChart;
class StatisticsList;

/// The statistics of the set: the lists `HandStat` and `lbxShapes`, `txtMaxFreq`, `txtMinFreq` and
/// `txtInDeals`; and bars of shapes and points. What has no room beside the others stands below
/// them.
class StatisticsPanel final : public QWidget {
 public:
  explicit StatisticsPanel(QWidget* parent);

  void Show(const StatisticsPage& page);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget* MakeLists();
  QWidget* MakeBars();
  QWidget* MakeExtremes();
  [[nodiscard]] int WidthOfLists() const;

  StatisticsList* HandStat_;
  StatisticsList* lbxShapes_;
  ShownText* txtMaxFreq_ = nullptr;
  ShownText* txtMinFreq_ = nullptr;
  ShownText* txtInDeals_ = nullptr;
  BarChart* shapeBars_ = nullptr;
  BarChart* pointBars_ = nullptr;
  QWidget* lists_ = nullptr;
  QWidget* bars_ = nullptr;
};

}  // namespace morvane::shell
