#include "files/placed_boards.h"

namespace morvane::files {

bool AppendBoard(BoardSet& set, const Board& cards) {
  if (set.LastBoard >= kMaxBoards) return false;
  ++set.LastBoard;
  set.At(set.LastBoard) = NumberedBoard(set.LastBoard, cards);
  return true;
}

std::string GapBefore(const BoardSet& set, std::size_t recordLength) {
  return std::string(static_cast<std::size_t>(set.FirstBoard - 1) * recordLength, '\0');
}

}  // namespace morvane::files
