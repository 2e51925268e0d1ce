#include "generate/ripemd160.h"

#include <bit>
#include <cstddef>

namespace morvane::generate {
namespace {

using Block = std::span<const std::uint32_t, 16>;
using Order = std::array<std::uint8_t, 16>;
using Function = std::uint32_t (*)(std::uint32_t, std::uint32_t, std::uint32_t);

/// The order in which a round takes the words of the block, and how far each step rotates.
struct RoundTable {
  Order Words;
  Order Shifts;
};

constexpr std::array<RoundTable, 5> kLeft{{
    {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15},
     {11, 14, 15, 12, 5, 8, 7, 9, 11, 13, 14, 15, 6, 7, 9, 8}},
    {{7, 4, 13, 1, 10, 6, 15, 3, 12, 0, 9, 5, 2, 14, 11, 8},
     {7, 6, 8, 13, 11, 9, 7, 15, 7, 12, 15, 9, 11, 7, 13, 12}},
    {{3, 10, 14, 4, 9, 15, 8, 1, 2, 7, 0, 6, 13, 11, 5, 12},
     {11, 13, 6, 7, 14, 9, 13, 15, 14, 8, 13, 6, 5, 12, 7, 5}},
    {{1, 9, 11, 10, 0, 8, 12, 4, 13, 3, 7, 15, 14, 5, 6, 2},
     {11, 12, 14, 15, 14, 15, 9, 8, 9, 14, 5, 6, 8, 6, 5, 12}},
    {{4, 0, 5, 9, 7, 12, 2, 10, 14, 1, 3, 8, 11, 6, 15, 13},
     {9, 15, 5, 11, 6, 8, 13, 12, 5, 12, 13, 14, 11, 8, 5, 6}},
}};

constexpr std::array<RoundTable, 5> kRight{{
    {{5, 14, 7, 0, 9, 2, 11, 4, 13, 6, 15, 8, 1, 10, 3, 12},
     {8, 9, 9, 11, 13, 15, 15, 5, 7, 7, 8, 11, 14, 14, 12, 6}},
    {{6, 11, 3, 7, 0, 13, 5, 10, 14, 15, 8, 12, 4, 9, 1, 2},
     {9, 13, 15, 7, 12, 8, 9, 11, 7, 7, 12, 7, 6, 15, 13, 11}},
    {{15, 5, 1, 3, 7, 14, 6, 9, 11, 8, 12, 2, 10, 0, 4, 13},
     {9, 7, 15, 11, 8, 6, 6, 14, 12, 13, 5, 14, 13, 13, 7, 5}},
    {{8, 6, 4, 1, 3, 11, 15, 0, 5, 12, 2, 13, 9, 7, 10, 14},
     {15, 5, 8, 11, 14, 14, 6, 14, 6, 9, 12, 9, 12, 5, 15, 8}},
    {{12, 15, 10, 4, 1, 5, 8, 7, 6, 2, 13, 14, 0, 3, 9, 11},
     {8, 5, 12, 9, 12, 5, 14, 6, 8, 13, 6, 5, 15, 13, 11, 11}},
}};

constexpr std::array<std::uint32_t, 5> kLeftConstants{0, 0x5A827999, 0x6ED9EBA1, 0x8F1BBCDC,
                                                      0xA953FD4E};
constexpr std::array<std::uint32_t, 5> kRightConstants{0x50A28BE6, 0x5C4DD124, 0x6D703EF3,
                                                       0x7A6D76E9, 0};

std::uint32_t F1(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return x ^ y ^ z; }
std::uint32_t F2(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return (x & y) | (~x & z); }
std::uint32_t F3(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return (x | ~y) ^ z; }
std::uint32_t F4(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return (x & z) | (y & ~z); }
std::uint32_t F5(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return x ^ (y | ~z); }

template <Function kFunction>
void Round(Digest& line, Block block, const RoundTable& table, std::uint32_t constant) {
  auto& [a, b, c, d, e] = line;
  for (std::size_t step = 0; step < block.size(); ++step) {
    const std::uint32_t sum = a + kFunction(b, c, d) + block[table.Words[step]] + constant;
    const std::uint32_t mixed = std::rotl(sum, table.Shifts[step]) + e;
    a = e;
    e = d;
    d = std::rotl(c, 10);
    c = b;
    b = mixed;
  }
}

}  // namespace

void Compress(Digest& chain, std::span<const std::uint32_t, 16> block) {
  Digest left = chain;
  Round<F1>(left, block, kLeft[0], kLeftConstants[0]);
  Round<F2>(left, block, kLeft[1], kLeftConstants[1]);
  Round<F3>(left, block, kLeft[2], kLeftConstants[2]);
  Round<F4>(left, block, kLeft[3], kLeftConstants[3]);
  Round<F5>(left, block, kLeft[4], kLeftConstants[4]);
  Digest right = chain;
  Round<F5>(right, block, kRight[0], kRightConstants[0]);
  Round<F4>(right, block, kRight[1], kRightConstants[1]);
  Round<F3>(right, block, kRight[2], kRightConstants[2]);
  Round<F2>(right, block, kRight[3], kRightConstants[3]);
  Round<F1>(right, block, kRight[4], kRightConstants[4]);
  chain = {chain[1] + left[2] + right[3], chain[2] + left[3] + right[4],
           chain[3] + left[4] + right[0], chain[4] + left[0] + right[1],
           chain[0] + left[1] + right[2]};
}

}  // namespace morvane::generate
