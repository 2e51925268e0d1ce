#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "files/failure_reports.h"
#include "files/format_table.h"
#include "model/board_set.h"
#include "model/messages.h"

namespace morvane::files {

// BRE: three lines of event texts, then a line of DGE hands for each board, complete or not.

/// Reads a file into boards 1, 2, 3 ... of `set`, which must be clear. After a fault the set holds
/// what came before it.
[[nodiscard]] std::optional<FormatFault> ParseBre(std::string_view bytes, BoardSet& set,
                                                  const Messages& texts);

/// The set as the bytes of a BRE file.
[[nodiscard]] std::string BreBytes(const BoardSet& set);

}  // namespace morvane::files
