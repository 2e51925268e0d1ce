#include "generate/deal_number.h"

#include <algorithm>
#include <bit>

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

/// How many choices take a card, [cards behind it][cards wanted]: C(behind, wanted - 1), and none
/// when no card is wanted any more.
using ChoiceTable = std::array<std::array<std::uint64_t, 16>, kCards>;

constexpr ChoiceTable BuildChoices() {
  ChoiceTable table{};
  for (std::size_t behind = 0; behind < kCards; ++behind) {
    for (std::size_t wanted = 1; wanted <= kRanks; ++wanted) {
      table[behind][wanted] = Binomial[behind][wanted - 1];
    }
  }
  return table;
}

constexpr ChoiceTable ChoicesWithCard = BuildChoices();

/// All choices among the last ten cards, those that take fewer cards first, otherwise in lexical
/// order: the end of every hand is looked up.
constexpr std::size_t kTail = 10;
struct TailTable {
  std::array<std::uint16_t, 1U << kTail> Taken{};
  std::array<std::uint16_t, kTail + 1> First{};  ///< [cards wanted]: their first place in `Taken`
};

constexpr TailTable BuildTails() {
  TailTable table;
  std::uint16_t place = 0;
  for (int wanted = 0; wanted <= static_cast<int>(kTail); ++wanted) {
    table.First[static_cast<std::size_t>(wanted)] = place;
    for (std::uint16_t taken = 1U << kTail; taken-- > 0;) {
      if (std::popcount(taken) == wanted) table.Taken[place++] = taken;
    }
  }
  return table;
}

constexpr TailTable Tails = BuildTails();

/// A hand being picked from the cards left to it: choice number `Index` of 13. Choices are in
/// lexical order, cards in order from the Two of Clubs up to the Ace of Spades.
struct Pick {
  std::uint64_t Index = 0;
  std::uint64_t Wanted = kRanks;
  std::uint64_t Taken = 0;  ///< a bit for each card decided upon, the latest at the low end

  /// Decides upon the next card, with `behind` to come. Without a branch: a processor would guess
  /// one in four of them wrong, which costs more than all the rest.
  void Decide(std::size_t behind) {
    const std::uint64_t choices = ChoicesWithCard[behind][Wanted];
    const std::uint64_t take = Index < choices ? 1 : 0;
    Index -= choices & (take - 1);
    Wanted -= take;
    Taken = Taken << 1U | take;
  }
  /// Decides upon the last `kTail` cards.
  void Finish() { Taken = Taken << kTail | Tails.Taken[Tails.First[Wanted] + Index]; }
};

/// The hands in turn, since each decision has to wait for the hand's own one before, and only that.
void PickAll(Pick& north, Pick& east, Pick& south) {
  for (std::size_t behind = 26; behind-- > kTail;) {
    north.Decide(behind + 26);
    east.Decide(behind + 13);
    south.Decide(behind);
  }
  for (std::size_t behind = 13 + kTail; behind-- > kTail;) {
    north.Decide(behind + 13);
    east.Decide(behind);
  }
  for (std::size_t behind = 13 + kTail; behind-- > kTail;) north.Decide(behind);
  for (Pick* hand : {&north, &east, &south}) hand->Finish();
}

/// Opens a gap in `bits` wherever `taken` has a bit, from the low end up: a choice among the cards
/// that another hand left becomes one among those it was given.
std::uint64_t WithGaps(std::uint64_t bits, std::uint64_t taken) {
  for (; taken != 0; taken &= taken - 1) {
    const std::uint64_t fromGapUp = taken | (0 - taken);
    bits += bits & fromGapUp;  // twice what lies there is the same one place higher
  }
  return bits;
}

/// Bit 0 is card 1.
void GiveCards(Board& board, std::uint64_t cards, int hand) {
  for (; cards != 0; cards &= cards - 1) {
    board.Cards[static_cast<std::size_t>(std::countr_zero(cards)) + 1] =
        static_cast<std::uint8_t>(hand);
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

void DecodeDeal(DealNumber number, Board& board) {
  Pick south{number.DivideBy(kSouthHands)};
  const std::uint64_t eastLow = number.DivideBy(kEastLow);
  Pick east{std::uint64_t{number.DivideBy(kEastHigh)} * kEastLow + eastLow};
  Pick north{std::uint64_t{number.Words[1]} << 32U | number.Words[2]};
  PickAll(north, east, south);
  std::fill(board.Cards.begin() + 1, board.Cards.end(), std::uint8_t{kWest});
  GiveCards(board, north.Taken, kNorth);
  GiveCards(board, WithGaps(east.Taken, north.Taken), kEast);
  GiveCards(board, WithGaps(WithGaps(south.Taken, east.Taken), north.Taken), kSouth);
}

}  // namespace morvane::generate
