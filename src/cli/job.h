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
  bool KeepsHistory = true;    ///< otherwise what is loaded and saved stays out of it
  bool Partly = false;         ///< something was left out
  history::History Nowhere{};  ///< in place of the history

  [[nodiscard]] history::History& Played() { return KeepsHistory ? Shell.History() : Nowhere; }
};

/// Does `work` between start-up and exit, as the desktop would; `raw` is the command line for the
/// log. Messages have been shown. `kPartly` when it was done but something was left out, or the log
/// or the history was not written.
ExitStatus RunJob(Workplace& place, const std::string& raw,
                  const std::function<ExitStatus(Job& job)>& work);

/// An option of each command that reads a set.
inline constexpr Option kImportOption{"import", "",
                                      "take PBN as other programs write it, and report"};

/// The Load command, or Import, with `path` in place of its dialog. False: the operator has been
/// told, also whether Import would take what Load has refused.
[[nodiscard]] bool Load(Job& job, const std::string& path, bool import);

/// The Save command with `path` in place of its dialog. False: the operator has been told.
[[nodiscard]] bool Save(Job& job, const std::string& path);

/// Everything that can be asked before a save, of a set that is still to be made; what has got its
/// Yes here is not asked again by `Save`. False: the operator has been told.
[[nodiscard]] bool MaySave(Job& job, const BoardSet& coming, const std::string& path);

/// Whether board `number` belongs to the set; the operator has been told if not.
[[nodiscard]] bool IsInSet(Workplace& place, int number);

}  // namespace morvane::cli
