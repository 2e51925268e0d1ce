#pragma once

#include <string>

#include "cli/console_run.h"
#include "cli/deal_options.h"
#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

[[nodiscard]] DealOptions ReadDealOptions(OptionReader& given);

/// Deals the boards of a file. Done only when all that were asked for lie right.
ExitStatus Deal(Job& job, const DealOptions& options);

extern const Command kDealCommand;

/// What can be seen and done at the machine: at the simulated one everything, elsewhere nothing.
[[nodiscard]] MachineSide EyesOn(simulator::SimulatedMachine* simulated);

/// The four pockets against the board: "N right  E right  S right  W right", with "WRONG" for a
/// pocket that holds other cards than the board's hand.
[[nodiscard]] Verdict VerdictOfPockets(const Board& board, const Board& pockets);

}  // namespace morvane::cli
