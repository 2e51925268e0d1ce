#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "model/board.h"
#include "model/tables.h"

namespace morvane {

// The record of a complete board is a line of the log in ASCII. Columns from 0:
//
//     0   3  blanks
//     3   3  board number, with leading zeros
//     6   3  " : "
//     9  17  North: the suits joined by ".", 16 characters, and a blank
//    26  51  East, South and West, the same
//    77   1  blank                                    (from here on in the long form alone)
//    78  24  `DealNumber`, hexadecimal
//   102   2  blanks
//   104   8  `DealCounter`, hexadecimal
//
// An incomplete board has shorter hands, which makes it a line of another length.

/// The record of a board under `number`.
[[nodiscard]] std::string LogRecord(int number, const Board& board, bool longForm);

/// What stands behind the number in a board's record.
[[nodiscard]] std::string FormatBoardForLog(const Board& board, bool longForm);

namespace log_record {

inline constexpr std::size_t kShortSize = 77;
inline constexpr std::size_t kLongSize = 112;

/// The number in a record, and the text behind it.
[[nodiscard]] constexpr std::string_view NumberIn(std::string_view record) {
  return record.substr(3, 3);
}
[[nodiscard]] constexpr std::string_view TextIn(std::string_view record) {
  return record.substr(9);
}

/// One hand, and all four with a blank behind each, in the text of a record.
[[nodiscard]] constexpr std::string_view HandIn(std::string_view text, int hand) {
  return text.substr(static_cast<std::size_t>(hand - kNorth) * 17, 16);
}
[[nodiscard]] constexpr std::string_view HandsIn(std::string_view text) {
  return text.substr(0, 68);
}
/// The deal's identity in the text of a long record.
[[nodiscard]] constexpr std::string_view DealNumberIn(std::string_view text) {
  return text.substr(69, 24);
}
[[nodiscard]] constexpr std::string_view DealCounterIn(std::string_view text) {
  return text.substr(95, 8);
}

}  // namespace log_record
}  // namespace morvane
