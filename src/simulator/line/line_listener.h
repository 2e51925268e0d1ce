#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>

namespace morvane::simulator {

/// Is told what passes at the machine's end of a line, with the time of it.
class LineListener {
 public:
  using Time = std::chrono::microseconds;

  virtual ~LineListener() = default;
  /// The machine heard this from the program.
  virtual void Heard(std::span<const std::uint8_t> bytes, Time now) = 0;
  /// This went to the program.
  virtual void Said(std::span<const std::uint8_t> bytes, Time now) = 0;
  /// The line by which the program shows that it drives the machine has changed.
  virtual void Latched(bool on, Time now) = 0;
  /// The program has closed the line, or was killed.
  virtual void Closed(Time now) = 0;
  /// Why it does not keep what it hears, in a line; empty while all goes well.
  [[nodiscard]] virtual const std::string& Trouble() const = 0;
};

}  // namespace morvane::simulator
