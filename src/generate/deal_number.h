#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <span>

#include "model/board.h"

namespace morvane::generate {

/// The number of a deal: 96 bits without sign, most significant word first.
struct DealNumber {
  std::array<std::uint32_t, 3> Words{};

  auto operator<=>(const DealNumber&) const = default;

  /// The same as twelve bytes, the most significant first.
  [[nodiscard]] static DealNumber OfBytes(std::span<const std::uint8_t, 12> bytes);
  [[nodiscard]] std::array<std::uint8_t, 12> Bytes() const;
  /// Divides the number in place; the remainder. `divisor` is not 0.
  /// Stands here so that a divisor known beforehand costs multiplications only.
  constexpr std::uint32_t DivideBy(std::uint32_t divisor) {
    std::uint64_t rest = 0;
    for (std::uint32_t& word : Words) {
      const std::uint64_t dividend = rest << 32U | word;
      word = static_cast<std::uint32_t>(dividend / divisor);
      rest = dividend % divisor;
    }
    return static_cast<std::uint32_t>(rest);
  }
};

/// How many bridge deals there are: 52! / (13!)^4.
inline constexpr DealNumber MaxDealNumber{{0xAD55E315, 0x634DDA65, 0x8BF49200}};

/// Gives every card of `board` to the hand that `number` says. `number` lies below `MaxDealNumber`;
/// each is another deal.
void DecodeDeal(DealNumber number, Board& board);

}  // namespace morvane::generate
