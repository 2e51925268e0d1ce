#pragma once

#include <string>

#include "model/board.h"

namespace morvane::cli {

/// Board `n` as a diagram of text, with the hands at their places, in UTF-8.
[[nodiscard]] std::string BoardDiagram(const Board& board, int n);

}  // namespace morvane::cli
