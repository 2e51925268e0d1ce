#pragma once

#include <QWidget>

class QTreeWidget;

namespace morvane::shell {

/// The statistics of the set: the lists `HandStat` and `lbxShapes`, and `txtMaxFreq`, `txtMinFreq`
/// and `txtInDeals`.
class StatisticsPanel final : public QWidget {
 public:
  explicit StatisticsPanel(QWidget* parent);

 private:
  QWidget* MakeExtremes();

  QTreeWidget* HandStat_;
  QTreeWidget* lbxShapes_;
};

}  // namespace morvane::shell
