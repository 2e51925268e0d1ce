#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "generate/random_pool.h"
#include "platform/instance.h"
#include "program/program.h"

// The steps of a start. `Shell::StartUp` puts them in their order.

namespace morvane::shell {

/// What stands in the raw command line: the text between its first two double quotes. A path that
/// ends in "adc" in any case is a firmware file, any other a board file; without a pair of quotes
/// there is neither.
struct StartFiles {
  std::string StartFile;
  std::string FirmwareFile;
};
[[nodiscard]] StartFiles ParseCommandLine(std::string_view commandLine);

/// The link command that asks for the file `path`, by the same ending.
[[nodiscard]] std::string LinkCommandFor(std::string path);

/// The version as logs and files have it: "1.0 with Sort 1.0  with Poker 1.5 ".
[[nodiscard]] std::string VersionTextOf(int serviceLevel);

/// How a start has ended.
enum class StartOutcome {
  kGoesOn,      ///< this is the running program
  kHandedOver,  ///< the running program has taken the file; nothing was done or shown here
  kRefused,     ///< another one runs, and the operator has been told
};

/// Makes this the running program, which hears link commands from then on, or hands `files` to the
/// one that runs.
[[nodiscard]] StartOutcome BecomeTheRunningOne(
    Program& program, Instance& instance, const StartFiles& files,
    const std::function<void(std::string_view command)>& listener);

/// A log that cannot be opened is told, and the program goes on without one.
void OpenLog(Program& program);
/// The start's lines in the log.
void LogStart(Program& program, const generate::RandomPool& pool, const std::string& commandLine);

}  // namespace morvane::shell
