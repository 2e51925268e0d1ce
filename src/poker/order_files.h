#pragma once

#include <string>

#include "poker/poker_order.h"

namespace morvane {
class Program;
}

namespace morvane::poker {

/// The order of a file that is asked for, in place of `order`, which its owner has given up. False:
/// the dialog was cancelled, or the operator has been told of a failure; of a file that is none the
/// deals before the fault stay.
bool LoadPokerOrder(Program& program, PokerOrder& order);

/// Saves `order` in a file that is asked for. False: it was cancelled or a file is kept, or the
/// operator has been told of a failure; whatever stood in the file stands there still.
bool SavePokerOrder(Program& program, PokerOrder& order);

/// ".PKR" added to a name without an extension.
[[nodiscard]] std::string NamedPkr(const std::string& path);

}  // namespace morvane::poker
