#pragma once

#include "machine/machine.h"
#include "program/log.h"

namespace morvane::machine {

enum class Contact {
  kMade,
  kNoVersion,  ///< a machine that is silent here has no power
  kLinkLost,   ///< any later silence is a lost link
};

/// Asks the machine what it is and writes its "S/N" line, and another for a simulated one.
[[nodiscard]] Contact AskMachine(Machine& machine, Log& log);

}  // namespace morvane::machine
