#pragma once

#include <cstdint>

#include "machine/run_parts.h"

namespace morvane::machine {

/// Deals the current board, from its first frame to the end of its log line, in the order of things
/// on the wire. `rotation` is 0..3. The machine is idle again when the run has `kStopped`; who
/// walks on, writes the line and tells of a lost link is the caller.
CardRun::End DealHand(RunParts& run, std::uint8_t rotation);

}  // namespace morvane::machine
