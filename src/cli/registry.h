#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/command.h"

namespace morvane::cli {

/// All commands, in the order of the usage page.
[[nodiscard]] std::span<const Command* const> Commands();

/// The command of that name; null when there is none.
[[nodiscard]] const Command* FindCommand(std::string_view name);

/// The command that the first word calls, or the first two; null when there is none.
[[nodiscard]] const Command* CommandOf(std::span<const std::string> words);

/// How many words its name has, one or two.
[[nodiscard]] std::size_t WordsOfName(const Command& command);

/// What is said where the words, of which there is one at least, call none. Of a first word that
/// needs a second it tells which there are.
[[nodiscard]] std::string UnknownCommand(std::span<const std::string> words);

/// The options that every command takes, without `--help`.
[[nodiscard]] std::span<const Option> CommonOptions();

}  // namespace morvane::cli
