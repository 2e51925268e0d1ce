#pragma once

#include <string>
#include <string_view>

#include "files/bri_records.h"
#include "files/dge_records.h"
#include "files/format_table.h"

namespace morvane::files {

// The records of DUP: each board twice, and the numbers of the whole set.

inline constexpr std::size_t kDupRecord = 156;

/// Gives the cards to the hands of `board`, and the numbers of the set to those of `numbers` that
/// are 0. The record need not have all its bytes. An error text of `texts` whose record number is
/// still to be filled, or empty.
[[nodiscard]] std::string ParseDupRecord(std::string_view record, Board& board,
                                         FileNumbers& numbers, const Messages& texts);

/// The set, whose boards are complete, as the bytes of a DUP file.
[[nodiscard]] std::string DupBytes(const BoardSet& set);

}  // namespace morvane::files
