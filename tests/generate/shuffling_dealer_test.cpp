#include "generate/shuffling_dealer.h"

#include <algorithm>
#include <deque>
#include <numeric>
#include <vector>

namespace morvane::generate {
namespace {

using Words = std::array<std::uint32_t, 4>;
constexpr Words kSomeState{0x01234567, 0x89ABCDEF, 0xFEDCBA98, 0x76543210};

/// The register as a row of 128 bits, the top bit of word 0 in front.
class BitRegister {
 public:
  explicit BitRegister(const Words& words) {
    for (const std::uint32_t word : words) {
      for (int bit = 31; bit >= 0; --bit) bits_.push_back((word >> bit & 1) != 0);
    }
  }
  void Step() {
    const bool full = std::all_of(bits_.begin(), bits_.end(), [](bool bit) { return bit; });
    // Bit n of word 0 stands at place 31 - n of the row: 27, 25, 4, 2.
    const bool odd = bits_[4] != bits_[6] ? bits_[27] == bits_[29] : bits_[27] != bits_[29];
    bits_.pop_front();
    bits_.push_back(!full && !odd);
  }
  [[nodiscard]] int Packet() const { return bits_[125] * 4 + bits_[126] * 2 + bits_[127] + 1; }
  [[nodiscard]] Words State() const {
    Words words{};
    for (std::size_t i = 0; i < 128; ++i) words[i / 32] = words[i / 32] * 2 + (bits_[i] ? 1U : 0U);
    return words;
  }

 private:
  std::deque<bool> bits_;
};

/// The deck after one riffle, packets drawn from `bits`.
std::vector<int> Riffled(const std::vector<int>& deck, BitRegister& bits) {
  std::vector<int> pileA;
  std::vector<int> pileB;
  std::deque<int> rest(deck.begin(), deck.end());
  for (bool toA = true; !rest.empty() || !toA; toA = !toA) {
    for (int i = 0; i < 3; ++i) bits.Step();
    for (int n = bits.Packet(); n > 0 && !rest.empty(); --n) {
      (toA ? pileA : pileB).push_back(rest.front());
      rest.pop_front();
    }
  }
  pileB.insert(pileB.end(), pileA.begin(), pileA.end());
  return pileB;
}

TEST(LfsrStep, TakesBits27And25And4And2OfTheFirstWordAndInvertsTheirSum) {
  const auto fedIn = [](std::uint32_t word0) {
    ShufflingDealer dealer;
    dealer.LfsrState = {word0, 0, 0, 0};
    dealer.LfsrStep();
    return dealer.LfsrState[3];
  };
  EXPECT_EQ(fedIn(0), 1U);
  for (unsigned bit = 0; bit < 32; ++bit) {
    const bool tap = bit == 27 || bit == 25 || bit == 4 || bit == 2;
    EXPECT_EQ(fedIn(1U << bit), tap ? 0U : 1U) << bit;
  }
  EXPECT_EQ(fedIn(1U << 27 | 1U << 2), 1U);
  EXPECT_EQ(fedIn(1U << 27 | 1U << 25 | 1U << 4), 0U);
}

TEST(LfsrStep, ShiftsAllWordsLeftAsOneRegister) {
  ShufflingDealer dealer;
  dealer.LfsrState = {0, 0x80000000, 0x80000000, 0x80000000};
  dealer.LfsrStep();
  EXPECT_EQ(dealer.LfsrState, (Words{1, 1, 1, 1}));
}

TEST(LfsrStep, GivesAPacketOfOneToEight) {
  ShufflingDealer dealer;
  dealer.LfsrState = {0, 0, 0, 3};
  dealer.LfsrStep();  // the last word becomes 7
  EXPECT_EQ(dealer.ShuffleStep, 8U);
  dealer.LfsrState = {1U << 27, 0, 0, 4};
  dealer.LfsrStep();  // the last word becomes 8
  EXPECT_EQ(dealer.ShuffleStep, 1U);
}

TEST(LfsrStep, AllOnesIsFreed) {
  ShufflingDealer dealer;
  dealer.LfsrState.fill(0xFFFFFFFF);
  dealer.LfsrStep();
  EXPECT_EQ(dealer.LfsrState, (Words{0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFE}));
  dealer.LfsrState = {0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFE, 0xFFFFFFFF};
  dealer.LfsrStep();  // one bit off: the four taps cancel and a 1 comes in as ever
  EXPECT_EQ(dealer.LfsrState, (Words{0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFD, 0xFFFFFFFF}));
}

TEST(LfsrStep, GoesLikeARowOfBits) {
  ShufflingDealer dealer;
  dealer.LfsrState = kSomeState;
  BitRegister bits(kSomeState);
  for (int i = 0; i < 10'000; ++i) {
    dealer.LfsrStep();
    bits.Step();
    ASSERT_EQ(dealer.LfsrState, bits.State()) << i;
    ASSERT_EQ(dealer.ShuffleStep, static_cast<std::uint32_t>(bits.Packet()));
  }
}

TEST(ShufflingDealer, StartsWithADeckInOrder) {
  const ShufflingDealer dealer;
  for (std::size_t k = 1; k <= kCards; ++k) EXPECT_EQ(dealer.Deck[k], static_cast<int>(k));
}

TEST(ShufflingDealer, RiffledFiftyTimesTheDeckIsDealtRound) {
  ShufflingDealer dealer;
  dealer.LfsrState = kSomeState;
  BitRegister bits(kSomeState);
  std::vector<int> deck(52);
  std::iota(deck.begin(), deck.end(), 1);
  for (int deal = 0; deal < 20; ++deal) {
    Board board;
    dealer.NextShuffledDeal(board);
    for (int i = 0; i < 50; ++i) deck = Riffled(deck, bits);
    for (std::size_t k = 0; k < 52; ++k) {
      ASSERT_EQ(dealer.Deck[k + 1], deck[k]) << deal;
      ASSERT_EQ(board.Cards[static_cast<std::size_t>(deck[k])], k % 4 + 1);
    }
    ASSERT_EQ(dealer.LfsrState, bits.State());
  }
}

TEST(ShufflingDealer, GoesOnFromTheLastDeck) {
  ShufflingDealer fresh;
  ShufflingDealer used;
  Board board;
  used.LfsrState = kSomeState;
  used.NextShuffledDeal(board);
  fresh.LfsrState = used.LfsrState;
  Board goneOn;
  used.NextShuffledDeal(goneOn);
  fresh.NextShuffledDeal(board);
  EXPECT_NE(goneOn.Cards, board.Cards);
}

TEST(ShufflingDealer, ItsDealsHaveNoNumberAndAllCards) {
  ShufflingDealer dealer;
  Board board = NumberedBoard(3);
  board.DealNumber[0] = 1;
  board.DealCounter[3] = 1;
  for (int i = 0; i < 100; ++i) {
    dealer.NextShuffledDeal(board);
    ASSERT_EQ(AnalyzeBoard(board), 4);
    EXPECT_EQ(board.DealNumber, (std::array<std::uint8_t, 12>{}));
    EXPECT_EQ(board.DealCounter, (std::array<std::uint8_t, 4>{}));
    EXPECT_EQ(board.Number, 0);
  }
}

}  // namespace
}  // namespace morvane::generate
