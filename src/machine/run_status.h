#pragma once

#include <cstdint>
#include <string_view>

#include "machine/dealing_run.h"

namespace morvane::machine {

/// How a run stands, as its window tells in words beside the machine's state.
struct RunStatus {
  std::int32_t MachineState = Machine::kNotConnected;
  bool LinkLost = false;
  bool MachineKnown = false;  ///< the first contact has been made
  bool Running = false;       ///< a board is under way
  bool Leaving = false;
  /// Of that board, or of the last one; none until it has ended.
  DealingRun::Outcome LastOutcome = DealingRun::Outcome::kNone;
};
[[nodiscard]] RunStatus StatusOf(const DealingRun& run);

/// The line beside `StatusText(now.MachineState)`; both are true at the same time.
[[nodiscard]] std::string_view StatusLine(const RunStatus& now);

}  // namespace morvane::machine
