#include "generate/deal_number.h"

#include <algorithm>

#include "model/tables.h"

namespace morvane::generate {
namespace {

/// C(n, k) for n 0..52 and k 0..13; all fit 64 bits, the greatest is C(52, 13), about 6.4 x 10^11.
using BinomialTable = std::array<std::array<std::uint64_t, kRanks + 1>, kCards + 1>;

constexpr BinomialTable BuildBinomial() {
  BinomialTable table{};
  for (std::size_t n = 0; n <= kCards; ++n) {
    table[n][0] = 1;
    for (std::size_t k = 1; k <= std::min<std::size_t>(n, kRanks); ++k) {
      table[n][k] = table[n - 1][k - 1] + table[n - 1][k];
    }
  }
  return table;
}

constexpr BinomialTable Binomial = BuildBinomial();

// A deal number is (North x C(39, 13) + East) x C(26, 13) + South, each hand counted among the
// choices of 13 from the cards left to it. C(39, 13) is divided out in two factors of 32 bits.
constexpr std::uint32_t kSouthHands = 10'400'600;
constexpr std::uint32_t kEastLow = 4;
constexpr std::uint32_t kEastHigh = 2'030'606'361;
static_assert(Binomial[26][13] == kSouthHands);
static_assert(Binomial[39][13] == std::uint64_t{kEastLow} * kEastHigh);

/// Gives `hand` its choice number `index` of 13 from the `left` cards without a hand. Choices are
/// in lexical order, cards in order from the Two of Clubs up to the Ace of Spades.
void GiveHand(Board& board, int hand, std::size_t left, std::uint64_t index) {
  std::size_t wanted = kRanks;
  for (std::size_t card = kCards; wanted > 0; --card) {
    if (board.Cards[card] != 0) continue;
    --left;
    const std::uint64_t choicesWithCard = Binomial[left][wanted - 1];
    if (index < choicesWithCard) {
      board.Cards[card] = static_cast<std::uint8_t>(hand);
      --wanted;
    } else {
      index -= choicesWithCard;
    }
  }
}

}  // namespace

DealNumber DealNumber::OfBytes(std::span<const std::uint8_t, 12> bytes) {
  DealNumber number;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    number.Words[i / 4] = number.Words[i / 4] << 8U | bytes[i];
  }
  return number;
}

std::array<std::uint8_t, 12> DealNumber::Bytes() const {
  std::array<std::uint8_t, 12> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] = static_cast<std::uint8_t>(Words[i / 4] >> (24 - i % 4 * 8));
  }
  return bytes;
}

std::uint32_t DealNumber::DivideBy(std::uint32_t divisor) {
  std::uint64_t rest = 0;
  for (std::uint32_t& word : Words) {
    const std::uint64_t dividend = rest << 32U | word;
    word = static_cast<std::uint32_t>(dividend / divisor);
    rest = dividend % divisor;
  }
  return static_cast<std::uint32_t>(rest);
}

void DecodeDeal(DealNumber number, Board& board) {
  const std::uint64_t south = number.DivideBy(kSouthHands);
  const std::uint64_t eastLow = number.DivideBy(kEastLow);
  const std::uint64_t east = std::uint64_t{number.DivideBy(kEastHigh)} * kEastLow + eastLow;
  const std::uint64_t north = std::uint64_t{number.Words[1]} << 32U | number.Words[2];
  GiveHand(board, kNorth, 52, north);
  GiveHand(board, kEast, 39, east);
  GiveHand(board, kSouth, 26, south);
  GiveHand(board, kWest, 13, 0);
}

}  // namespace morvane::generate
