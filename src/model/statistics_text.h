#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/statistics.h"

namespace morvane {

// The statistics as texts, as windows and the command line show them.

/// A row of the hand shapes; the numbers are right-aligned with blanks.
struct ShapeRow {
  std::string Shape;
  std::string Actual;
  std::string Expected;
  std::string Difference;  ///< with a plus above 0
  bool operator==(const ShapeRow&) const = default;
};
/// The shapes that are expected at least once; a rarer one has no row even if it is there.
[[nodiscard]] std::vector<ShapeRow> ShapeRows(const SetTotals& totals);

/// A row of the hand statistics: N, S, E, W, and the sums NS and EW.
struct HandRow {
  static constexpr std::array<std::string_view, 6> kColumns{"N", "S", "E", "W", "NS", "EW"};

  std::string Name;
  std::array<std::string, kColumns.size()> Cells;  ///< empty without a complete board
  bool operator==(const HandRow&) const = default;
};
[[nodiscard]] std::vector<HandRow> HandRows(const SetTotals& totals);

/// The share of the complete boards, the card and the hand: "27% K♥ N". Half a percent rounds up.
[[nodiscard]] std::string FrequencyText(const CardFrequency& frequency, int completedBoards);

}  // namespace morvane
