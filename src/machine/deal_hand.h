#pragma once

#include <cstdint>

#include "machine/run_parts.h"

namespace morvane::machine {

/// Deals the current board. It is done only when the machine's card log has every card of it.
RunEnd DealHand(RunParts& run, std::uint8_t rotation);

}  // namespace morvane::machine
