#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// Two upper-case hexadecimal digits.
[[nodiscard]] std::string Hex2(std::uint8_t byte);
/// Eight upper-case hexadecimal digits, most significant byte first.
[[nodiscard]] std::string Hex8(std::uint32_t value);
/// `Hex2` of each byte in turn.
[[nodiscard]] std::string HexBytes(std::span<const std::uint8_t> bytes);
/// The bytes of a hexadecimal text of either case; nothing unless it is whole pairs of digits.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> BytesOfHex(std::string_view text);

/// The number with leading zeros to three digits ("00#").
[[nodiscard]] std::string ThreeDigits(int number);
/// The number behind three blanks below 10, two below 100, otherwise one.
[[nodiscard]] std::string PadNumber(int n);
/// `value` x 10^`decimals` rounded half away from zero, as a number with a point ("12.0").
[[nodiscard]] std::string FixedPoint(double value, int decimals);

/// A time of day in the format "h:mm:ss AM/PM".
[[nodiscard]] std::string ClockText(int hour, int minute, int second);

/// Upper and lower case of the ASCII letters; other bytes stay.
[[nodiscard]] constexpr char UpperLetter(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
[[nodiscard]] std::string UpperCase(std::string_view text);
[[nodiscard]] std::string LowerCase(std::string_view text);
/// `text` without blanks, tabs and line ends at its ends.
[[nodiscard]] std::string Trim(std::string_view text);
/// Line ends, tabs and other control characters become blanks.
[[nodiscard]] std::string WithoutControls(std::string text);

/// The value of the digits at the start of `text` (blanks before them skipped); 0 without any. It
/// stops at 1,000,000,000: a larger number has that value.
[[nodiscard]] int Val(std::string_view text);
/// The same for numbers of 32 bits; it stops at 10,000,000,000.
[[nodiscard]] std::int64_t WideVal(std::string_view text);

}  // namespace morvane
