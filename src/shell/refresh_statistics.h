#pragma once

#include <string>
#include <vector>

#include "model/statistics_text.h"
#include "program/program.h"

namespace morvane::shell {

/// What the main window shows of the set's numbers and statistics; empty is what is not shown.
struct StatisticsPage {
  std::string FirstBoard;
  std::string LastBoard;
  std::string Count;
  std::string Completed;
  std::vector<ShapeRow> Shapes;
  std::vector<HandRow> Hands;
  SetTotals Totals;  ///< what the lists are made of; of no board where they are empty
  std::string MaxFreq;
  std::string MinFreq;
  std::string InDeals;
};

/// Where the statistics are shown; a program without a main window shows them nowhere.
class StatisticsView {
 public:
  virtual ~StatisticsView() = default;
  virtual void ShowStatistics(const StatisticsPage& /*page*/) {}
};

/// Counts the set anew and shows it. The windows live meanwhile, so this belongs into a flow: every
/// one that may have changed the set ends with it.
void RefreshStatistics(Program& program, StatisticsView& view);

}  // namespace morvane::shell
