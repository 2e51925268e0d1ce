#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>

namespace morvane::maintenance {

/// How a measure has gone in the last half minute, in steps of time. A step keeps its lowest and
/// its highest value, so that no spike is lost.
class Trace {
 public:
  using Time = std::chrono::microseconds;
  static constexpr Time kStep{250'000};
  static constexpr std::size_t kSteps = 120;
  struct Span {
    double Low = 0;
    double High = 0;
    bool operator==(const Span&) const = default;
  };

  /// `now` never goes back. Whether a new step has begun with it.
  bool Add(Time now, double value);
  /// Of a step before the newest, 0 being that; nothing where no value came.
  [[nodiscard]] std::optional<Span> At(std::size_t stepsAgo) const;
  /// Of all of it; nothing before the first value.
  [[nodiscard]] std::optional<Span> Whole() const;

 private:
  [[nodiscard]] static std::size_t PlaceOf(std::int64_t step) {
    return static_cast<std::size_t>(step) % kSteps;
  }

  std::array<std::optional<Span>, kSteps> spans_{};  ///< by number of the step, in a ring
  std::int64_t newest_ = -1;                         ///< counted from the clock's start
};

}  // namespace morvane::maintenance
