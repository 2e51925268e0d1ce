#pragma once

#include "machine/board_walk.h"
#include "machine/card_run.h"
#include "machine/run_controls.h"
#include "machine/run_options.h"
#include "machine/run_view.h"

namespace morvane::machine {

/// What a run window is made of, for the procedures that run in it.
struct RunParts {
  RunParts(Program& program, Machine& machine, RunMemory& memory)
      : Prog(program),
        TheMachine(machine),
        Options(program, machine),
        Walk(program.Set, memory),
        Cards(program.Loop, program.Time, machine, [this] { View->ShowState(); }) {}
  RunParts(const RunParts&) = delete;
  RunParts& operator=(const RunParts&) = delete;

  Program& Prog;
  Machine& TheMachine;
  RunView* View = nullptr;  ///< from the window's opening on
  RunWindowState Window;
  RunOptions Options;
  BoardWalk Walk;
  CardRun Cards;
};

/// Shows the error dialog, about `MachineError` or the wrong board; `standing` is the answer until
/// one is given.
[[nodiscard]] DialogAnswer AskAboutError(RunParts& run, DialogAnswer standing,
                                         const std::optional<WrongBoard>& wrongBoard = {});

}  // namespace morvane::machine
