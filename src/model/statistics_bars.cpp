#include "model/statistics_bars.h"

#include "model/point_frequency.h"
#include "text/text.h"

namespace morvane {
namespace {

constexpr int kPointsOfBar = 2;
constexpr int kPointsTogether = 22;  // from here on

CountBar PointBar(const SetTotals& totals, std::string name, int first, int last) {
  CountBar bar{.Name = std::move(name)};
  for (int points = first; points <= last; ++points) {
    bar.Actual += totals.HandsByHcp[static_cast<std::size_t>(points)];
    bar.Expected += PointFrequency(points) * kHands * totals.CompletedBoards;
  }
  return bar;
}

}  // namespace

std::string CountBar::Text() const {
  return Name + ": " + std::to_string(Actual) + ", expected " + FixedPoint(Expected, 1);
}

std::vector<CountBar> ShapeBars(const SetTotals& totals) {
  std::vector<CountBar> bars;
  const int listed = ListedShapes(totals.CompletedBoards);
  for (int shape = 1; shape <= listed; ++shape) {
    bars.push_back({std::string(Shapes[shape].Name),
                    totals.ShapeCount[static_cast<std::size_t>(shape)],
                    double{Shapes[shape].Frequency} * kHands * totals.CompletedBoards});
  }
  return bars;
}

std::vector<CountBar> PointBars(const SetTotals& totals) {
  std::vector<CountBar> bars;
  if (totals.CompletedBoards == 0) return bars;
  for (int first = 0; first < kPointsTogether; first += kPointsOfBar) {
    const int last = first + kPointsOfBar - 1;
    bars.push_back(
        PointBar(totals, std::to_string(first) + "-" + std::to_string(last), first, last));
  }
  bars.push_back(
      PointBar(totals, std::to_string(kPointsTogether) + "+", kPointsTogether, kMostPoints));
  return bars;
}

}  // namespace morvane
