#pragma once

#include "model/board.h"
#include "platform/canvas.h"
#include "print/print_options.h"

namespace morvane::print {

/// The score card of board `n`, on the left half of the page when `n` is odd, else on the right.
void DrawScoreCard(Canvas& canvas, const PrintOptions& options, const Board& board, int n);

}  // namespace morvane::print
