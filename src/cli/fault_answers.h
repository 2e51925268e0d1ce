#pragma once

#include <functional>
#include <string>
#include <utility>

#include "machine/error_dialog.h"
#include "platform/console/terminal.h"
#include "platform/event_loop.h"

namespace morvane::cli {

/// Has the faults of a run answered on the terminal. With `yes` Continue is pressed where it is
/// offered; that, or with nobody to ask, Cancel otherwise. A wrong board is cancelled by both.
class FaultAnswers {
 public:
  /// `leaving`: somebody wants to leave the run, which cancels.
  FaultAnswers(EventLoop& loop, Terminal& terminal, std::function<bool()> leaving, bool yes)
      : loop_(loop), terminal_(terminal), leaving_(std::move(leaving)), yes_(yes) {}

  /// Shows the dialog and returns when it has been answered, by the pedal too.
  void Take(machine::ErrorDialog& dialog);

 private:
  void Ask(machine::ErrorDialog& dialog);
  void TakeLine(machine::ErrorDialog& dialog, const std::string& prompt);

  EventLoop& loop_;
  Terminal& terminal_;
  std::function<bool()> leaving_;
  bool yes_;
};

}  // namespace morvane::cli
