#pragma once

#include <cstddef>
#include <optional>

#include "wire/frame.h"

namespace morvane::wire {

// What the machine is told by a command: its code, and what the tables name of the rest. Random
// filler tells it nothing, and what a sender leaves as it stood neither.

/// The first byte in which two plain commands say different things; nothing where the machine hears
/// the same. Of a code that no command of ours has all bytes count.
[[nodiscard]] std::optional<std::size_t> FirstDifference(const Frame& one, const Frame& other);

[[nodiscard]] inline bool SameCommand(const Frame& one, const Frame& other) {
  return !FirstDifference(one, other);
}

}  // namespace morvane::wire
