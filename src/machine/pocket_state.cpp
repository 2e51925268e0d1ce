#include "machine/pocket_state.h"

namespace morvane::machine {

PocketState PocketStateOf(std::optional<int> count, int target, bool falling) {
  if (!count) return PocketState::kWaiting;
  if (*count == target) return PocketState::kFull;
  if (*count > target) return PocketState::kTooMany;
  return falling ? PocketState::kFilling : PocketState::kStoppedShort;
}

std::string_view PocketWord(PocketState state) {
  switch (state) {
    case PocketState::kFilling:
      return "filling";
    case PocketState::kFull:
      return "full";
    case PocketState::kStoppedShort:
      return "stopped short";
    case PocketState::kTooMany:
      return "too many";
    default:
      return "waiting";
  }
}

}  // namespace morvane::machine
