#pragma once

#include "simulator/board_slot.h"
#include "simulator/options.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// The board slot with the reader of its label.
class SlotOrgan {
 public:
  /// `options` as in `IdentityOrgan`.
  explicit SlotOrgan(const Options& options) : options_(options) {}

  /// As `RunOrgan::Answer`, for the status frame of the label.
  bool Answer(const wire::Frame& command, bool flipPlate, wire::Frame& reply) const;

  [[nodiscard]] BoardSlot& Slot() { return slot_; }
  [[nodiscard]] const BoardSlot& Slot() const { return slot_; }

 private:
  const Options& options_;
  BoardSlot slot_;
};

}  // namespace morvane::simulator
