#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "files/failure_reports.h"
#include "files/format_table.h"
#include "model/board_set.h"
#include "model/messages.h"

namespace morvane::files {

/// The tags that the reader knows. `kVul` is the tag `Vulnerable`, `kDouble` `DoubleDummyTricks`.
enum class PbnTag { kEvent, kSite, kDate, kBoard, kDealer, kVul, kDeal, kDouble };

/// How far the reading of a file has come.
struct PbnReading {
  enum class Stage { kStart, kBoard, kDeal };  ///< before a board, in it, behind its deal

  BoardSet& Set;
  const Messages& Texts;
  int BoardNumber = 0;  ///< of the last `Board` tag, 0 before the first
  Stage State = Stage::kStart;
};

/// Puts one tag's value into the set. An error text whose line is still to be filled, or empty.
[[nodiscard]] std::string ApplyPbnTag(PbnReading& reading, PbnTag tag, std::string_view value);

/// Reads UTF-8 `text` into `set`, which must be clear. After a fault the set holds what came before
/// it.
[[nodiscard]] std::optional<FormatFault> ParsePbn(std::string_view text, BoardSet& set,
                                                  const Messages& texts);

}  // namespace morvane::files
