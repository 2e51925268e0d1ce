#pragma once

#include "machine/run_parts.h"

namespace morvane::machine {

enum class BoardCheck { kDeal, kStop, kLinkLost };

/// Reads the label of the board in the slot until it is the current board's or the operator has
/// said what is to be done. What he said stands in the run's log line.
[[nodiscard]] BoardCheck VerifyInsertedBoard(RunParts& run);

}  // namespace morvane::machine
