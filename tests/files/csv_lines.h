#pragma once

#include <string>

namespace morvane::files {

/// The 16 suit fields of `SuitBoard`, up to the quote that opens the number.
inline constexpr const char* kSuitFields =
    "\"AKQJT98765432\",\"\",\"\",\"\",\"\",\"AKQJT98765432\",\"\",\"\","
    "\"\",\"\",\"AKQJT98765432\",\"\",\"\",\"\",\"\",\"AKQJT98765432\",\"";

/// The same of `RoundBoard` from North on: card c, counted from the Ace of Spades, is held by hand
/// (c - 1) mod 4.
inline constexpr const char* kRoundFields =
    "\"AT62\",\"J73\",\"Q84\",\"K95\",\"K95\",\"AT62\",\"J73\",\"Q84\","
    "\"Q84\",\"K95\",\"AT62\",\"J73\",\"J73\",\"Q84\",\"K95\",\"AT62\",\"";

/// A whole line without its end; the dealer and the vulnerability are not read.
inline std::string SuitLine(const std::string& number) {
  return kSuitFields + number + "\",\"N/-\"";
}

}  // namespace morvane::files
