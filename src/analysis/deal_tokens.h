#pragma once

#include <string>
#include <vector>

#include "model/board.h"

namespace morvane::analysis {

/// A board as a solver takes it: 52 tokens of hand, suit and rank ("NSA"), suit by suit from the
/// ace down. Empty when a hand has not 13 cards.
[[nodiscard]] std::vector<std::string> DealTokens(const Board& board);

/// The board of such tokens, in any order. False when they are not 13 cards a hand.
[[nodiscard]] bool ReadTokens(const std::vector<std::string>& tokens, Board& board);

}  // namespace morvane::analysis
