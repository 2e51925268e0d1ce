#pragma once

#include <string>

#include "model/board.h"
#include "print/print_options.h"

namespace morvane::print {

/// The cards of `suit` that `hand` holds, from the ace down, with the letters of the country; the
/// ten is "10" where that is chosen. Empty for a void.
[[nodiscard]] std::string SuitOnPaper(const Board& board, int hand, int suit,
                                      const PrintOptions& options);

}  // namespace morvane::print
