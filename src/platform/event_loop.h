#pragma once

#include <functional>
#include <memory>

namespace morvane {

/// A running timer. It ticks until it is destroyed, which its own tick may do.
class Timer {
 public:
  virtual ~Timer() = default;
};

/// How a long procedure lets the windows live. There is one thread: timers and window events run
/// inside these calls and nowhere else.
class EventLoop {
 public:
  virtual ~EventLoop() = default;
  /// Lets pending events and due timers through. False once the program is quitting.
  virtual bool Pump() = 0;
  /// The same for who asks a thousand times a second: events may wait some milliseconds for it.
  virtual bool PumpOften() { return Pump(); }
  /// Lets the windows paint, and nothing else: no click, no key, no timer.
  virtual void Paint() {}
  /// Waits `ms` milliseconds while events go on; ends early when the program is quitting.
  virtual void WaitMs(int ms) = 0;
  /// Runs events until `done()` holds or the program is quitting.
  virtual void RunUntil(const std::function<bool()>& done) = 0;
  /// A timer that ticks every `intervalMs` milliseconds, first one interval from now.
  [[nodiscard]] virtual std::unique_ptr<Timer> StartTimer(int intervalMs,
                                                          std::function<void()> tick) = 0;
  /// Asks every loop to end; `Pump` reports it from now on.
  virtual void Quit() = 0;
  [[nodiscard]] virtual bool Quitting() const = 0;
};

}  // namespace morvane
