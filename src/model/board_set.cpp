#include "model/board_set.h"

#include <cstdlib>

namespace morvane {

bool BoardSet::Changed() const { return std::strtod(BoardSetChanged.c_str(), nullptr) == 1.0; }

void BoardSet::MarkSaved() {
  BoardSetChanged = "0";
  Edited = false;
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
