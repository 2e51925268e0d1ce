#include "simulator/carrier.h"

namespace morvane::simulator {
namespace {

/// The pockets whose piles go on one another, from the bottom up; 0 = none.
using Order = std::array<std::size_t, kHands>;
constexpr std::size_t kS = PocketOfHand[kSouth];
constexpr std::size_t kW = PocketOfHand[kWest];
constexpr std::size_t kE = PocketOfHand[kEast];
constexpr std::size_t kN = PocketOfHand[kNorth];

Order OrderOf(Carry way) {
  switch (way) {
    case Carry::kPilesSwapped:
      return {kS, kE, kW};
    case Carry::kNorthToo:
      return {kN, kS, kW, kE};
    case Carry::kNothing:
      return {};
    default:
      return {kS, kW, kE};
  }
}

void Spoil(Pile& cards, Carry way) {
  if (cards.Count() < 2) return;
  const std::size_t middle = (cards.Count() - 1) / 2;
  if (way == Carry::kCardDropped) cards.RemoveAt(middle);
  if (way == Carry::kCardsExchanged) cards.Exchange(middle, middle + 1);
}

}  // namespace

void Carrier::CarryBack(Pockets& pockets, Feeder& feeder) {
  const Carry way = std::exchange(next_, Carry::kRight);
  if (way == Carry::kPileTurned) pockets[kE].TurnOver();
  Pile cards;
  for (const std::size_t pocket : OrderOf(way)) {
    cards.AddAll(pockets[pocket]);  // pocket 0 has none
    pockets[pocket].Clear();
  }
  Spoil(cards, way);
  feeder.Load(cards);
}

}  // namespace morvane::simulator
