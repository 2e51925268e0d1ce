#pragma once

#include <cstddef>
#include <string>

#include "model/board_set.h"

namespace morvane::files {

// Boards of the formats in which a board's place is its number.

/// Puts a board with the cards of `cards` behind the last one of the set, under the number of its
/// place. False, and nothing done, when there are 640 already.
[[nodiscard]] bool AppendBoard(BoardSet& set, const Board& cards);

/// The zero bytes in place of the records 1 up to the first board, in formats where the number of a
/// record is that of its board.
[[nodiscard]] std::string GapBefore(const BoardSet& set, std::size_t recordLength);

}  // namespace morvane::files
