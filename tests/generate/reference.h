#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "generate/ripemd160.h"
#include "model/board.h"

namespace morvane::generate::reference {

__extension__ typedef unsigned __int128 Wide;

/// RIPEMD-160 of a whole message, padded here byte by byte.
[[nodiscard]] Digest Ripemd160(std::string_view message);

/// The digest as its 40 lower-case digits.
[[nodiscard]] std::string DigestText(const Digest& digest);

/// C(n, k) for n 0..52 and k 0..13, by the product formula; 0 for k above n.
[[nodiscard]] Wide Choose(int n, int k);

/// The number of the deal on `board`, summed from the positions of its cards in the shrinking list.
[[nodiscard]] Wide EncodeDeal(const Board& board);

[[nodiscard]] Wide WideOfBytes(const std::array<std::uint8_t, 12>& bytes);
[[nodiscard]] std::array<std::uint8_t, 12> BytesOfWide(Wide value);

}  // namespace morvane::generate::reference
