#include "poker/random_deals.h"

#include <algorithm>

#include "model/tables.h"

namespace morvane::poker {
namespace {

/// Draws again while the card is one of `taken`, or none.
std::uint8_t DrawCard(Entropy& random, std::span<const std::uint8_t> taken) {
  while (true) {
    const int card = static_cast<int>(random.Random() * kCards) + 1;
    if (card < 1 || card > kCards) continue;
    if (std::find(taken.begin(), taken.end(), card) == taken.end()) {
      return static_cast<std::uint8_t>(card);
    }
  }
}

}  // namespace

PokerOrder EmptyOrder(int deals) {
  PokerOrder order;
  order.PokerDealCount = static_cast<std::int16_t>(deals);
  order.PokerOrderExists = true;
  return order;
}

void FillAtRandom(PokerOrder& order, Entropy& random) {
  for (std::size_t n = 1; n <= static_cast<std::size_t>(order.PokerDealCount); ++n) {
    PokerDeal& deal = order.PokerDeals[n];
    for (std::size_t slot = 1; slot <= kSlots; ++slot) {
      deal[slot] = DrawCard(random, std::span(deal).subspan(1, slot - 1));
    }
  }
}

}  // namespace morvane::poker
