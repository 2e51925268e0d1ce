#pragma once

#include <functional>

#include "machine/run_parts.h"
#include "poker/pile_plan.h"

namespace morvane::poker {

/// `PokerRun`: one run of `cardCount` cards by `plan`, whose card log is in `run.Run` afterwards. A
/// fault is answered with `answer`; what is not continued is cancelled, and the machine idle again.
[[nodiscard]] machine::RunEnd PokerRun(machine::RunParts& run, const PilePlan& plan, int cardCount,
                                       const std::function<machine::DialogAnswer()>& answer);

}  // namespace morvane::poker
