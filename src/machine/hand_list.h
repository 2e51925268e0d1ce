#pragma once

#include "model/board.h"
#include "wire/card_bytes.h"

namespace morvane::machine {

/// The pocket 1..4 of each card of `board`, 0 for one that nobody holds. Jokers have none.
[[nodiscard]] wire::CardBytes HandListOf(const Board& board);

/// How many of the cards that the hands of `board` hold are not dealt according to `cardLog`.
[[nodiscard]] int CardsMissing(const Board& board, const wire::CardBytes& cardLog);

/// What a reading machine is to expect of each place of the pile. Cards dealt by hand, the first to
/// hand 1..4 `dealer`: pockets by turns, opposite to the deal, as the pile is turned over.
[[nodiscard]] wire::CardBytes PocketsInTurn(int dealer);

/// A board that was played, hand on hand: 13 cards to each pocket, South first. One place more than
/// there are cards is sent: required.
[[nodiscard]] wire::CardBytes PocketsOfPlayedBoard();
inline constexpr std::size_t kPlayedPlaces = std::size_t{kCards} + 1;

/// Gives each card to the hand whose pocket it lies in, a card without a pocket to nobody, and
/// analyses the board. The results of other cards go.
void TakeHandList(const wire::CardBytes& pockets, Board& board);

}  // namespace morvane::machine
