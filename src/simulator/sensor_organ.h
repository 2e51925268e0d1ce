#pragma once

#include "simulator/options.h"
#include "simulator/sensors.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// Outputs and sensors of the open machine.
class SensorOrgan {
 public:
  explicit SensorOrgan(const Options& options) : options_(options) {}

  /// As `RunOrgan::Answer`; `boardInSlot` is what the board switch says. Selectors that the
  /// firmware is too old for are not answered.
  bool Answer(const wire::Frame& command, bool boardInSlot, wire::Frame& reply);

  [[nodiscard]] Sensors& Seen() { return sensors_; }
  [[nodiscard]] const Sensors& Seen() const { return sensors_; }

 private:
  bool AnswerOutputs(const wire::Frame& command, bool boardInSlot, wire::Frame& reply);
  bool AnswerStatus(const wire::Frame& command, wire::Frame& reply) const;
  [[nodiscard]] wire::Frame Motors(std::uint8_t selector, int first) const;
  [[nodiscard]] wire::Frame Climate() const;

  Options options_;
  Sensors sensors_;
};

}  // namespace morvane::simulator
