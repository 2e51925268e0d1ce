#include "generate/ripemd160.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace morvane::generate {
namespace {

/// `Word` is one word, or a row of words that go through the same steps side by side.
template <typename Word>
using Block = std::span<const Word, 16>;

using Order = std::array<std::uint8_t, 16>;

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

/// The five functions. The left line takes them in this order, the right one from the last to the
/// first.
template <std::size_t kFunction, typename Word>
Word Mix(Word x, Word y, Word z) {
  if constexpr (kFunction == 0) return x ^ y ^ z;
  if constexpr (kFunction == 1) return (x & y) | (~x & z);
  if constexpr (kFunction == 2) return (x | ~y) ^ z;
  if constexpr (kFunction == 3) return (x & z) | (y & ~z);
  if constexpr (kFunction == 4) return x ^ (y | ~z);
}

template <int kBits, typename Word>
Word Rotated(Word word) {
  return word << kBits | word >> (32 - kBits);
}

template <typename Word>
struct Line {
  Word A, B, C, D, E;
};

template <std::size_t kFunction, int kShift, typename Word>
void Step(Line<Word>& line, Word word, std::uint32_t constant) {
  const Word sum = line.A + Mix<kFunction>(line.B, line.C, line.D) + word + constant;
  const Word mixed = Rotated<kShift>(sum) + line.E;
  line = {line.E, mixed, line.B, Rotated<10>(line.C), line.D};
}

template <std::size_t kStep, typename Word>
void StepBoth(Line<Word>& left, Line<Word>& right, Block<Word> block) {
  constexpr std::size_t kRound = kStep / 16;
  constexpr std::size_t kAt = kStep % 16;
  constexpr const RoundTable& kL = kLeft[kRound];
  constexpr const RoundTable& kR = kRight[kRound];
  Step<kRound, kL.Shifts[kAt]>(left, block[kL.Words[kAt]], kLeftConstants[kRound]);
  Step<4 - kRound, kR.Shifts[kAt]>(right, block[kR.Words[kAt]], kRightConstants[kRound]);
}

/// All steps written out, the two lines in turn: one line alone, each step of which waits for the
/// one before, would leave half of the processor idle.
template <typename Word, std::size_t... kSteps>
void StepAll(Line<Word>& left, Line<Word>& right, Block<Word> block,
             std::index_sequence<kSteps...>) {
  (StepBoth<kSteps>(left, right, block), ...);
}

template <typename Word>
std::array<Word, 5> Compressed(const std::array<Word, 5>& chain, Block<Word> block) {
  Line<Word> left{chain[0], chain[1], chain[2], chain[3], chain[4]};
  Line<Word> right = left;
  StepAll(left, right, block, std::make_index_sequence<80>());
  return {chain[1] + left.C + right.D, chain[2] + left.D + right.E, chain[3] + left.E + right.A,
          chain[4] + left.A + right.B, chain[0] + left.B + right.C};
}

}  // namespace

void Compress(Digest& chain, std::span<const std::uint32_t, 16> block) {
  chain = Compressed<std::uint32_t>(chain, block);
}

#ifdef __GNUC__

std::array<Digest, kBlockRow> DigestRow(std::span<const std::uint32_t, 16> first) {
  using Row [[gnu::vector_size(kBlockRow * sizeof(std::uint32_t))]] = std::uint32_t;
  std::array<Row, 16> block{};
  for (std::size_t i = 0; i < block.size(); ++i) block[i] = Row{} + first[i];
  block[0] += Row{0, 1, 2, 3};
  std::array<Row, 5> chain{};
  for (std::size_t i = 0; i < chain.size(); ++i) chain[i] = Row{} + kRipemdInitial[i];
  chain = Compressed<Row>(chain, block);
  std::array<Digest, kBlockRow> digests{};
  for (std::size_t n = 0; n < kBlockRow; ++n) {
    for (std::size_t i = 0; i < chain.size(); ++i) digests[n][i] = chain[i][n];
  }
  return digests;
}

#else

std::array<Digest, kBlockRow> DigestRow(std::span<const std::uint32_t, 16> first) {
  std::array<std::uint32_t, 16> block{};
  std::copy(first.begin(), first.end(), block.begin());
  std::array<Digest, kBlockRow> digests{};
  for (Digest& digest : digests) {
    digest = kRipemdInitial;
    Compress(digest, block);
    ++block[0];
  }
  return digests;
}

#endif

}  // namespace morvane::generate
