#pragma once

#include <string>
#include <vector>

#include "model/statistics.h"

namespace morvane {

/// A count, to be drawn beside what is expected of it.
struct CountBar {
  std::string Name;
  int Actual = 0;
  double Expected = 0;

  /// "4432: 5, expected 4.3".
  [[nodiscard]] std::string Text() const;
};

/// Of the shapes that the rows of the hand shapes have.
[[nodiscard]] std::vector<CountBar> ShapeBars(const SetTotals& totals);
/// Of the hands' high-card points: two by two, from 22 on together. None without complete boards.
[[nodiscard]] std::vector<CountBar> PointBars(const SetTotals& totals);

}  // namespace morvane
