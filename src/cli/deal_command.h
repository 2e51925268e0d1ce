#pragma once

#include <string>

#include "cli/console_run.h"
#include "cli/workplace.h"

namespace morvane::cli {

/// What can be seen and done at the machine: at the simulated one everything, elsewhere nothing.
[[nodiscard]] MachineSide EyesOn(simulator::SimulatedMachine* simulated);

/// Whether board `number` belongs to the set; the operator has been told if not.
[[nodiscard]] bool IsInSet(Workplace& place, int number);

/// Whether the boards asked for are there and somebody can start them; the operator has been told
/// if not.
[[nodiscard]] bool MayDeal(Workplace& place, const Request& request);

/// How many boards `request` asks for, every copy counted.
[[nodiscard]] int BoardsAsked(const BoardSet& set, const Request& request);

/// The closing table. Done only when all `asked` boards were dealt and lie right as far as can be
/// seen.
ExitStatus ShowReport(Workplace& place, const RunReport& report, int asked);

/// The four pockets against the board: "N right  E right  S right  W right", with "WRONG" for a
/// pocket that holds other cards than the board's hand.
[[nodiscard]] Verdict VerdictOfPockets(const Board& board, const Board& pockets);

}  // namespace morvane::cli
