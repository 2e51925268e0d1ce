#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "files/failure_reports.h"
#include "files/format_table.h"
#include "model/board_set.h"
#include "model/messages.h"

namespace morvane::files {

// What the formats of fixed record length share: one record is one board, in file order.

/// Reads the records of the format `formatName` ("BRI", "DGE", "DUP" or "DEAL305") into boards 1,
/// 2, 3 ... of `set`, which must be clear. After a fault the set holds what came before it.
[[nodiscard]] std::optional<FormatFault> ParseFixedRecords(std::string_view bytes,
                                                           std::string_view formatName,
                                                           BoardSet& set, FileNumbers& numbers,
                                                           const Messages& texts);

}  // namespace morvane::files
