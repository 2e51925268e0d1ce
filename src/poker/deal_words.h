#pragma once

#include <string>

#include "poker/poker_order.h"

namespace morvane::poker {

/// The slots `first` to `last` of a deal for who cannot see them: "1 Player 1: spades A. ...".
[[nodiscard]] std::string SlotsInWords(const PokerDeal& deal, int first, int last);

}  // namespace morvane::poker
