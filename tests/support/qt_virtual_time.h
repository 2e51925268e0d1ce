#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <functional>

#include "support/virtual_time.h"

namespace morvane::test {

/// Real window events, virtual time.
class QtVirtualEventLoop final : public VirtualEventLoop {
 public:
  explicit QtVirtualEventLoop(VirtualClock& clock) : VirtualEventLoop(clock), clock_(clock) {}

  bool Pump() override {
    QCoreApplication::processEvents();
    const bool goesOn = VirtualEventLoop::Pump();
    QCoreApplication::processEvents();
    return goesOn;
  }

  /// A wait that takes this long is one that nobody will end: the test fails and every loop ends.
  static constexpr std::chrono::minutes kLongest{5};
  void RunUntil(const std::function<bool()>& done) override {
    const auto end = clock_.Elapsed() + kLongest;
    VirtualEventLoop::RunUntil([&] { return done() || GiveUpAfter(end); });
  }

 private:
  bool GiveUpAfter(std::chrono::microseconds end) {
    if (clock_.Elapsed() < end) return false;
    ADD_FAILURE() << "a window or a box waits for an answer that does not come";
    Quit();
    return true;
  }

  VirtualClock& clock_;
};

}  // namespace morvane::test
