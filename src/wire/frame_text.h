#pragma once

#include <string>
#include <string_view>

#include "wire/frame.h"

namespace morvane::wire {

// Frames by name, for whoever watches them pass. They are plain; only the first bytes are looked
// at.

/// How many bytes of a frame the texts below need.
inline constexpr std::size_t kTextBytes = 16;

/// "CmdStatus"; empty for a code that no command of ours has.
[[nodiscard]] std::string_view CommandName(std::uint8_t code);
/// "status"; empty for a code that no reply of ours has.
[[nodiscard]] std::string_view ReplyName(std::uint8_t code);

/// The name and what the frame says: "CmdStatus pedal seen", "CmdRead go on". A code without a name
/// is "frame 0x77".
[[nodiscard]] std::string CommandText(const Frame& command);
/// "status: busy, 3 2 4 1, pedal": the counts of the pockets South, West, East, North.
[[nodiscard]] std::string ReplyText(const Frame& reply);

}  // namespace morvane::wire
