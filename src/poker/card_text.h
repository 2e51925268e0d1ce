#pragma once

#include <string_view>

namespace morvane::poker {

/// A card of a deal as a reader sees it.
struct CardText {
  int Suit = 0;           ///< 1 Spades .. 4 Clubs; 0: a joker, or no card
  std::string_view Sign;  ///< of the suit, in UTF-8; empty without one
  std::string_view Rank;  ///< one of "23456789TJQKA", "JK" of a joker; empty: no card
  bool Red = false;       ///< Hearts and Diamonds
};

/// What machine card `number` is called: 1..52, a joker above; 0 is an empty slot.
[[nodiscard]] CardText CardTextOf(int number);

}  // namespace morvane::poker
