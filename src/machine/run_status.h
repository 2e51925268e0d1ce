#pragma once

#include <cstdint>
#include <string_view>

#include "machine/machine_run.h"

namespace morvane::machine {

/// How a run stands, as its window tells in words beside the machine's state.
struct RunStatus {
  RunKind Kind = RunKind::kDeal;
  std::int32_t MachineState = Machine::kNotConnected;
  bool LinkLost = false;
  bool MachineKnown = false;  ///< the first contact has been made
  bool Running = false;       ///< cards are under way
  bool Leaving = false;
  /// Of that run, or of the last one; none until it has ended.
  MachineRun::Outcome LastOutcome = MachineRun::Outcome::kNone;
};
[[nodiscard]] RunStatus StatusOf(const MachineRun& run);

/// The line beside `StatusText(now.MachineState)`; both are true at the same time.
[[nodiscard]] std::string StatusLine(const RunStatus& now);

}  // namespace morvane::machine
