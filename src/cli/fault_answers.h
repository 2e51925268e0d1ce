#pragma once

#include <string>

#include "machine/machine_run.h"
#include "platform/console/terminal.h"
#include "platform/event_loop.h"

namespace morvane::cli {

/// Has the faults of a run answered on the terminal. With `yes` Continue is pressed where it is
/// offered; that, or with nobody to ask, Cancel otherwise. A wrong board is cancelled by both.
class FaultAnswers {
 public:
  FaultAnswers(EventLoop& loop, Terminal& terminal, const machine::MachineRun& run, bool yes)
      : loop_(loop), terminal_(terminal), run_(run), yes_(yes) {}

  /// Shows the dialog and returns when it has been answered, by the pedal too.
  void Take(machine::ErrorDialog& dialog);

 private:
  void Ask(machine::ErrorDialog& dialog);
  void TakeLine(machine::ErrorDialog& dialog, const std::string& prompt);

  EventLoop& loop_;
  Terminal& terminal_;
  const machine::MachineRun& run_;
  bool yes_;
};

}  // namespace morvane::cli
