#include "wire/board_labels.h"

#include <algorithm>

namespace morvane::wire {

std::uint8_t LabelOfBoard(int board) {
  const auto* at = std::find(BoardLabelTable.begin(), BoardLabelTable.end(), board);
  if (board < 1 || at == BoardLabelTable.end()) return 0;
  return static_cast<std::uint8_t>(at - BoardLabelTable.begin());
}

}  // namespace morvane::wire
