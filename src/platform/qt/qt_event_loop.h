#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <atomic>
#include <memory>

#include "platform/event_loop.h"

namespace morvane {

/// The real event loop, on the `QCoreApplication` that stands while this object lives. The calls
/// that wait sleep until something happens. A `main` that has no more to do waits in `RunUntil`.
class QtEventLoop final : public EventLoop {
 public:
  QtEventLoop();
  QtEventLoop(const QtEventLoop&) = delete;
  QtEventLoop& operator=(const QtEventLoop&) = delete;
  ~QtEventLoop() override;

  bool Pump() override;
  bool PumpOften() override;
  void Paint() override;
  void WaitMs(int ms) override;
  void RunUntil(const std::function<bool()>& done) override;
  /// A tick that lets events through is not run into by its own timer's next one.
  std::unique_ptr<Timer> StartTimer(int intervalMs, std::function<void()> tick) override;
  /// Ends the loops of dialogs as well. May be called from a signal handler or another thread.
  void Quit() override;
  [[nodiscard]] bool Quitting() const override { return quitting_; }

 private:
  class Wake;
  std::atomic<bool> quitting_ = false;
  bool painting_ = false;
  int waits_ = 0;  ///< calls of `RunUntil` that are in each other now
  QElapsedTimer sincePump_;
  std::unique_ptr<Wake> wake_;
  QObject tickers_;  ///< parent of the timers, so that one that stopped in its own tick goes too
};

}  // namespace morvane
