#pragma once

#include <string>
#include <string_view>

#include "files/bri_records.h"
#include "files/dge_records.h"
#include "files/format_table.h"

namespace morvane::files {

// The records of DUP: each board twice, and the numbers of the whole set.

/// Where a field of the record stands, and its bytes.
struct DupField {
  std::size_t Offset;
  std::size_t Size;
};
inline constexpr DupField kDupBri{0, kBriHands};
inline constexpr DupField kDupDge{78, kDgeHands};
inline constexpr DupField kDupFirst{148, 3};
inline constexpr DupField kDupLast{153, 3};
inline constexpr std::size_t kDupRecord = 156;
inline constexpr std::string_view kDupBeforeFirst = "YN";  ///< not read
inline constexpr std::string_view kDupBeforeLast = "1 ";   ///< not read

/// Gives the cards to the hands of `board`, and the numbers of the set to those of `numbers` that
/// are 0. The record need not have all its bytes. An error text of `texts` whose record number is
/// still to be filled, or empty.
[[nodiscard]] std::string ParseDupRecord(std::string_view record, Board& board,
                                         FileNumbers& numbers, const Messages& texts);

/// The set, whose boards are complete, as the bytes of a DUP file.
[[nodiscard]] std::string DupBytes(const BoardSet& set);

bool WriteDupFile(Program& program, const Format& format, const std::string& path,
                  const std::string& incompleteBoards);

}  // namespace morvane::files
