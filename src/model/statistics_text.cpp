#include "model/statistics_text.h"

#include <utility>

#include "text/columns.h"
#include "text/suit_signs.h"
#include "text/text.h"

namespace morvane {
namespace {

/// Rounded half up, from whole numbers, so that no fraction is lost before.
int Quotient(int dividend, int divisor) { return (2 * dividend + divisor) / (2 * divisor); }

std::string Average(int total, int boards) {
  return FixedPoint(Quotient(100 * total, boards) / 100.0, 2);
}

using CellText = std::string (*)(int total, int boards);

HandRow RowOf(std::string name, const SetTotals& totals, const SetTotals::ByHand& of,
              CellText text) {
  HandRow row{std::move(name), {}};
  if (totals.CompletedBoards == 0) return row;
  const std::array<int, HandRow::kColumns.size()> cells{
      of[kNorth], of[kSouth], of[kEast], of[kWest], of[kNorth] + of[kSouth], of[kEast] + of[kWest]};
  for (std::size_t i = 0; i < cells.size(); ++i) {
    row.Cells[i] = text(cells[i], totals.CompletedBoards);
  }
  return row;
}

}  // namespace

std::vector<ShapeRow> ShapeRows(const SetTotals& totals) {
  constexpr std::size_t kCountWidth = 4;
  constexpr std::size_t kDifferenceWidth = 3;
  std::vector<ShapeRow> rows;
  const int listed = ListedShapes(totals.CompletedBoards);
  for (int shape = 1; shape <= listed; ++shape) {
    const int actual = totals.ShapeCount[static_cast<std::size_t>(shape)];
    const int expected = ExpectedHands(shape, kHands * totals.CompletedBoards);
    const int difference = actual - expected;
    rows.push_back({std::string(Shapes[shape].Name),
                    RightAligned(std::to_string(actual), kCountWidth),
                    RightAligned(std::to_string(expected), kCountWidth),
                    difference > 0 ? "+" + std::to_string(difference)
                                   : RightAligned(std::to_string(difference), kDifferenceWidth)});
  }
  return rows;
}

std::vector<HandRow> HandRows(const SetTotals& totals) {
  const CellText count = [](int total, int /*boards*/) { return PadNumber(total); };
  return {RowOf("Average HCP:", totals, totals.HcpTotal, Average),
          RowOf("Balanced Hands:", totals, totals.BalancedHands, count),
          RowOf("Voids:", totals, totals.VoidCount, count),
          RowOf("Singletons:", totals, totals.SingletonCount, count),
          RowOf("Long suits (7+):", totals, totals.LongSuitCount, count)};
}

std::string FrequencyText(const CardFrequency& frequency, int completedBoards) {
  return std::to_string(Quotient(100 * frequency.Count, completedBoards)) + "% " +
         CardLetter(frequency.Card) +
         std::string(SuitSigns[static_cast<std::size_t>(CardSuit(frequency.Card))]) + " " +
         HandLetter(frequency.Hand);
}

}  // namespace morvane
