#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace morvane::generate {

/// The five chaining words of RIPEMD-160.
using Digest = std::array<std::uint32_t, 5>;

inline constexpr Digest kRipemdInitial{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0};

/// The RIPEMD-160 compression function: mixes one block into `chain`. Padding is the caller's,
/// since the pool is digested without any.
void Compress(Digest& chain, std::span<const std::uint32_t, 16> block);

/// The digests of `kBlockRow` messages of one padded block each, which differ only in word 0: it
/// counts up from that of `first`, modulo 2^32. A row takes little longer than a single digest.
inline constexpr std::size_t kBlockRow = 4;
[[nodiscard]] std::array<Digest, kBlockRow> DigestRow(std::span<const std::uint32_t, 16> first);

/// The little-endian word that starts at `bytes[0]`, as RIPEMD-160 reads its message.
[[nodiscard]] constexpr std::uint32_t LittleEndianWord(std::span<const std::uint8_t, 4> bytes) {
  return std::uint32_t{bytes[0]} | std::uint32_t{bytes[1]} << 8U | std::uint32_t{bytes[2]} << 16U |
         std::uint32_t{bytes[3]} << 24U;
}

/// Byte `index` 0..19 of `digest`, the low byte of each word first.
[[nodiscard]] constexpr std::uint8_t DigestByte(const Digest& digest, std::size_t index) {
  return static_cast<std::uint8_t>(digest[index / 4] >> (index % 4 * 8));
}

}  // namespace morvane::generate
