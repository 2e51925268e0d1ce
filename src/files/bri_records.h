#pragma once

#include <string>
#include <string_view>

#include "model/board_set.h"
#include "model/messages.h"

namespace morvane::files {

// Three hands as card numbers: the records of BRI, and the first part of a DUP record.

inline constexpr std::size_t kBriHands = 78;    ///< North, East, South: 13 pairs of digits each
inline constexpr std::size_t kBriRecord = 128;  ///< zero bytes fill the rest

enum class BriMode { kWholeRecord = 0, kDupPart = 1 };

/// Gives the cards of `record` to the hands of `board`; those that it does not name are West's. An
/// error text of `texts` whose record number is still to be filled, or empty.
[[nodiscard]] std::string ParseBriRecord(std::string_view record, Board& board, BriMode mode,
                                         const Messages& texts);

/// The first three hands of a complete board, 78 bytes.
[[nodiscard]] std::string FormatBriHands(const Board& board);

/// The set, whose boards are complete, as the bytes of a BRI file.
[[nodiscard]] std::string BriBytes(const BoardSet& set);

}  // namespace morvane::files
