#pragma once

#include "simulator/card_feed.h"
#include "simulator/options.h"
#include "simulator/sensors.h"
#include "wire/service_commands.h"

namespace morvane::simulator {

/// Outputs and sensors of the open machine, and the card that is fed past them.
class SensorOrgan {
 public:
  using Time = std::chrono::microseconds;

  /// `options` as in `IdentityOrgan`; a fed card takes `way`.
  SensorOrgan(const Options& options, Time way)
      : options_(options), sensors_(options.Speed), feed_(way) {}

  /// Switches, and answers by what the photo sensors and the switches see; `boardInSlot` is what
  /// the board switch says.
  void Answer(const wire::OutputsCommand& outputs, bool boardInSlot, Time now, wire::Frame& reply);
  /// A status frame, as `RunOrgan::Answer`. Selectors that the firmware is too old for are not
  /// answered.
  bool AnswerStatus(const wire::Frame& command, Time now, wire::Frame& reply);

  [[nodiscard]] Sensors& Seen() { return sensors_; }
  [[nodiscard]] const Sensors& Seen() const { return sensors_; }
  [[nodiscard]] CardFeed& Feed() { return feed_; }
  /// The power has gone.
  void Forget();

 private:
  [[nodiscard]] wire::Frame Motors(std::uint8_t selector, int first) const;
  [[nodiscard]] wire::Frame Climate() const;

  const Options& options_;
  Sensors sensors_;
  CardFeed feed_;
};

}  // namespace morvane::simulator
