#include "print/score_card.h"

#include <string>

#include "print/board_parts.h"

namespace morvane::print {

void DrawScoreCard(Canvas& canvas, const PrintOptions& options, const Board& board, int n) {
  (void)options;
  (void)board;
  canvas.Text(n % 2 == 1 ? 15 : 300, 15, "Board " + std::to_string(n), {Typeface::kTimes, 20},
              kBlack);
}

}  // namespace morvane::print
