#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "files/failure_reports.h"
#include "files/format_table.h"
#include "model/board_set.h"
#include "model/messages.h"

namespace morvane::files {

// CSV: a line of 18 quoted fields for each board. The first 17 are read, the suits of each hand
// from North on and the board number; dealer and vulnerability follow from the number.

/// Puts the cards and the number of `line` into `board`; a number above 640 becomes 641. Neither 13
/// cards a hand nor an end behind the number are asked for. A text of `texts` whose line is still
/// to be filled, or empty for success.
[[nodiscard]] std::string ParseCsvLine(std::string_view line, Board& board, const Messages& texts);

/// Reads UTF-8 `text` into `set`, which must be clear; its first board stays 1. After a fault the
/// set holds what came before it.
[[nodiscard]] std::optional<FormatFault> ParseCsv(std::string_view text, BoardSet& set,
                                                  const Messages& texts);

/// The set as the text of a CSV file, which is ASCII.
[[nodiscard]] std::string CsvText(const BoardSet& set);

}  // namespace morvane::files
