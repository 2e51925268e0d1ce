#pragma once

#include <memory>
#include <vector>

#include "cli/commands.h"

namespace morvane::cli {

/// What a run left behind; its window is gone by then.
struct RunReport {
  std::vector<DealtBoard> Boards;
  bool Finished = false;  ///< every board that was asked for has been dealt
};

/// The run window on the terminal; when it goes it leaves `report`.
[[nodiscard]] std::unique_ptr<machine::RunView> OpenConsoleRun(Workplace& place,
                                                               const Request& request,
                                                               machine::DealingRun& run,
                                                               RunReport& report);

/// The closing table. Done only when every board was dealt and lies right as far as can be seen.
ExitStatus ShowReport(Workplace& place, const RunReport& report);

/// Whether the pockets hold the board: "N right  E right  S right  W right", or the first card that
/// does not lie where it belongs.
[[nodiscard]] std::string VerdictOfPockets(const Board& board, const Board& pockets);

}  // namespace morvane::cli
