#pragma once

#include <QWidget>

#include "shell/refresh_statistics.h"

namespace morvane {
class ShownText;
}

namespace morvane::shell {

class StatisticsList;

/// The statistics of the set: the lists `HandStat` and `lbxShapes`, and `txtMaxFreq`, `txtMinFreq`
/// and `txtInDeals`.
class StatisticsPanel final : public QWidget {
 public:
  explicit StatisticsPanel(QWidget* parent);

  void Show(const StatisticsPage& page);

 private:
  QWidget* MakeExtremes();

  StatisticsList* HandStat_;
  StatisticsList* lbxShapes_;
  ShownText* txtMaxFreq_ = nullptr;
  ShownText* txtMinFreq_ = nullptr;
  ShownText* txtInDeals_ = nullptr;
};

}  // namespace morvane::shell
