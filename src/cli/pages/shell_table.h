#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/pages/completion_tables.h"

namespace morvane::pages {

/// The tables as functions `_PROGRAM__<name>` that print the lines of a key and fail without an
/// entry, as bash and zsh have them.
[[nodiscard]] std::string CaseFunctions(std::span<const Lookup> tables);

/// The same in fish.
[[nodiscard]] std::string SwitchFunctions(std::span<const Lookup> tables);

}  // namespace morvane::pages
