#pragma once

#include <string>

#include "cli/command.h"

namespace morvane::cli {

/// What `--help` shows: every command with what it takes.
[[nodiscard]] std::string UsagePage();

/// What `help` shows of one command: each of its operands and options has a line.
[[nodiscard]] std::string CommandHelp(const Command& command);

}  // namespace morvane::cli
