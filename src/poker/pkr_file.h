#pragma once

#include <string>

#include "poker/poker_order.h"

namespace morvane::poker {

/// Reads the bytes of a `.pkr` file into the texts and deals of `order`; its `PokerDealCount` is
/// then that of the file. False is a format error: the count stays, and so do the texts and deals
/// that stood before it in the file.
[[nodiscard]] bool ReadPokerFile(std::string bytes, PokerOrder& order);

/// The bytes of the file that holds `order`.
[[nodiscard]] std::string PokerFileBytes(const PokerOrder& order);

}  // namespace morvane::poker
