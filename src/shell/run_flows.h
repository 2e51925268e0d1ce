#pragma once

#include <functional>

#include "history/history.h"
#include "machine/board_walk.h"
#include "machine/machine.h"
#include "program/program.h"
#include "shell/flow_windows.h"

namespace morvane::shell {

/// `menuDeal`: a run over the set, from opening the link until the run window has gone.
void DealFlow(Program& program, machine::Machine& machine, machine::RunMemory& memory,
              machine::RunDialogs& dialogs);

/// `menuRead`: the same the other way round, from packs into the set. `keep` as in `ReadingRun`.
void ReadFlow(Program& program, machine::Machine& machine, machine::RunMemory& memory,
              history::History& history, FlowWindows& windows, const std::function<bool()>& keep);

/// `menuSort`: needs no set.
void SortFlow(Program& program, machine::Machine& machine, machine::RunMemory& memory,
              machine::RunDialogs& dialogs);

/// `menuPoker`: the window of an order of its own; the set is not touched.
void PokerFlow(Program& program, machine::Machine& machine, machine::RunMemory& memory,
               poker::PokerDialog& dialogs);

}  // namespace morvane::shell
