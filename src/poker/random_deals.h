#pragma once

#include "platform/entropy.h"
#include "poker/poker_order.h"

namespace morvane::poker {

/// Whether an order can have so many deals.
[[nodiscard]] constexpr bool IsDealCount(int deals) { return deals >= 1 && deals <= kMostDeals; }
inline constexpr const char* kWrongDealCount =
    "    Incorrect number of deals. Allowed values are 1 to 100.     ";

/// A new order of `deals` empty deals, for which `IsDealCount` holds; the first is shown.
[[nodiscard]] PokerOrder EmptyOrder(int deals);

/// Gives each slot of each deal a card 1..52 that the deal does not have yet.
void FillAtRandom(PokerOrder& order, Entropy& random);

}  // namespace morvane::poker
