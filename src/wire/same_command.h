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

/// Makes 0 of all that tells the machine nothing. The poll of a test deal keeps what tells it from
/// the others.
void KeepTold(Frame& command);
/// The same for a poll of which it is known that it is one of a test deal: what is random in it may
/// look like another.
void KeepTestPoll(Frame& command);

}  // namespace morvane::wire
