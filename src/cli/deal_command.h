#pragma once

#include <string>

#include "cli/commands.h"

namespace morvane::cli {

/// What can be seen of the pockets: of the simulated machine everything, of any other nothing.
[[nodiscard]] PocketJudge JudgeOf(const simulator::SimulatedMachine* simulated);

/// The closing table. Done only when every board was dealt, and lies right as far as can be seen.
ExitStatus ShowReport(Workplace& place, const RunReport& report);

/// The four pockets against the board: "N right  E right  S right  W right", with "WRONG" for a
/// pocket that holds other cards than the board's hand.
[[nodiscard]] std::string VerdictOfPockets(const Board& board, const Board& pockets);

}  // namespace morvane::cli
