#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulator/machine_memory.h"

namespace morvane::simulator {

// The memory as a text of lines: a heading; the parameters, a line a sub-code with it and its five
// bytes in decimal, in ascending order; "boards" with their number; "stops" with a code and how
// often, for each code that there was, in ascending order; "record" with serial number, hardware,
// day, month and year, once it was written; "firmware" with its version or "none", once there was a
// download; "end". A text with the heading of those that had parameters alone ends behind them.

[[nodiscard]] std::string TextOf(const MachineMemory& memory);
/// Nothing for a text that is any other than those, a file of zeros or half of one.
[[nodiscard]] std::optional<MachineMemory> MemoryIn(std::string_view text);

/// The file in which it outlives the program; without a path there is none. One that holds anything
/// else is left alone.
class MachineStore {
 public:
  explicit MachineStore(std::string path) : path_(std::move(path)) {}

  /// That of a new machine where the file is missing or damaged.
  [[nodiscard]] MachineMemory Load();
  /// Writes what has changed since it was asked last, beside and renamed. A file that cannot be
  /// written stays as it is.
  void Keep(const MachineMemory& memory);
  /// What is wrong with the file, in a line for its owner; empty while nothing is.
  [[nodiscard]] const std::string& Trouble() const { return trouble_; }

 private:
  [[nodiscard]] MachineMemory Read();
  void LeaveAlone(const std::string& why);

  std::string path_;
  bool leftAlone_ = false;
  MachineMemory kept_;
  std::string trouble_;
};

}  // namespace morvane::simulator
