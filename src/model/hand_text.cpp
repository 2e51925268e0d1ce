#include "model/hand_text.h"

namespace morvane {

std::string HandText(const Board& board, int hand, std::string_view between) {
  std::string text;
  int suit = 1;
  for (int card = 1; card <= kCards; ++card) {
    if (board.Cards[static_cast<std::size_t>(card)] != hand) continue;
    for (; suit < CardSuit(card); ++suit) text += between;
    text += CardLetter(card);
  }
  for (; suit < kSuits; ++suit) text += between;
  return text;
}

}  // namespace morvane
