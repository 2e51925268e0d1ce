#pragma once

#include <string>

#include "cli/run_request.h"

namespace morvane::cli {

/// A line of a run's closing table: the board with its copy, its time, and what became of it.
[[nodiscard]] std::string RowOf(const RunBoard& board, const std::string& verdict);

}  // namespace morvane::cli
