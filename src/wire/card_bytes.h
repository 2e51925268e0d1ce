#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "wire/machine_card.h"

namespace morvane::wire {

/// A byte for each of the machine's 55 cards, in the order in which a long frame has them. What it
/// says, a pocket or an order, is the frame's.
struct CardBytes {
  static constexpr std::size_t kPlaces = MachineCard::kLast;

  std::array<std::uint8_t, kPlaces> Bytes{};  ///< element 0 belongs to machine card 1

  [[nodiscard]] constexpr std::uint8_t& operator[](MachineCard card) {
    return Bytes[static_cast<std::size_t>(card.Number()) - 1];
  }
  [[nodiscard]] constexpr std::uint8_t operator[](MachineCard card) const {
    return Bytes[static_cast<std::size_t>(card.Number()) - 1];
  }
  bool operator==(const CardBytes&) const = default;
};

}  // namespace morvane::wire
