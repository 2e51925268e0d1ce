#pragma once

#include <string>

#include "bridges/machine_choice.h"
#include "support/virtual_time.h"

namespace morvane::bridges {

/// What --machine `text` chooses.
inline MachineChoice Chosen(const std::string& text) {
  test::VirtualClock clock;
  return ChooseMachine({text}, clock);
}

}  // namespace morvane::bridges
