#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "machine/error_dialog.h"
#include "platform/console/terminal.h"
#include "platform/event_loop.h"

namespace morvane::cli {

/// Has the faults of a run answered on the terminal. `kYes` presses Continue where it is offered,
/// `kNo` never; that, or with nobody to ask, Cancel otherwise. A wrong board is cancelled by all.
class FaultAnswers {
 public:
  enum class By : std::uint8_t { kOperator, kYes, kNo };

  /// `leaving`: somebody wants to leave the run, which cancels.
  FaultAnswers(EventLoop& loop, Terminal& terminal, std::function<bool()> leaving, By who)
      : loop_(loop), terminal_(terminal), leaving_(std::move(leaving)), who_(who) {}

  /// Shows the dialog and returns when it has been answered, by the pedal too.
  void Take(machine::ErrorDialog& dialog);

 private:
  void Ask(machine::ErrorDialog& dialog);
  void TakeLine(machine::ErrorDialog& dialog, const std::string& prompt);

  EventLoop& loop_;
  Terminal& terminal_;
  std::function<bool()> leaving_;
  By who_;
};

}  // namespace morvane::cli
