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
        Run(program.Loop, program.Time, machine, [this] { View->ShowState(); }) {}
  RunParts(const RunParts&) = delete;
  RunParts& operator=(const RunParts&) = delete;

  Program& Prog;
  Machine& TheMachine;
  RunView* View = nullptr;  ///< from the window's opening on
  RunWindowState Window;
  RunOptions Options;
  BoardWalk Walk;
  CardRun Run;
};

// What reading, dealing and sorting share.

/// Byte 2 to 6 of a start frame; `rotation` is 0..3.
[[nodiscard]] wire::RunSettings StartSettings(const RunParts& run, std::uint8_t rotation);

/// A `Plan::AnswerFault`: shows what has been dealt and asks, unless the window is being left.
[[nodiscard]] DialogAnswer AnswerFault(RunParts& run);

/// Runs `plan` and brings the machine back to idle, after a good run too.
CardRun::End RunToIdle(RunParts& run, const CardRun::Plan& plan);

}  // namespace morvane::machine
