#include "model/statistics.h"

#include <array>
#include <cmath>
#include <random>
#include <string>

#include "model/point_frequency.h"
#include "support/deal_statistics.h"
#include "support/fakes.h"

namespace morvane {
namespace {

/// The totals that a hand of a shape adds to, by shape index, as they were laid down.
int Listed(int shape, const std::vector<std::vector<int>>& lists) {
  for (std::size_t adds = 1; adds <= lists.size(); ++adds) {
    const auto& shapes = lists[adds - 1];
    if (std::find(shapes.begin(), shapes.end(), shape) != shapes.end()) {
      return static_cast<int>(adds);
    }
  }
  return 0;
}

ShapeTraits ListedTraits(int shape) {
  return {
      .Balanced = Listed(shape, {{1, 2, 5}}),
      .Voids = Listed(shape, {{12, 13, 14, 16, 19, 20, 23, 24, 25, 26, 28, 29, 32, 36},
                              {30, 31, 33, 35, 37, 38},
                              {39}}),
      .Singletons = Listed(
          shape, {{3, 7, 8, 9, 10, 11, 21, 23, 25, 26, 28, 32, 38}, {15, 18, 22, 27, 36}, {34}}),
      .LongSuits = shape == 11 || (shape >= 17 && shape != 25) ? 1 : 0};
}

TEST(ShapeTraits, OfEveryShapeAreThoseOfTheLists) {
  for (int shape = 0; shape <= Shapes.Count(); ++shape) {
    EXPECT_EQ(TraitsOf(shape), ListedTraits(shape)) << shape << " " << Shapes[shape].Name;
  }
}

TEST(ShapeTraits, AHandOf7600HasTwoVoidsAndOneLongSuit) {
  EXPECT_EQ(TraitsOf(ShapeIndex("7600")), (ShapeTraits{.Voids = 2, .LongSuits = 1}));
}

TEST(ShapeTraits, AHandOf6610HasOneVoidOneSingletonAndNoLongSuit) {
  EXPECT_EQ(TraitsOf(ShapeIndex("6610")), (ShapeTraits{.Voids = 1, .Singletons = 1}));
}

TEST(ShapeTable, TheRowBehindTheLastShapeIsNoShape) {
  EXPECT_EQ(Shapes[40].Name, "****");
  EXPECT_EQ(Shapes.Count(), 39);
  EXPECT_EQ(ShapeIndex("****"), 0);
}

/// A board whose hands, North first, hold these suits, each "AK2.Q.-.T" from spades to clubs.
Board BoardOf(const std::array<std::string, 4>& hands) {
  Board board = NumberedBoard(1);
  for (int hand = kNorth; hand <= kWest; ++hand) {
    int suit = 1;
    for (const char c : hands[static_cast<std::size_t>(hand - 1)]) {
      if (c == '.') ++suit;
      const int card = CardOf(suit, c);
      EXPECT_TRUE(card == 0 || GiveCard(board, card, hand));
    }
  }
  EXPECT_EQ(AnalyzeBoard(board), 4);
  return board;
}

/// North 7600 and East 6610 with 20 points each, South and West 5332 with none.
Board MixedBoard() {
  return BoardOf({"AKQJT98.AKQJT9..", ".8.AKQJT9.AKQJT9", "765.765.87654.87", "432.432.32.65432"});
}

TEST(SetTotals, AddUpHandByHand) {
  SetTotals totals;
  totals.Add(MixedBoard());
  EXPECT_EQ(totals.CompletedBoards, 1);
  EXPECT_EQ(totals.HcpTotal, (SetTotals::ByHand{0, 20, 20, 0, 0}));
  EXPECT_EQ(totals.VoidCount, (SetTotals::ByHand{0, 2, 1, 0, 0}));
  EXPECT_EQ(totals.SingletonCount, (SetTotals::ByHand{0, 0, 1, 0, 0}));
  EXPECT_EQ(totals.LongSuitCount, (SetTotals::ByHand{0, 1, 0, 0, 0}));
  EXPECT_EQ(totals.BalancedHands, (SetTotals::ByHand{0, 0, 0, 1, 1}));
  EXPECT_EQ(totals.ShapeCount[static_cast<std::size_t>(ShapeIndex("7600"))], 1);
  EXPECT_EQ(totals.ShapeCount[static_cast<std::size_t>(ShapeIndex("6610"))], 1);
  EXPECT_EQ(totals.ShapeCount[static_cast<std::size_t>(ShapeIndex("5332"))], 2);
  EXPECT_EQ(totals.HandsByHcp[20], 2);
  EXPECT_EQ(totals.HandsByHcp[0], 2);
  totals.Add(MixedBoard());
  EXPECT_EQ(totals.HcpTotal[kEast], 40);
  EXPECT_EQ(totals.VoidCount[kNorth], 4);
  EXPECT_EQ(totals.CardCount[1], (std::array<std::int16_t, 5>{0, 2, 0, 0, 0})) << "spade A";
  EXPECT_EQ(totals.CardCount[52], (std::array<std::int16_t, 5>{0, 0, 0, 0, 2})) << "club 2";
}

TEST(SetTotals, TakeTheCompleteBoardsOfTheRangeOnly) {
  BoardSet set;
  test::FillSet(set, 1, 9);
  set.At(5).Cards[1] = 0;
  AnalyzeBoard(set.At(5));
  set.At(6) = NumberedBoard(6);
  EXPECT_EQ(TotalsOf(set, 1, 9).CompletedBoards, 7);
  EXPECT_EQ(TotalsOf(set, 3, 6).CompletedBoards, 2);  // 3 and 4
  EXPECT_EQ(TotalsOf(set, 5, 6).CompletedBoards, 0);
  EXPECT_EQ(TotalsOf(set, 1, 0).CompletedBoards, 0);
  const SetTotals totals = TotalsOf(set, 3, 6);
  int hands = 0;
  for (const int count : totals.HandsByHcp) hands += count;
  EXPECT_EQ(hands, 8);
}

TEST(ListedShapes, OfOneBoardAreThree) {
  // 0.2155 x 4, 0.1552 x 4 and 0.1293 x 4 round to 1; 0.1058 x 4 rounds to 0.
  EXPECT_EQ(ListedShapes(1), 3);
}

TEST(ListedShapes, OfNoBoardAreNone) { EXPECT_EQ(ListedShapes(0), 0); }

TEST(ListedShapes, GrowWithTheBoards) {
  // Of the 128 hands of 32 boards: "7411" (0.00392) is expected 0.502 times, which rounds to 1, and
  // "7420" (0.00362) 0.463 times.
  EXPECT_EQ(ListedShapes(32), 18);
  // Of 2560 hands: "9310" 0.257 rounds to 0, "9211" 0.456 too, "8410" 1.157 to 1.
  EXPECT_EQ(ListedShapes(640), 26);
}

TEST(ExpectedHands, AreRoundedHalfToEvenOfTheProductIn32Bits) {
  EXPECT_EQ(ExpectedHands(1, 4), 1);       // 0.862
  EXPECT_EQ(ExpectedHands(4, 4), 0);       // 0.423
  EXPECT_EQ(ExpectedHands(1, 2560), 552);  // 551.71
  // 0.000031F is a little more than 0.000031: 0.5 of 16129.03 hands.
  EXPECT_EQ(ExpectedHands(ShapeIndex("8500"), 16129), 0);
  EXPECT_EQ(ExpectedHands(ShapeIndex("8500"), 16130), 1);
}

TEST(CardExtremes, TheFirstOfEqualsStandsHandByHand) {
  SetTotals totals;
  totals.Add(MixedBoard());
  const CardExtremes once = CardExtremesOf(totals);
  EXPECT_EQ(once.Most, (CardFrequency{1, 1, kNorth})) << "spade A, the first that North has";
  EXPECT_EQ(once.Least, (CardFrequency{0, 8, kNorth})) << "spade 7, the first that he has not";
}

TEST(CardExtremes, AStrictlyGreaterOrSmallerCountTakesTheirPlace) {
  SetTotals totals;
  for (auto& hands : totals.CardCount) hands = {0, 5, 5, 5, 5};
  totals.CardCount[40][kEast] = 7;
  totals.CardCount[50][kEast] = 7;
  totals.CardCount[3][kSouth] = 7;
  totals.CardCount[30][kSouth] = 2;
  totals.CardCount[2][kWest] = 2;
  const CardExtremes extremes = CardExtremesOf(totals);
  EXPECT_EQ(extremes.Most, (CardFrequency{7, 40, kEast}));
  EXPECT_EQ(extremes.Least, (CardFrequency{2, 30, kSouth}));
}

/// Cards dealt at random from a fixed seed, some of them left out.
Board RandomBoard(std::mt19937& random, int n, int leftOut) {
  std::array<int, kCards> cards{};
  for (int i = 0; i < kCards; ++i) cards[static_cast<std::size_t>(i)] = i + 1;
  for (std::size_t i = cards.size() - 1; i > 0; --i) std::swap(cards[i], cards[random() % (i + 1)]);
  Board board = NumberedBoard(n);
  for (int i = 0; i < kCards - leftOut; ++i) {
    const auto card = static_cast<std::size_t>(cards[static_cast<std::size_t>(i)]);
    board.Cards[card] = static_cast<std::uint8_t>(i % kHands + 1);
  }
  AnalyzeBoard(board);
  return board;
}

/// The likeness of two boards counted card by card.
Similarity Counted(const Board& a, const Board& b) {
  std::array<int, 16> common{};
  for (std::size_t card = 1; card <= kCards; ++card) {
    if (a.Cards[card] == 0 || b.Cards[card] == 0) continue;
    ++common[(a.Cards[card] - 1U) * 4 + (b.Cards[card] - 1U)];
  }
  const auto most = std::max_element(common.begin(), common.end());
  const auto at = most - common.begin();
  return {*most, "NESW"[at / 4], "NESW"[at % 4]};
}

AlikePair CountedInnerSimilarity(const BoardSet& set) {
  AlikePair best;
  for (int i = set.FirstBoard + 1; i <= set.LastBoard; ++i) {
    for (int j = set.FirstBoard; j < i; ++j) {
      const Similarity s = Counted(set.At(i), set.At(j));
      if (s.Cards > best.Cards) best = {s.Cards, i, s.HandA, j, s.HandB};
    }
  }
  return best;
}

TEST(InnerSimilarity, IsThatOfTheLoopOverAllPairsAndCards) {
  std::mt19937 random(20261122);
  for (const int boards : {2, 3, 17, 64, 200}) {
    for (const int leftOut : {0, 5, 40}) {
      BoardSet set;
      set.FirstBoard = 7;
      set.LastBoard = static_cast<std::int16_t>(6 + boards);
      for (int n = 7; n <= set.LastBoard; ++n) set.At(n) = RandomBoard(random, n, leftOut);
      EXPECT_EQ(InnerSimilarity(set), CountedInnerSimilarity(set)) << boards << " " << leftOut;
    }
  }
}

TEST(InnerSimilarity, TheFirstPairStandsAmongEqualsAndTheLaterBoardInFront) {
  BoardSet set;
  set.FirstBoard = 3;
  set.LastBoard = 6;
  for (int n = 3; n <= 6; ++n) set.At(n) = test::RoundBoard(n);  // the same deal four times
  EXPECT_EQ(InnerSimilarity(set).Text(), "13, 4N:3N");
}

TEST(InnerSimilarity, CountsIncompleteBoardsToo) {
  BoardSet set;
  test::FillSet(set, 1, 3);
  set.At(1) = NumberedBoard(1);
  for (const int n : {2, 3}) {
    set.At(n) = NumberedBoard(n);
    set.At(n).Cards[10] = set.At(n).Cards[20] = kWest;
    AnalyzeBoard(set.At(n));
  }
  EXPECT_EQ(InnerSimilarity(set).Text(), "2, 3W:2W");
}

TEST(InnerSimilarity, OfOneBoardOrOfEmptyOnesHasNoPair) {
  BoardSet set;
  EXPECT_EQ(InnerSimilarity(set), AlikePair());
  test::FillSet(set, 1, 1);
  EXPECT_EQ(InnerSimilarity(set), AlikePair());
  set.LastBoard = 2;
  set.At(1) = NumberedBoard(1);
  EXPECT_EQ(InnerSimilarity(set).Text(), "");
}

TEST(PointFrequency, IsThatOfCountingTheHonoursOut) {
  const auto choices = [](int of, int taken) {
    return std::tgamma(of + 1.0) / std::tgamma(taken + 1.0) / std::tgamma(of - taken + 1.0);
  };
  std::array<double, 38> frequency{};
  for (int a = 0; a <= 4; ++a) {
    for (int k = 0; k <= 4; ++k) {
      for (int q = 0; q <= 4; ++q) {
        for (int j = 0; j <= 4 && a + k + q + j <= 13; ++j) {
          const int points = 4 * a + 3 * k + 2 * q + j;
          frequency[static_cast<std::size_t>(points)] +=
              choices(4, a) * choices(4, k) * choices(4, q) * choices(4, j) *
              choices(36, 13 - a - k - q - j) / static_cast<double>(test::kAllHands);
        }
      }
    }
  }
  double sum = 0;
  for (int points = 0; points <= kMostPoints; ++points) {
    EXPECT_NEAR(PointFrequency(points), frequency[static_cast<std::size_t>(points)], 1e-12);
    sum += PointFrequency(points);
  }
  EXPECT_NEAR(sum, 1, 1e-12);
  // No honour: 13 of the 36 small cards, C(36, 13). All but a jack's three: 4 hands.
  EXPECT_NEAR(PointFrequency(0) * 635'013'559'600.0, 2'310'789'600.0, 1);
  EXPECT_NEAR(PointFrequency(37) * 635'013'559'600.0, 4, 1e-6);
  EXPECT_EQ(PointFrequency(-1), 0);
  EXPECT_EQ(PointFrequency(38), 0);
}

}  // namespace
}  // namespace morvane
