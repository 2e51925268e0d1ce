#pragma once

#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// A command line whose options have been told from its other words.
struct CommandWords {
  std::string Raw;                 ///< as it was given, for the log
  std::vector<std::string> Words;  ///< the command and its operands
  std::vector<GivenOption> Options;
};

/// What a command line asks for.
struct Request {
  const Command* Asked = nullptr;
  Task What;
  std::string Error;  ///< not empty: wrong usage, and why; there is no task
};

/// Finds the command and has it take its options. Nothing has been touched yet.
[[nodiscard]] Request TakeRequest(const CommandWords& given);

}  // namespace morvane::cli
