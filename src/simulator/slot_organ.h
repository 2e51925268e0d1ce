#pragma once

#include "simulator/board_slot.h"
#include "simulator/options.h"
#include "wire/service_replies.h"

namespace morvane::simulator {

/// The board slot with the reader of its label and the optical switch that looks for a board. What
/// that one sees is told to whoever asks, and nothing else goes by it.
class SlotOrgan {
 public:
  /// `options` as in `IdentityOrgan`.
  explicit SlotOrgan(const Options& options) : options_(options) {}

  /// A board is pushed in; what was there had been taken out before.
  void Insert(std::uint8_t label);
  /// The optical switch looks, at this sensitivity.
  void Look(std::uint8_t sensitivity);
  /// The power has gone.
  void Forget();

  /// As `RunOrgan::Answer`, for the status frames of label and switch.
  bool Answer(const wire::Frame& command, bool flipPlate, wire::Frame& reply) const;

  [[nodiscard]] BoardSlot& Slot() { return slot_; }
  [[nodiscard]] const BoardSlot& Slot() const { return slot_; }

 private:
  bool AnswerLabel(const wire::SensorHead& head, wire::Frame& reply) const;
  bool AnswerSwitch(const wire::SensorHead& head, wire::Frame& reply) const;

  const Options& options_;
  BoardSlot slot_;
  bool seen_ = false;
};

}  // namespace morvane::simulator
