#pragma once

#include "machine/board_walk.h"
#include "machine/machine.h"
#include "machine/run_dialogs.h"
#include "program/program.h"

namespace morvane::shell {

/// `menuDeal`: a run over the set, from opening the link until the run window has gone.
void DealFlow(Program& program, machine::Machine& machine, machine::RunMemory& memory,
              machine::RunDialogs& dialogs);

}  // namespace morvane::shell
