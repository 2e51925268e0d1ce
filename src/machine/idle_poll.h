#pragma once

#include "machine/machine.h"

namespace morvane::machine {

enum class IdlePoll {
  kNothing,   ///< nobody wants to start, or a procedure owns the link and nothing was asked
  kStart,     ///< the pedal, or a board that has been inserted
  kLinkLost,  ///< the link stays locked
};

/// The poll between two runs. An inserted board counts with `autoStart` only, and only when the
/// slot has been quiet for ten polls: one that is pulled and pushed back at once starts nothing.
[[nodiscard]] IdlePoll PollBetweenRuns(Machine& machine, bool autoStart);

}  // namespace morvane::machine
