#pragma once

#include "generate/number_dealer.h"
#include "model/board_set.h"

namespace morvane::bench {

/// Boards 1..`last`, always the same, dealt by the number generator.
inline void DealSet(BoardSet& set, int last) {
  generate::NumberDealer dealer;
  dealer.Seedo = {1, 2, 3, 4, 5};
  set.FirstBoard = 1;
  set.LastBoard = static_cast<std::int16_t>(last);
  for (int n = 1; n <= last; ++n) {
    Board board;
    dealer.NextNumberDeal(board);
    set.At(n) = NumberedBoard(n, board);
  }
}

/// The same as a set of their own.
inline BoardSet RandomBoards(int count) {
  BoardSet set;
  set.Clear();
  DealSet(set, count);
  return set;
}

}  // namespace morvane::bench
