#pragma once

#include <string>
#include <string_view>

#include "model/board_set.h"
#include "model/messages.h"

namespace morvane::files {

// Four hands as ranks behind suit marks (`SuitGlyphsTerminal`): the records of DGE, the second part
// of a DUP record, and the lines of BRE.

inline constexpr std::size_t kDgeHands = 68;    ///< 52 ranks and 16 marks
inline constexpr std::size_t kDgeRecord = 128;  ///< zero bytes fill the rest

enum class DgeMode { kWholeRecord = 0, kBreLine = 1, kDupPart = 2 };

/// Gives the cards of `record` to the hands of `board`; only a whole record must have all of them.
/// An error text of `texts` whose record number is still to be filled, or empty.
[[nodiscard]] std::string ParseDgeRecord(std::string_view record, Board& board, DgeMode mode,
                                         const Messages& texts);

/// The hands from North to West, each with its four marks: 68 bytes for a complete board.
[[nodiscard]] std::string FormatDgeHands(const Board& board);

/// The set, whose boards are complete, as the bytes of a DGE file.
[[nodiscard]] std::string DgeBytes(const BoardSet& set);

}  // namespace morvane::files
