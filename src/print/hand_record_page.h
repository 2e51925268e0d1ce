#pragma once

#include "model/board.h"
#include "platform/canvas.h"
#include "print/print_options.h"

namespace morvane::print {

/// Where the sheet stands among the others.
struct SheetNumber {
  int Page = 1;
  int Pages = 1;
};

/// What every page of hand records has: the rules and, between them and below, the boards told of
/// in `what` ("Boards 1 - 12"), the number of the page and the header.
void DrawPageFrame(Canvas& canvas, const PrintOptions& options, std::string_view what,
                   SheetNumber number);

/// Pale rules between the rows of cells that hold `boards` boards.
void DrawGrid(Canvas& canvas, const PrintOptions& options, int boards);

/// Board `n` in the cell `place`, 0.. by rows from left to right.
void DrawCell(Canvas& canvas, const PrintOptions& options, int place, const Board& board, int n);

}  // namespace morvane::print
