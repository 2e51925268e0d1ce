#pragma once

#include <cstdint>

#include "machine/run_parts.h"

namespace morvane::machine {

/// One sort, as `DealHand`: the PC starts and watches it.
RunEnd SortHands(RunParts& run, std::uint8_t rotation);

}  // namespace morvane::machine
