#pragma once

#include <array>
#include <cstdint>

namespace morvane::wire {

/// The 4-of-8 code of board labels: the n-th byte value with exactly four bits set is board n
/// (15 is 1, 240 is 70); every other byte is 0.
inline constexpr std::array<std::uint8_t, 256> BoardLabelTable = [] {
  std::array<std::uint8_t, 256> table{};
  std::uint8_t board = 0;
  for (unsigned value = 0; value < table.size(); ++value) {
    unsigned bits = 0;
    for (unsigned rest = value; rest != 0; rest >>= 1U) bits += rest & 1U;
    if (bits == 4) table[value] = ++board;
  }
  return table;
}();

/// The label of board 1..70; 0 for a board that has none.
[[nodiscard]] std::uint8_t LabelOfBoard(int board);

}  // namespace morvane::wire
