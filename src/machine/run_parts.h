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

/// How one run of cards ended.
enum class RunEnd {
  kDone,        ///< no fault stands, and all cards came through as far as the machine can tell
  kIncomplete,  ///< no fault stands, but cards are missing; nobody has been told yet
  kStopped,     ///< by a fault that was not continued
  kGivenUp,     ///< nobody waits for the machine any more
  kLinkLost,    ///< nobody has been told yet
};

// What reading, dealing and sorting share.

/// Byte 2 to 6 of a start frame; `rotation` is 0..3.
[[nodiscard]] wire::RunSettings StartSettings(const RunParts& run, std::uint8_t rotation);

/// While cards run nothing but the break can be used.
void ShowBreakOnly(RunParts& run);

/// The current board, and the card at which the machine stopped by those that are in its log.
[[nodiscard]] Fault PlaceOfStop(const RunParts& run);

/// A `Plan::AnswerFault`: shows what has come and asks, unless the window is being left.
[[nodiscard]] DialogAnswer AnswerFault(RunParts& run, const Fault& fault);

/// Takes the link, logs the settings of the cards, runs `plan` and brings the machine back to idle,
/// after a good run too.
RunEnd RunToIdle(RunParts& run, const CardRun::Plan& plan);

}  // namespace morvane::machine
