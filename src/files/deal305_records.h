#pragma once

#include <string>
#include <string_view>

#include "model/board_set.h"
#include "model/messages.h"

namespace morvane::files {

// The records of DEAL305 (.all): the holder of each card in card order, "0" North to "3" West.

inline constexpr std::size_t kDeal305Record = 54;  ///< 52 holders and a line end, which is not read

/// Gives the cards to the hands of `board`; 13 for each are not asked for. An error text of `texts`
/// whose record number is still to be filled, or empty.
[[nodiscard]] std::string ParseDeal305Record(std::string_view record, Board& board,
                                             const Messages& texts);

/// The set, whose boards are complete, as the bytes of a DEAL305 file.
[[nodiscard]] std::string Deal305Bytes(const BoardSet& set);

}  // namespace morvane::files
