#pragma once

#include <string>
#include <string_view>

#include "model/board.h"

namespace morvane {

/// The four suits of `hand`, each from the ace down, joined by `between`.
[[nodiscard]] std::string HandText(const Board& board, int hand, std::string_view between);

}  // namespace morvane
