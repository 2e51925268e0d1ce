#include "edit/edit_shuffle.h"

#include <numeric>

#include "support/fakes.h"

namespace morvane::edit {
namespace {

struct EditShuffle : ::testing::Test {
  test::FakeEntropy random;
  std::uint32_t x = 1;
  std::int32_t y = 0;
  CardDeck deck{};
  EditChance chance{random, x, y, deck};
  EditShuffle() { std::iota(deck.begin(), deck.end(), std::int8_t{0}); }
};

TEST_F(EditShuffle, TheSmallGeneratorByHand) {
  // x 1, y 0: carry 0, t 0.
  EXPECT_EQ(SmallRandomStep(chance), 1U);
  EXPECT_EQ(x, 3533U);
  EXPECT_EQ(y, 1);
  // 3533 x 3533 = 12482089 = 190 x 65536 + 30249; y = 1 x 3533 + 190 + 3533.
  EXPECT_EQ(SmallRandomStep(chance), 1U);
  EXPECT_EQ(x, 30249U);
  EXPECT_EQ(y, 7256);
  // 30249 x 3533 = 106869717 = 1630 x 65536 + 46037; y = (7256 x 3533 + 1630 + 30249) mod 65536.
  EXPECT_EQ(SmallRandomStep(chance), 6U) << "42751 / 8192 = 5";
  EXPECT_EQ(x, 46037U);
  EXPECT_EQ(y, 42751);
}

TEST_F(EditShuffle, TheLargestStatesDoNotRunOver) {
  x = 65535;
  y = 65535;
  // 65535 x 3533 = 231535155 = 3532 x 65536 + 62003; 62003 + 3532 + 65535 = 65536 + 65534.
  EXPECT_EQ(SmallRandomStep(chance), 8U);
  EXPECT_EQ(x, 62003U);
  EXPECT_EQ(y, 65534);
}

TEST_F(EditShuffle, ADayBefore2008CountsModulo65536) {
  y = -2;
  // -2 x 3533 + 0 + 1 = -7065 = 58471 mod 65536.
  EXPECT_EQ(SmallRandomStep(chance), 8U);
  EXPECT_EQ(y, 58471);
}

/// The shuffle again, in plain numbers and with piles that grow.
std::vector<int> ShuffledAgain(test::FakeEntropy& random, long x, long y, std::vector<int> cards) {
  const auto draw = [&random] { return static_cast<int>(random.Random() * 10 + 1); };
  draw();
  for (int riffle = 0; riffle < 10; ++riffle) {
    std::vector<int> piles[2];
    std::size_t taken = 0;
    for (int turn = 0; taken < 52 || turn % 2 == 1; ++turn) {
      long size = 0;
      for (int r = draw(); r > 0; --r) {
        const long carry = x * 3533 / 65536;
        const long oldX = x;
        x = x * 3533 % 65536;
        y = (y * 3533 + carry + oldX) % 65536;
        size = y / 8192 + 1;
      }
      for (; size > 0 && taken < 52; --size) piles[turn % 2].push_back(cards[taken++]);
    }
    cards = piles[1];
    cards.insert(cards.end(), piles[0].begin(), piles[0].end());
  }
  return cards;
}

TEST_F(EditShuffle, IsTheShuffleInPlainNumbers) {
  test::FakeEntropy again;
  for (const std::uint64_t seed : {1U, 2U, 42U}) {
    random.Seed(seed);
    again.Seed(seed);
    x = 4711;
    y = 6800;
    const std::vector<int> before(deck.begin() + 1, deck.end());
    ShuffleForEdit(chance);
    EXPECT_EQ(std::vector<int>(deck.begin() + 1, deck.end()),
              ShuffledAgain(again, 4711, 6800, before))
        << seed;
    EXPECT_EQ(random.Random(), again.Random()) << "the same number of draws";
  }
}

TEST_F(EditShuffle, KeepsAllCards) {
  for (int i = 0; i < 100; ++i) ShuffleForEdit(chance);
  std::sort(deck.begin() + 1, deck.end());
  for (std::size_t card = 1; card <= kCards; ++card) EXPECT_EQ(deck[card], static_cast<int>(card));
}

TEST_F(EditShuffle, TheFillPassesOverFullHandsRoundTheTable) {
  Board board = test::SuitBoard(1);
  for (std::size_t card = 14; card <= kCards; ++card) board.Cards[card] = 0;
  FillFromDeck(board, deck);
  // North has its thirteen spades; the other cards go to East, South, West in turn.
  for (std::size_t card = 14; card <= kCards; ++card) {
    EXPECT_EQ(board.Cards[card], kEast + static_cast<int>(card - 14) % 3) << card;
  }
}

TEST_F(EditShuffle, TheFillEndsWhereAHandHasTooMany) {
  Board board;
  for (std::size_t card = 1; card <= 15; ++card) board.Cards[card] = kWest;
  FillFromDeck(board, deck);
  AnalyzeBoard(board);
  EXPECT_EQ(board.HandCount[kWest], 15);
  EXPECT_EQ(board.HandCount[kNorth], 13) << "12 rounds of three, and one card more";
  EXPECT_EQ(board.HandCount[kEast], 12);
  EXPECT_EQ(board.HandCount[kSouth], 12);
}

TEST_F(EditShuffle, TheFillOfAnEmptyBoardIsComplete) {
  Board board;
  ShuffleForEdit(chance);
  FillFromDeck(board, deck);
  EXPECT_EQ(AnalyzeBoard(board), 4);
  EXPECT_EQ(board.Cards[static_cast<std::uint8_t>(deck[1])], kNorth);
  EXPECT_EQ(board.Cards[static_cast<std::uint8_t>(deck[6])], kEast) << "the sixth card in turn";
}

TEST_F(EditShuffle, TheFillOfACompleteBoardChangesNothing) {
  Board board = test::RoundBoard(1);
  FillFromDeck(board, deck);
  EXPECT_EQ(board.Cards, test::RoundBoard(1).Cards);
}

}  // namespace
}  // namespace morvane::edit
