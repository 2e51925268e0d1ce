#pragma once

#include "machine/machine_link.h"
#include "program/program.h"

namespace morvane::machine {

/// Opens the device unless the link is open already, whose time-outs then stay. Shows its own error
/// boxes and tries again until the link is open or the operator gives up. Whether it is open; an
/// empty bus that the library reports as success leaves it closed without a word.
bool OpenLink(Program& program, MachineLink& link, std::int16_t timeoutMs);

}  // namespace morvane::machine
