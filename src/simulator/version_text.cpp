#include "simulator/version_text.h"

#include <charconv>
#include <optional>

namespace morvane::simulator {
namespace {

std::optional<std::uint8_t> ByteIn(std::string_view digits, int base) {
  std::uint8_t byte = 0;
  const char* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, byte, base);
  return result.ec == std::errc() && result.ptr == end ? std::optional(byte) : std::nullopt;
}

}  // namespace

std::string VersionText(std::uint8_t major, std::uint8_t minor) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return std::to_string(major) + "." + kDigits[minor >> 4U] + kDigits[minor & 15U];
}

bool TakeVersion(std::string_view text, std::uint8_t& major, std::uint8_t& minor) {
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos || text.size() - point != 3) return false;
  const auto before = ByteIn(text.substr(0, point), 10);
  const auto behind = ByteIn(text.substr(point + 1), 16);
  if (!before || !behind) return false;
  major = *before;
  minor = *behind;
  return true;
}

}  // namespace morvane::simulator
