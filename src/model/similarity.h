#pragma once

#include "model/board.h"

namespace morvane {

/// The most alike pair of hands of two boards: how many cards they have in common (0..13) and the
/// letter of each hand. Of equal pairs the first counts; without any common card both are 'N'.
struct Similarity {
  int Cards = 0;
  char HandA = 'N';
  char HandB = 'N';
};

[[nodiscard]] Similarity CompareHands(const Board& a, const Board& b);

}  // namespace morvane
