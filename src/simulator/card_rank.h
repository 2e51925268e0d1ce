#pragma once

#include "wire/machine_card.h"

namespace morvane::simulator {

/// A card as a verdict has it: rank 2..14, suit 1 spades .. 4 clubs; both 0 for a joker or none.
struct CardRank {
  int Rank = 0;
  int Suit = 0;
  bool operator==(const CardRank&) const = default;
};

/// Of machine card 1..55, or 0.
[[nodiscard]] constexpr CardRank RankOfCard(int machineCard) {
  const int card = machineCard == 0 ? 0 : wire::MachineCard(machineCard).Card();
  if (card == 0) return {};
  return {kRanks + 2 - RankPosition(card), CardSuit(card)};
}

}  // namespace morvane::simulator
