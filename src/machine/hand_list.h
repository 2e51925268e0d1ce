#pragma once

#include "model/board.h"
#include "wire/card_bytes.h"

namespace morvane::machine {

/// The pocket 1..4 of each card of `board`, 0 for one that nobody holds. Jokers have none.
[[nodiscard]] wire::CardBytes HandListOf(const Board& board);

/// How many of the cards that the hands of `board` hold are not dealt according to `cardLog`.
[[nodiscard]] int CardsMissing(const Board& board, const wire::CardBytes& cardLog);

/// Gives each card to the hand whose pocket it lies in, a card without a pocket to nobody, and
/// analyses the board.
void TakeHandList(const wire::CardBytes& pockets, Board& board);

}  // namespace morvane::machine
