#include "machine/pocket_state.h"

namespace morvane::machine {

PocketState PocketStateOf(std::optional<int> count, int target, CardFlow flow) {
  if (!count) return PocketState::kWaiting;
  if (*count == target) return PocketState::kFull;
  if (*count > target) return PocketState::kTooMany;
  if (flow == CardFlow::kOver) return PocketState::kNotFull;
  return flow == CardFlow::kFalling ? PocketState::kFilling : PocketState::kStoppedShort;
}

std::string_view PocketWord(PocketState state) {
  switch (state) {
    case PocketState::kFilling:
      return "filling";
    case PocketState::kFull:
      return "full";
    case PocketState::kStoppedShort:
      return "stopped short";
    case PocketState::kNotFull:
      return "not full";
    case PocketState::kTooMany:
      return "too many";
    default:
      return "waiting";
  }
}

}  // namespace morvane::machine
