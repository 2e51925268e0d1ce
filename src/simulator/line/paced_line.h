#pragma once

#include <chrono>
#include <optional>
#include <span>

#include "simulator/byte_queue.h"
#include "simulator/wired_machine.h"

namespace morvane::simulator {

/// How long bytes take on a line that takes no time itself.
enum class Pace : std::uint8_t {
  kWire,  ///< as over a serial line at 115200 baud, and the machine's thinking
  kFast,  ///< none
};

/// A line to the machine: what is said to it now, and when which byte of its answers arrives. The
/// machine hears a command whole and answers one after the other.
class PacedLine {
 public:
  using Time = WiredMachine::Time;
  PacedLine(WiredMachine& machine, Pace pace) : machine_(machine), pace_(pace) {}

  void Hear(std::span<const std::uint8_t> bytes, Time now);
  /// The bytes that have arrived by `now` and were not taken yet, `bytes` at most; how many.
  std::size_t Take(std::span<std::uint8_t> bytes, Time now);
  /// When it is worth while to take again: some bytes further on, so that a long frame wakes its
  /// carrier a few times only. Nothing while nothing is under way.
  [[nodiscard]] std::optional<Time> NextAt() const;
  /// Whoever was at the other end has gone.
  void Clear();

 private:
  [[nodiscard]] Time WireTime(std::size_t bytes) const;
  [[nodiscard]] Time ArrivalOf(std::size_t byte) const;

  WiredMachine& machine_;
  Pace pace_;
  ByteQueue said_;
  Time heardUntil_{0};     ///< what was said to it is on the line until then
  Time sayingSince_{0};    ///< of the bytes that are under way, the first began then
  std::size_t taken_ = 0;  ///< of these
};

}  // namespace morvane::simulator
