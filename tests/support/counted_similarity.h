#pragma once

#include <algorithm>
#include <array>

#include "model/similarity.h"

namespace morvane::test {

/// The definition of the likeness of two boards, card by card: 52 steps.
inline Similarity CountedSimilarity(const Board& a, const Board& b) {
  std::array<int, 16> counters{};  // of each hand of the one with each of the other
  for (std::size_t card = 1; card <= kCards; ++card) {
    const unsigned inA = a.Cards[card];
    const unsigned inB = b.Cards[card];
    if (inA < 1 || inA > 4 || inB < 1 || inB > 4) continue;
    ++counters[(inA - 1) * 4 + inB - 1];
  }
  const auto most = std::max_element(counters.begin(), counters.end());
  const auto index = static_cast<std::size_t>(most - counters.begin());
  return {*most, "NESW"[index / 4], "NESW"[index % 4]};
}

}  // namespace morvane::test
