#pragma once

#include "cli/run_request.h"
#include "cli/workplace.h"

namespace morvane::cli {

/// What can be seen and done at the machine: at the simulated one everything, elsewhere nothing.
[[nodiscard]] MachineSide EyesOn(simulator::SimulatedMachine* simulated);

/// The four pockets against the board: "N right  E right  S right  W right", with "WRONG" for a
/// pocket that holds other cards than the board's hand.
[[nodiscard]] Verdict VerdictOfPockets(const Board& board, const Board& pockets);

/// Whether somebody is there to start what runs on the machine; the operator has been told if not.
[[nodiscard]] bool CanBeStarted(Workplace& place, const RunRequest& request);

/// "Machine: simulated" and the line's end; empty for a real one.
[[nodiscard]] std::string MachineLine(const Workplace& place);
/// Says it where it is not empty.
void SayWhichMachine(Workplace& place);

}  // namespace morvane::cli
