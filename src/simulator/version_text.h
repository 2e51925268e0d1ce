#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane::simulator {

// A version as a text: the digits behind the point are those of a byte in hexadecimal, as it is
// shown.

[[nodiscard]] std::string VersionText(std::uint8_t major, std::uint8_t minor);
/// False, and nothing is taken, where the whole text is no version.
[[nodiscard]] bool TakeVersion(std::string_view text, std::uint8_t& major, std::uint8_t& minor);

}  // namespace morvane::simulator
