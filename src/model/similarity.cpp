#include "model/similarity.h"

#include <algorithm>

namespace morvane {

Similarity CompareHands(const Board& a, const Board& b) {
  std::array<int, std::size_t{kHands} * kHands> common{};
  for (std::size_t card = 1; card <= kCards; ++card) {
    const int inA = a.Cards[card];
    const int inB = b.Cards[card];
    if (inA < 1 || inA > kHands || inB < 1 || inB > kHands) continue;
    ++common[static_cast<std::size_t>((inA - 1) * kHands + inB - 1)];
  }
  const auto best = std::max_element(common.begin(), common.end());
  const int index = static_cast<int>(best - common.begin());
  return {*best, HandLetter(index / kHands + 1), HandLetter(index % kHands + 1)};
}

}  // namespace morvane
