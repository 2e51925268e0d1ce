#pragma once

#include <string>

#include "cli/job.h"
#include "poker/poker_order.h"

namespace morvane::cli {

// What the poker commands do with the files of orders; no history knows of them.

/// The order of the file `path`. False: the operator has been told.
[[nodiscard]] bool LoadOrder(Job& job, const std::string& path, poker::PokerOrder& order);

/// Saves the order in the file `path`. False: the operator has been told.
[[nodiscard]] bool SaveOrder(Job& job, const std::string& path, poker::PokerOrder& order);

/// Whether the order that is still to be read may be saved in the file `path`, which is not asked
/// again by `SaveOrder` then. False: the operator has been told.
[[nodiscard]] bool MaySaveOrder(Job& job, const std::string& path);

/// How many deals an order has where nothing is said.
inline constexpr int kUsualDeals = 10;
/// Whether an order can have so many; the operator has been told if not.
[[nodiscard]] bool TakesDeals(Workplace& place, int deals);

/// Whether the order has a deal `number`; the operator has been told if not.
[[nodiscard]] bool IsInOrder(Workplace& place, const poker::PokerOrder& order, int number);

}  // namespace morvane::cli
