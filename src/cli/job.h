#pragma once

#include <string>

#include "cli/command.h"
#include "cli/console_windows.h"
#include "cli/workplace.h"
#include "shell/shell.h"

namespace morvane::cli {

/// One command at work: start-up is behind it, exit comes when it returns.
struct Job {
  Workplace& Place;
  ConsoleWindows& Windows;
  shell::Shell& Shell;
};

/// Does `work` between start-up and exit, as the desktop would; `raw` is the command line for the
/// log. Messages have been shown.
ExitStatus RunJob(Workplace& place, const std::string& raw,
                  const std::function<ExitStatus(Job& job)>& work);

/// The Load command with `path` in place of its dialog. False: the operator has been told.
[[nodiscard]] bool Load(Job& job, const std::string& path);

/// The Save command with `path` in place of its dialog. False: the operator has been told.
[[nodiscard]] bool Save(Job& job, const std::string& path);

/// Whether board `number` belongs to the set; the operator has been told if not.
[[nodiscard]] bool IsInSet(Workplace& place, int number);

}  // namespace morvane::cli
