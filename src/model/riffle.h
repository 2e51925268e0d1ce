#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "model/tables.h"

namespace morvane {

/// [1..52]: a card.
using CardDeck = std::array<std::int8_t, kCards + 1>;

/// A packet of `size` cards taken at place `from` of a deck, or of what is left there.
[[nodiscard]] constexpr std::uint32_t LimitedPacket(std::uint32_t size, std::size_t from) {
  return size + from > kCards ? static_cast<std::uint32_t>(kCards + 1 - from) : size;
}

/// Deals `deck` out in packets to two piles in turn and puts the second pile before the first.
/// `nextPacket(from)` gives the size of the packet at place `from`, limited as above.
template <typename NextPacket>
void Riffle(CardDeck& deck, NextPacket nextPacket) {
  std::array<std::array<std::int8_t, kCards>, 2> piles{};
  std::array<std::size_t, 2> heights{};
  for (std::size_t i = 1; i <= kCards;) {
    for (const std::size_t pile : {0U, 1U}) {
      const std::uint32_t packet = nextPacket(i);
      std::copy_n(deck.begin() + static_cast<std::ptrdiff_t>(i), packet,
                  piles[pile].begin() + static_cast<std::ptrdiff_t>(heights[pile]));
      heights[pile] += packet;
      i += packet;
    }
  }
  const auto next = std::copy_n(piles[1].begin(), heights[1], deck.begin() + 1);
  std::copy_n(piles[0].begin(), heights[0], next);
}

}  // namespace morvane
