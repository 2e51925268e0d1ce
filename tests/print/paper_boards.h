#pragma once

#include <array>
#include <string_view>

#include "model/board_set.h"

namespace morvane::test {

/// Board `n` with hands written as "AKQ.J2..T98" each: spades, hearts, diamonds, clubs.
inline Board BoardOfHands(int n, const std::array<std::string_view, kHands>& northToWest) {
  Board board = NumberedBoard(n);
  for (int hand = kNorth; hand <= kWest; ++hand) {
    int suit = 1;
    for (const char c : northToWest[static_cast<std::size_t>(hand) - 1]) {
      if (c == '.') {
        ++suit;
      } else {
        board.Cards[static_cast<std::size_t>(CardOf(suit, c))] = static_cast<std::uint8_t>(hand);
      }
    }
  }
  AnalyzeBoard(board);
  return board;
}

/// Board `n`, analysed: North has ten spades and no heart, East and West no spade. HCP 13, 20, 7
/// and 0.
inline Board VoidBoard(int n) {
  Board board = BoardOfHands(
      n, {"AKQJT98765..K2.4", ".AKQ432.A43.AK32", "432.JT9.QJT9.QJT", ".8765.8765.98765"});
  const auto makes = [&board](int hand, std::size_t denomination, int level) {
    board.Tricks[TricksIndex(hand, denomination)] = static_cast<std::uint8_t>(level);
  };
  makes(kNorth, 1, 4);
  makes(kSouth, 1, 3);
  makes(kEast, 0, 1);
  makes(kEast, 2, 3);
  makes(kEast, 4, 2);
  makes(kWest, 3, 7);
  return board;
}

}  // namespace morvane::test
