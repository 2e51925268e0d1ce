#pragma once

#include <array>
#include <string_view>

#include "poker/poker_order.h"

namespace morvane::poker {

inline constexpr int kPlayers = 6;

/// A run of neighbouring slots with one name.
struct SlotGroup {
  std::string_view Name;
  int First = 0;  ///< slot
  int Last = 0;   ///< slot
};

/// The cards that all players share, in the order in which they leave the pack; "BC" is a burn
/// card, "T" the turn and "R" the river.
inline constexpr std::array<SlotGroup, 6> SharedCards{{{"BC", 13, 13},
                                                       {"FLOP", 14, 16},
                                                       {"BC", 17, 17},
                                                       {"T", 18, 18},
                                                       {"BC", 19, 19},
                                                       {"R", 20, 20}}};
inline constexpr int kFirstSharedSlot = 13;
inline constexpr int kFirstUnnamedSlot = 21;

/// What the printed list calls slot 1..28: "Player 1" to "Player 6" twice, then the shared cards;
/// empty from `kFirstUnnamedSlot` on.
[[nodiscard]] std::string_view SlotName(int slot);

}  // namespace morvane::poker
