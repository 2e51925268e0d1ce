#include "generate/rejection.h"

#include <cmath>
#include <utility>

#include "model/shapes.h"
#include "support/fakes.h"

namespace morvane::generate {
namespace {

using Lengths = std::array<std::array<int, 4>, 4>;  // of each hand, its suits

constexpr RejectionSwitches kShapeOnly{.Shape = true};
constexpr RejectionSwitches kInnerOnly{.Inner = true};
constexpr RejectionSwitches kHistoryOnly{.History = true};

/// A board whose hands have these suit lengths, from the Ace down in hand order.
Board BoardOfLengths(const Lengths& lengths) {
  Board board;
  for (std::size_t suit = 0; suit < 4; ++suit) {
    std::size_t card = suit * 13 + 1;
    for (std::size_t hand = 0; hand < 4; ++hand) {
      for (int n = lengths[hand][suit]; n > 0; --n) {
        board.Cards[card++] = static_cast<std::uint8_t>(hand + 1);
      }
    }
  }
  EXPECT_EQ(AnalyzeBoard(board), 4);
  return board;
}

/// All four hands 4432.
const Lengths kPlain{{{4, 4, 3, 2}, {4, 3, 2, 4}, {3, 2, 4, 4}, {2, 4, 4, 3}}};
/// North 7600, the others 5422, 5422 and 4432.
const Lengths kRare{{{7, 6, 0, 0}, {2, 2, 5, 4}, {2, 2, 4, 5}, {2, 3, 4, 4}}};

void Exchange(Board& board, std::size_t cardA, std::size_t cardB) {
  std::swap(board.Cards[cardA], board.Cards[cardB]);
}

/// The board with one card of North exchanged for East's and one of South for West's: each hand
/// keeps twelve cards. Cards 1..4 of a round board lie one in each hand.
Board WithTwelveKept(Board board) {
  Exchange(board, 1, 2);
  Exchange(board, 3, 4);
  return board;
}

struct TestsOn {
  BoardSet Set;
  history::HistoryRing History;
  RejectionTests With(RejectionSwitches switches, int first = 1, RejectionLimits limits = {}) {
    return {Set, History, first, switches, limits};
  }
  std::int16_t& Count(std::string_view shape) {
    return Set.ShapeCount[static_cast<std::size_t>(ShapeIndex(shape))];
  }
};

TEST(ShapeLimit, IsTwiceTheExpectedCountRounded) {
  EXPECT_EQ(ShapeLimit(ShapeIndex("4432"), 1), 2);       // 1.724
  EXPECT_EQ(ShapeLimit(ShapeIndex("4432"), 32), 55);     // 55.171
  EXPECT_EQ(ShapeLimit(ShapeIndex("4432"), 640), 1103);  // 1103.42
  EXPECT_EQ(ShapeLimit(ShapeIndex("6322"), 1), 0);       // 0.451
  EXPECT_EQ(ShapeLimit(ShapeIndex("6322"), 2), 1);       // 0.903
  EXPECT_EQ(ShapeLimit(ShapeIndex("7330"), 23), 0);      // 0.488
  EXPECT_EQ(ShapeLimit(ShapeIndex("7330"), 24), 1);      // 0.509
  EXPECT_EQ(ShapeLimit(ShapeIndex("D000"), 640), 0);
  EXPECT_EQ(ShapeLimit(0, 640), 0);
}

TEST(ShapeLimit, NeverStandsHalfwaySoThatNoRuleForHalvesShows) {
  for (int shape = 0; shape <= Shapes.Count(); ++shape) {
    for (int k = 1; k <= kMaxBoards; ++k) {
      const float product = Shapes[shape].Frequency * 8.0F * static_cast<float>(k);
      ASSERT_NE(product - std::floor(product), 0.5F) << Shapes[shape].Name << " " << k;
    }
  }
}

TEST(ShapeTest, AShapeMayStandAsOftenAsItsLimit) {
  TestsOn on;
  RejectionTests tests = on.With(kShapeOnly);
  const Board candidate = BoardOfLengths(kPlain);
  on.Count("4432") = 2;
  EXPECT_FALSE(tests.Rejects(candidate, 1));
  EXPECT_EQ(tests.ShapeRejects, 0);
  on.Count("4432") = 3;
  EXPECT_TRUE(tests.Rejects(candidate, 1));
  EXPECT_EQ(tests.ShapeRejects, 1);
}

TEST(ShapeTest, TheLimitGrowsWithTheBoardNumberNotWithTheBoardsSoFar) {
  TestsOn on;
  RejectionTests tests = on.With(kShapeOnly, 32);
  on.Count("4432") = 55;
  EXPECT_FALSE(tests.Rejects(BoardOfLengths(kPlain), 32));
  on.Count("4432") = 56;
  EXPECT_TRUE(tests.Rejects(BoardOfLengths(kPlain), 32));
}

TEST(ShapeTest, AShapeWithLimitZeroIsAllowedOnceIfNothingRarerWasSeen) {
  TestsOn on;
  RejectionTests tests = on.With(kShapeOnly);
  const Board candidate = BoardOfLengths(kRare);
  EXPECT_FALSE(tests.Rejects(candidate, 1));
  on.Count("9220") = 1;  // the next more frequent one
  EXPECT_FALSE(tests.Rejects(candidate, 1));
  on.Count("7600") = 1;
  EXPECT_TRUE(tests.Rejects(candidate, 1));
}

TEST(ShapeTest, AShapeWithLimitZeroIsRefusedOnceAnythingRarerWasSeen) {
  const Board candidate = BoardOfLengths(kRare);
  for (const std::size_t rarer : {31U, 39U, 40U}) {  // next, last, one past the last
    TestsOn on;
    RejectionTests tests = on.With(kShapeOnly);
    on.Set.ShapeCount[rarer] = 1;
    EXPECT_TRUE(tests.Rejects(candidate, 1)) << rarer;
    EXPECT_EQ(tests.ShapeRejects, 1);
  }
}

TEST(ShapeTest, AShapeWithALimitDoesNotMindRarerOnes) {
  TestsOn on;
  RejectionTests tests = on.With(kShapeOnly);
  on.Count("D000") = 1;
  EXPECT_FALSE(tests.Rejects(BoardOfLengths(kPlain), 1));
}

TEST(ShapeTest, AHandOfThirteenHasNoShapeAndGivesWayToAnything) {
  TestsOn on;
  RejectionTests tests = on.With(kShapeOnly);
  const Board suits = test::SuitBoard(1);
  EXPECT_FALSE(tests.Rejects(suits, 640));
  on.Count("4432") = 1;
  EXPECT_TRUE(tests.Rejects(suits, 640));
  EXPECT_EQ(tests.ShapeRejects, 1);  // once for four such hands
}

TEST(InnerTest, AHandThatStandsInTheSetRejects) {
  TestsOn on;
  RejectionTests tests = on.With(kInnerOnly);
  on.Set.At(1) = test::RoundBoard(1);
  Board candidate = test::RoundBoard(2);
  Exchange(candidate, 2, 3);  // East and South differ; North and West are the same
  EXPECT_TRUE(tests.Rejects(candidate, 2));
  EXPECT_EQ(tests.InnerRejects, 1);
  EXPECT_EQ(tests.BestInner.Cards, 0);
}

TEST(InnerTest, AHandInAnotherSeatRejectsToo) {
  TestsOn on;
  RejectionTests tests = on.With(kInnerOnly);
  on.Set.At(1) = test::RoundBoard(1);
  EXPECT_TRUE(tests.Rejects(test::RoundBoard(2, kWest), 2));
}

TEST(InnerTest, TwelveCardsInCommonPassAndAreShownWithTheNewBoardFirst) {
  TestsOn on;
  RejectionTests tests = on.With(kInnerOnly, 5);
  on.Set.At(5) = test::RoundBoard(5);
  // The same cards one seat on, so that North of board 5 comes back as East of board 7.
  on.Set.At(6) = test::SuitBoard(6);
  EXPECT_FALSE(tests.Rejects(WithTwelveKept(test::RoundBoard(7, kEast)), 7));
  EXPECT_EQ(tests.BestInner.Text(), "12, 7E:5N");
  EXPECT_EQ(tests.InnerRejects, 0);
}

TEST(InnerTest, OnlyBoardsOfTheNewSetAreCompared) {
  TestsOn on;
  RejectionTests tests = on.With(kInnerOnly, 5);
  on.Set.At(4) = on.Set.At(6) = on.Set.At(7) = test::RoundBoard(4);
  on.Set.At(5) = test::SuitBoard(5);
  EXPECT_FALSE(tests.Rejects(test::RoundBoard(6), 6));
  EXPECT_EQ(tests.BestInner.OtherNumber, 5);
}

TEST(InnerTest, TheFirstOfEqualPairsStands) {
  TestsOn on;
  RejectionTests tests = on.With(kInnerOnly);
  on.Set.At(1) = on.Set.At(2) = WithTwelveKept(test::RoundBoard(1));
  EXPECT_FALSE(tests.Rejects(test::RoundBoard(3), 3));
  EXPECT_FALSE(tests.Rejects(test::RoundBoard(4), 3));
  EXPECT_EQ(tests.BestInner.Text(), "12, 3N:1N");
}

TEST(InnerTest, WhatWasSeenBeforeTheRejectionIsRemembered) {
  TestsOn on;
  RejectionTests tests = on.With(kInnerOnly);
  on.Set.At(1) = WithTwelveKept(test::RoundBoard(1));
  on.Set.At(2) = test::RoundBoard(2);
  EXPECT_TRUE(tests.Rejects(test::RoundBoard(3), 3));
  EXPECT_EQ(tests.BestInner.Text(), "12, 3N:1N");
  EXPECT_EQ(tests.InnerRejects, 1);
}

TEST(InnerTest, WithoutAPairTheTextIsEmpty) {
  TestsOn on;
  RejectionTests tests = on.With(kInnerOnly);
  EXPECT_FALSE(tests.Rejects(test::RoundBoard(1), 1));
  EXPECT_EQ(tests.BestInner.Text(), "");
}

TEST(HistoryTest, AnEmptyRingRejectsNothingAndShowsNothing) {
  TestsOn on;
  RejectionTests tests = on.With(kHistoryOnly);
  EXPECT_FALSE(tests.Rejects(test::RoundBoard(1), 1));
  EXPECT_EQ(tests.HistoryRejects, 0);
  EXPECT_EQ(tests.BestHistory.Text(), "");
  EXPECT_EQ(tests.BestHistory.File, "");
}

TEST(HistoryTest, ASimilarityOfAtLeastTheLimitRejects) {
  TestsOn on;
  RejectionTests tests = on.With(kHistoryOnly, 1, {.InnerLimit = 13, .HistoryLimit = 0});
  EXPECT_TRUE(tests.Rejects(test::RoundBoard(1), 1));
  EXPECT_TRUE(tests.Rejects(test::RoundBoard(1), 1));
  EXPECT_EQ(tests.HistoryRejects, 2);
}

TEST(BestPair, NamesBothBoardsWithTheirHands) {
  const BestPair pair{{9, 12, 'N', 5, 'E'}, "evening"};
  EXPECT_EQ(pair.Text(), "9, 12N:5E");
}

TEST(RejectionTests, ATestRunsOnlyIfNoneBeforeHasRejected) {
  TestsOn on;
  const RejectionSwitches all{true, true, true};
  const RejectionLimits strict{.InnerLimit = 0, .HistoryLimit = 0};
  on.Set.At(1) = test::RoundBoard(1);
  RejectionTests tests = on.With(all, 1, strict);
  on.Count("4432") = 3;
  EXPECT_TRUE(tests.Rejects(BoardOfLengths(kPlain), 1));  // no board before: shape alone
  EXPECT_EQ(tests.ShapeRejects, 1);
  on.Count("4432") = 0;
  EXPECT_TRUE(tests.Rejects(BoardOfLengths(kPlain), 2));
  EXPECT_TRUE(tests.Rejects(BoardOfLengths(kPlain), 1));
  EXPECT_EQ(tests.ShapeRejects, 1);
  EXPECT_EQ(tests.InnerRejects, 1);
  EXPECT_EQ(tests.HistoryRejects, 1);
}

TEST(RejectionTests, SwitchedOffLetEverythingPass) {
  TestsOn on;
  on.Set.ShapeCount.fill(1000);
  on.Set.At(1) = test::RoundBoard(1);
  RejectionTests tests = on.With({}, 1, {.InnerLimit = 0, .HistoryLimit = 0});
  EXPECT_FALSE(tests.Rejects(test::RoundBoard(2), 2));
}

}  // namespace
}  // namespace morvane::generate
