#include "model/board_set.h"

#include <algorithm>
#include <cstdlib>

namespace morvane {

bool BoardSet::Changed() const { return std::strtod(BoardSetChanged.c_str(), nullptr) == 1.0; }

void BoardSet::CountCompleted() {
  const auto first = Boards.begin() + FirstBoard;
  CompletedBoards = static_cast<std::int16_t>(std::count_if(
      first, first + Count(), [](const Board& board) { return board.Status == Board::kComplete; }));
}

void BoardSet::Clear() {
  Boards.fill(Board{});
  FirstBoard = 1;
  LastBoard = 0;
  CurrentBoard = 1;
  EventName.clear();
  EventSite.clear();
  EventDate.clear();
}

}  // namespace morvane
