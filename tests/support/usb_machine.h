#pragma once

#include <chrono>
#include <span>

#include "simulator/wired_machine.h"
#include "support/emulated_usb.h"

namespace morvane::test {

/// The simulated machine behind a bridge chip at the emulated bus; it answers at once. It is looked
/// at while no exchange is under way.
class UsbMachine {
 public:
  UsbMachine(EmulatedUsb& chip, const simulator::Options& options) : Machine(options) {
    chip.Answer([this](std::span<const std::uint8_t> heard) { return Hear(heard); });
  }

  simulator::WiredMachine Machine;

 private:
  Bytes Hear(std::span<const std::uint8_t> heard) {
    using std::chrono::steady_clock;
    const auto now = std::chrono::duration_cast<std::chrono::microseconds>(
        steady_clock::now().time_since_epoch());
    Bytes said;
    for (const std::uint8_t byte : heard) {
      const auto saying = Machine.Hear(byte, now);
      if (!saying) continue;
      said.insert(said.end(), saying->Wire.begin(), saying->Wire.end());
      said.insert(said.end(), saying->Unasked.begin(), saying->Unasked.end());
    }
    return said;
  }
};

}  // namespace morvane::test
