#pragma once

#include <string>
#include <string_view>

#include "cli/command.h"

namespace morvane::cli {

/// What the exit statuses say.
inline constexpr std::string_view kExitStatusText =
    "The exit status is 0 when it is done, 1 when it was refused or failed, 2 for wrong usage, and "
    "3 when it is done, but not wholly: the log or the history was not written, an import passed "
    "boards over, cards read were not recognised, a service file is damaged, a trace was not "
    "written or not played to its end.";

/// What `--help` shows: every command with what it takes.
[[nodiscard]] std::string UsagePage();

/// What `help` shows of one command: each of its operands and options has a line.
[[nodiscard]] std::string CommandHelp(const Command& command);

}  // namespace morvane::cli
