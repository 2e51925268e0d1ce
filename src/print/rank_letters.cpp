#include "print/rank_letters.h"

#include "model/national_letters.h"

namespace morvane::print {

std::string SuitOnPaper(const Board& board, int hand, int suit, const PrintOptions& options) {
  constexpr int kTen = 5;  // of the rank positions
  std::string text;
  for (int rank = 1; rank <= kRanks; ++rank) {
    const int card = (suit - 1) * kRanks + rank;
    if (board.Cards[static_cast<std::size_t>(card)] != hand) continue;
    text += rank == kTen && options.TenAsNumber ? "10" : NationalLetter(options.National, card);
  }
  return text;
}

}  // namespace morvane::print
