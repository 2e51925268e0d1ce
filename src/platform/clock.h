#pragma once

#include <chrono>
#include <cstdint>

namespace morvane {

/// Local date and time; `Month` and `Day` count from 1.
struct LocalTime {
  int Year = 0;
  int Month = 1;
  int Day = 1;
  int Hour = 0;
  int Minute = 0;
  int Second = 0;
  int Millisecond = 0;

  /// Milliseconds since midnight.
  [[nodiscard]] std::int32_t MillisecondsOfDay() const {
    return ((Hour * 60 + Minute) * 60 + Second) * 1000 + Millisecond;
  }
  /// Whole days from 1 January 2008.
  [[nodiscard]] int DaysFrom2008() const {
    using namespace std::chrono;
    const auto date =
        year(Year) / month(static_cast<unsigned>(Month)) / day(static_cast<unsigned>(Day));
    return static_cast<int>((sys_days(date) - sys_days(year(2008) / January / 1)).count());
  }
};

/// The one source of time. Everything that waits or takes time reads and moves the same clock.
class Clock {
 public:
  virtual ~Clock() = default;
  [[nodiscard]] virtual LocalTime Now() const = 0;
  /// Steady time from an arbitrary start.
  [[nodiscard]] virtual std::chrono::microseconds Elapsed() const = 0;
  /// Blocks the thread for `time`, as a read on the wire does; no event runs meanwhile.
  virtual void Spend(std::chrono::microseconds time) = 0;
};

}  // namespace morvane
