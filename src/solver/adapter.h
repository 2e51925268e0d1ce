#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/settings.h"
#include "solver/dds_table.h"

namespace morvane::solver {

/// The solver's side of the mailbox: works out the board of `tokens` by `calc`, which runs in a
/// thread of its own, and leaves result, version and code in `store`. A break that is asked for is
/// answered within `kLookMs`; `calc` may be at work then yet. The exit status: 0, or 1 when the
/// store could not be written.
[[nodiscard]] int Answer(Settings& store, const std::vector<std::string>& tokens,
                         const std::string& version,
                         const std::function<Table(const Board&)>& calc);
inline constexpr int kLookMs = 50;

}  // namespace morvane::solver
