#pragma once

#include <algorithm>
#include <array>
#include <random>
#include <string>

#include "support/fakes.h"

namespace morvane::files {

// Sets for the tests of board files.

/// The hands of `test::SuitBoard` as a PBN file has them, and its whole tag.
inline constexpr const char* kSuitsPbn =
    "AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432";
inline const std::string kSuitDeal = "[Deal \"N:" + std::string(kSuitsPbn) + "\"]";

/// The places `first` to `last`, on which no board was put.
inline BoardSet EmptySet(int first, int last) {
  BoardSet set;
  set.Clear();
  set.FirstBoard = static_cast<std::int16_t>(first);
  set.LastBoard = static_cast<std::int16_t>(last);
  return set;
}

inline void ExpectNoSet(const BoardSet& set) {
  EXPECT_EQ(set.FirstBoard, 1);
  EXPECT_EQ(set.LastBoard, 0);
  EXPECT_EQ(set.CurrentBoard, 1);
  EXPECT_EQ(set.EventName + set.EventSite + set.EventDate + set.BoardSetFile, "");
  EXPECT_EQ(set.BoardSetChanged, "0");
  EXPECT_TRUE(std::all_of(set.Boards.begin(), set.Boards.end(),
                          [](const Board& board) { return board == Board{}; }));
}

/// A board dealt at random, of which each card is missing with the chance `missing` in 8.
inline Board RandomBoard(std::mt19937& random, int n, unsigned missing = 0) {
  Board board = NumberedBoard(n);
  std::array<std::uint8_t, kCards> hands{};
  for (std::size_t i = 0; i < hands.size(); ++i) {
    hands[i] = static_cast<std::uint8_t>(i / kRanks + kNorth);
  }
  std::shuffle(hands.begin(), hands.end(), random);
  for (std::size_t card = 1; card <= kCards; ++card) {
    board.Cards[card] = random() % 8 < missing ? std::uint8_t{0} : hands[card - 1];
  }
  AnalyzeBoard(board);
  return board;
}

/// Boards `first` to `last` dealt at random; `missing` as above.
inline BoardSet RandomSet(std::mt19937& random, int first, int last, unsigned missing = 0) {
  BoardSet set = EmptySet(first, last);
  for (int n = first; n <= last; ++n) set.At(n) = RandomBoard(random, n, missing);
  return set;
}

}  // namespace morvane::files
