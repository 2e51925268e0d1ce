#pragma once

#include <span>
#include <string_view>

#include "cli/command.h"

namespace morvane::cli {

/// All commands, in the order of the usage page.
[[nodiscard]] std::span<const Command* const> Commands();

/// The command of that name; null when there is none.
[[nodiscard]] const Command* FindCommand(std::string_view name);

/// What is said where there is none.
[[nodiscard]] std::string UnknownCommand(std::string_view name);

/// The options that every command takes, without `--help`.
[[nodiscard]] std::span<const Option> CommonOptions();

}  // namespace morvane::cli
