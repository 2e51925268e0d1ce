#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "platform/clock.h"
#include "platform/event_loop.h"

namespace morvane::test {

/// A clock that only moves when it is told to. It starts on 3 March 2026, 15:04:05.
class VirtualClock final : public Clock {
 public:
  [[nodiscard]] LocalTime Now() const override;
  [[nodiscard]] std::chrono::microseconds Elapsed() const override { return elapsed_; }
  void Spend(std::chrono::microseconds time) override { elapsed_ += time; }
  void SetStart(const LocalTime& start) { start_ = start; }

 private:
  LocalTime start_{2026, 3, 3, 15, 4, 5, 0};
  std::chrono::microseconds elapsed_{0};
};

/// Events and timers on a `VirtualClock`. Nothing waits: `WaitMs` moves the clock from one due
/// timer to the next. `RunUntil` fails the test when nothing more can happen, or after an hour.
class VirtualEventLoop : public EventLoop {
 public:
  explicit VirtualEventLoop(VirtualClock& clock) : clock_(clock) {}
  bool Pump() override;
  void WaitMs(int ms) override;
  void RunUntil(const std::function<bool()>& done) override;
  std::unique_ptr<Timer> StartTimer(int intervalMs, std::function<void()> tick) override;
  void Quit() override { quitting_ = true; }
  /// A new program begins on the same clock.
  void Restart() { quitting_ = false; }
  [[nodiscard]] bool Quitting() const override { return quitting_; }

  /// An event for the next `Pump`, as a click or a key would be.
  void Post(std::function<void()> event) { events_.push_back(std::move(event)); }
  /// Runs `event` once, `ms` from now.
  void After(int ms, std::function<void()> event);
  /// Called at the start of each `Pump`.
  std::function<void()> OnPump;

 private:
  struct Entry {
    std::chrono::microseconds Due;
    std::chrono::microseconds Interval;  ///< 0 = once
    std::function<void()> Tick;
    bool Stopped = false;
    bool Ticking = false;  ///< a tick that lets events through is not run into by its next one
  };
  class Handle;
  void Advance(std::chrono::microseconds limit);
  void FireDue();
  [[nodiscard]] std::shared_ptr<Entry> NextDue();

  VirtualClock& clock_;
  std::vector<std::weak_ptr<Entry>> timers_;
  std::vector<std::shared_ptr<Entry>> once_;
  std::deque<std::function<void()>> events_;
  bool quitting_ = false;
};

}  // namespace morvane::test
