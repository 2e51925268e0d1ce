#include "model/similarity.h"

#include <bit>

namespace morvane {

HandMasks MasksOf(const Board& board) {
  HandMasks masks;
  for (int card = 1; card <= kCards; ++card) {
    const int hand = board.Cards[static_cast<std::size_t>(card)];
    if (hand >= 1 && hand <= kHands) masks.Add(hand, card);
  }
  return masks;
}

Similarity CompareHands(const HandMasks& a, const HandMasks& b) {
  Similarity best;
  for (std::size_t handA = 0; handA < kHands; ++handA) {
    for (std::size_t handB = 0; handB < kHands; ++handB) {
      const int common = std::popcount(a.Hands[handA] & b.Hands[handB]);
      if (common <= best.Cards) continue;
      best = {common, HandLetter(static_cast<int>(handA) + 1),
              HandLetter(static_cast<int>(handB) + 1)};
    }
  }
  return best;
}

Similarity CompareHands(const Board& a, const Board& b) {
  return CompareHands(MasksOf(a), MasksOf(b));
}

std::string AlikePair::Text() const {
  if (Cards == 0) return {};
  return std::to_string(Cards) + ", " + std::to_string(Number) + Hand + ":" +
         std::to_string(OtherNumber) + OtherHand;
}

}  // namespace morvane
