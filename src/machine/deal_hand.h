#pragma once

#include <cstdint>

#include "machine/run_parts.h"

namespace morvane::machine {

enum class BoardEnd {
  kDealt,       ///< no fault stands, and the machine's card log has every card of the board
  kIncomplete,  ///< no fault stands, but cards are missing from the log; nobody has been told yet
  kStopped,     ///< by a fault that was not continued
  kGivenUp,     ///< nobody waits for the machine any more
  kLinkLost,    ///< nobody has been told yet
};

/// Deals the current board, from its first frame to the end of its log line, in the order of things
/// on the wire. `rotation` is 0..3. The machine is idle again unless the run was given up or the
/// link was lost; who walks on, writes the line and tells of the end is the caller.
BoardEnd DealHand(RunParts& run, std::uint8_t rotation);

}  // namespace morvane::machine
