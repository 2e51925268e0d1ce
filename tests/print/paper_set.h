#pragma once

#include <array>
#include <string>
#include <vector>

#include "print/paper_boards.h"

namespace morvane::test {

/// Deals as hands north, east, south, west: with voids and ten cards of a suit, one suit a hand,
/// without anything odd, incomplete, and empty.
inline const std::vector<std::array<std::string_view, kHands>> kPaperDeals{
    {"AKQJT98765..K2.4", ".AKQ432.A43.AK32", "432.JT9.QJT9.QJT", ".8765.8765.98765"},
    {"AKQJT98765432...", ".AKQJT98765432..", "..AKQJT98765432.", "...AKQJT98765432"},
    {"AT62.J73.Q84.K95", "K95.AT62.J73.Q84", "Q84.K95.AT62.J73", "J73.Q84.K95.AT62"},
    {"AKT..T.", "J9.T..", "...T2", "..."},
    {"...", "...", "...", "..."},
};
[[nodiscard]] inline const std::array<std::string_view, kHands>& PaperDealOf(int n) {
  return kPaperDeals[static_cast<std::size_t>(n) % kPaperDeals.size()];
}

/// Boards 1..`last`; of the complete ones every second has results, each hand's another level in
/// each denomination, level 0 among them.
[[nodiscard]] inline BoardSet PaperSet(int last) {
  constexpr int kLevels = 8;
  BoardSet set;
  set.FirstBoard = 1;
  set.LastBoard = static_cast<std::int16_t>(last);
  for (int n = 1; n <= last; ++n) {
    set.At(n) = BoardOfHands(n, PaperDealOf(n));
    if (n % 2 == 0 || set.At(n).Status != Board::kComplete) continue;
    for (int hand = kNorth; hand <= kWest; ++hand) {
      for (std::size_t denomination = 0; denomination < kDenominations; ++denomination) {
        set.At(n).Tricks[TricksIndex(hand, denomination)] =
            static_cast<std::uint8_t>((n + 3 * hand + static_cast<int>(denomination)) % kLevels);
      }
    }
  }
  return set;
}

}  // namespace morvane::test
