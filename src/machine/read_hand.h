#pragma once

#include <cstdint>

#include "machine/run_parts.h"

namespace morvane::machine {

/// Reads a pack into the current board. What the machine has read stands in it, however that ends;
/// cards that were not recognised belong to nobody.
RunEnd ReadHand(RunParts& run, std::uint8_t rotation);

}  // namespace morvane::machine
