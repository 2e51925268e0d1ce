#pragma once

#include <span>
#include <vector>

#include "cli/command.h"
#include "cli/pages/document.h"

namespace morvane::pages {

/// The manual of the three programs, with a page for each command of `morvane-cli`.
[[nodiscard]] std::vector<Page> Manual();

[[nodiscard]] Page PageOf(const cli::Command& command);

/// The commands for the guide: a section for each, then what all of them take.
[[nodiscard]] std::vector<Section> CommandReference();

}  // namespace morvane::pages
