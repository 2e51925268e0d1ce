#pragma once

#include <chrono>
#include <optional>

namespace morvane::simulator {

/// The one card that a technician has fed: its way past the camera and the photo sensors, one after
/// the other. At speed 0 all of them see it at once, until it is told of.
class CardFeed {
 public:
  using Time = std::chrono::microseconds;

  /// `way` is how long it takes; 0 no time at all.
  explicit CardFeed(Time way) : way_(way) {}

  /// `machineCard` 1..55 sets out.
  void SetOut(int machineCard, Time now);
  /// There is room for no other.
  [[nodiscard]] bool UnderWay(Time now);
  /// Whether the card is at photo sensor 1..5.
  [[nodiscard]] bool IsAt(int photo, Time now) const;
  /// The card that has gone past and that nobody was told of; only once.
  [[nodiscard]] std::optional<int> TakePassed(Time now);
  /// The power has gone.
  void Forget() { card_ = passed_ = std::nullopt; }

 private:
  void Advance(Time now);

  Time way_;
  Time since_{0};
  std::optional<int> card_;  ///< under way
  std::optional<int> passed_;
};

}  // namespace morvane::simulator
