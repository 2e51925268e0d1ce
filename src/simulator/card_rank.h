#pragma once

#include <optional>
#include <string_view>

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

inline constexpr std::string_view kCardWords = "a suit and a rank, such as ST, or none";
/// The machine card of those words; 0 for "none".
[[nodiscard]] std::optional<int> MachineCardIn(std::string_view words);

}  // namespace morvane::simulator
