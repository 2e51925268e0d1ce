#pragma once

#include "platform/clock.h"

namespace morvane {

/// The computer's own time.
class SystemClock final : public Clock {
 public:
  [[nodiscard]] LocalTime Now() const override;
  [[nodiscard]] std::chrono::microseconds Elapsed() const override;
  void Spend(std::chrono::microseconds time) override;

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace morvane
