#pragma once

#include <functional>

#include "platform/canvas.h"
#include "poker/poker_order.h"

namespace morvane::poker {

/// Draws the list of all deals of `order` on as many pages as it takes, on small paper in
/// proportion. `dealDone` is called behind each deal and says whether to go on; false when it or
/// the canvas has ended it.
bool DrawPokerList(Canvas& page, const PokerOrder& order, const std::function<bool()>& dealDone);

}  // namespace morvane::poker
