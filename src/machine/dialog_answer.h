#pragma once

#include <cstdint>

namespace morvane::machine {

/// The operator's answer to a fault.
enum DialogAnswer : std::uint8_t {
  kStop = 0,
  kGoOn = 1,        ///< continue the board, or check the inserted board again
  kDealAnyway = 2,  ///< deal to the current board, whatever is in the slot
};

}  // namespace morvane::machine
