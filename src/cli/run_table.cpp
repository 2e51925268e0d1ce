#include "cli/run_table.h"

#include "text/columns.h"
#include "text/text.h"

namespace morvane::cli {

std::string RowOf(const RunBoard& board, const std::string& verdict) {
  std::string number = std::to_string(board.Number);
  if (board.Copy > 1) number += "/" + std::to_string(board.Copy);
  return RightAligned(number, 7) + RightAligned(FixedPoint(board.Seconds, 1) + " s", 9) + "   " +
         verdict + "\n";
}

}  // namespace morvane::cli
