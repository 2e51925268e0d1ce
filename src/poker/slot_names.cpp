#include "poker/slot_names.h"

namespace morvane::poker {
namespace {

constexpr std::array<std::string_view, kPlayers> kPlayerNames{"Player 1", "Player 2", "Player 3",
                                                              "Player 4", "Player 5", "Player 6"};

}  // namespace

std::string_view SlotName(int slot) {
  if (slot < 1) return {};
  if (slot <= 2 * kPlayers) return kPlayerNames[static_cast<std::size_t>((slot - 1) % kPlayers)];
  for (const SlotGroup& group : SharedCards) {
    if (slot >= group.First && slot <= group.Last) return group.Name;
  }
  return {};
}

}  // namespace morvane::poker
