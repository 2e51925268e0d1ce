#pragma once

#include <string>

#include "poker/poker_order.h"
#include "wire/card_bytes.h"

namespace morvane::poker {

/// As the machine's buttons take it: a deal is empty when its first slot is.
[[nodiscard]] inline bool IsEmpty(const PokerDeal& deal) { return deal[1] == 0; }

/// Why `deal` cannot be stacked, as a box says it: its first slot that is empty or holds the card
/// of an earlier one. Empty when it can.
[[nodiscard]] std::string WhyNotStacked(const PokerDeal& deal);

/// The cards of `deal` that have no number in `log`, by commas.
[[nodiscard]] std::string CardsNotSeen(const PokerDeal& deal, const wire::CardBytes& log);

}  // namespace morvane::poker
