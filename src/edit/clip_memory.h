#pragma once

#include "model/board.h"

namespace morvane::edit {

/// What Cut and Copy hold, from one time that the editor is open to the next.
struct ClipMemory {
  Board ClipBoard;
  bool ClipFilled = false;
};

}  // namespace morvane::edit
