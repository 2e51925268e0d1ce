#pragma once

#include <algorithm>

#include "model/board.h"

namespace morvane {

/// Whether an analysis has found anything that makes. A board on which nothing does counts as not
/// analysed: required.
[[nodiscard]] inline bool HasResults(const Board& board) {
  return std::any_of(board.Tricks.begin(), board.Tricks.begin() + kResults,
                     [](std::uint8_t level) { return level != 0; });
}

}  // namespace morvane
