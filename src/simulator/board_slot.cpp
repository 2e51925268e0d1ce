#include "simulator/board_slot.h"

#include <utility>

namespace morvane::simulator {

void BoardSlot::Insert(std::uint8_t label) {
  occupied_ = true;
  label_ = label;
  inserted_.Happen();
}

void BoardSlot::Remove() {
  if (!occupied_) return;
  occupied_ = false;
  inserted_.Withdraw();  // in and out between two polls: nobody has seen it
  removalWaits_ = true;
}

void BoardSlot::Forget() {
  inserted_ = {};
  removalWaits_ = false;
}

BoardSlot::Bits BoardSlot::NextReport() {
  if (std::exchange(removalWaits_, false)) return {true, inserted_.Shown()};
  const bool moved = inserted_.Waiting();
  return {moved, inserted_.Show()};
}

}  // namespace morvane::simulator
