#include "text/text.h"

#include <algorithm>
#include <cmath>

namespace morvane {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

template <typename Change>
std::string Changed(std::string_view text, Change change) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), change);
  return result;
}

}  // namespace

std::string Hex2(std::uint8_t byte) { return {kHexDigits[byte >> 4U], kHexDigits[byte & 15U]}; }

std::string Hex8(std::uint32_t value) {
  std::string text;
  for (unsigned shift = 32; shift > 0; shift -= 8) {
    text += Hex2(static_cast<std::uint8_t>(value >> (shift - 8)));
  }
  return text;
}

std::string HexBytes(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) text += Hex2(byte);
  return text;
}

std::optional<std::vector<std::uint8_t>> BytesOfHex(std::string_view text) {
  if (text.size() % 2 != 0) return std::nullopt;
  std::vector<std::uint8_t> bytes;
  const std::string digits = UpperCase(text);
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const std::size_t high = kHexDigits.find(digits[i]);
    const std::size_t low = kHexDigits.find(digits[i + 1]);
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
  }
  return bytes;
}

std::string ThreeDigits(int number) {
  std::string text = std::to_string(number);
  if (text.size() < 3) text.insert(0, 3 - text.size(), '0');
  return text;
}

std::string PadNumber(int n) {
  return std::string(n < 10 ? 3 : n < 100 ? 2 : 1, ' ') + std::to_string(n);
}

std::string FixedPoint(double value, int decimals) {
  const long long scaled = std::llround(value * std::pow(10.0, decimals));
  std::string digits = std::to_string(std::llabs(scaled));
  const auto places = static_cast<std::size_t>(decimals);
  if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
  if (places > 0) digits.insert(digits.size() - places, 1, '.');
  return (scaled < 0 ? "-" : "") + digits;
}

std::string ClockText(int hour, int minute, int second) {
  const auto two = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
  return std::to_string((hour + 11) % 12 + 1) + ":" + two(minute) + ":" + two(second) +
         (hour < 12 ? " AM" : " PM");
}

std::string UpperCase(std::string_view text) { return Changed(text, UpperLetter); }

std::string LowerCase(std::string_view text) {
  return Changed(text, [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
}

std::string WithoutControls(std::string text) {
  constexpr char kDelete = 0x7F;
  std::replace_if(
      text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == kDelete; }, ' ');
  return text;
}

std::string Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return std::string(text);
}

int Val(std::string_view text) {
  return static_cast<int>(std::min<std::int64_t>(WideVal(text), 1'000'000'000));
}

std::int64_t WideVal(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  std::int64_t value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') break;
    value = std::min<std::int64_t>(value * 10 + (c - '0'), 10'000'000'000);
  }
  return value;
}

}  // namespace morvane
