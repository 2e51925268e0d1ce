#include "generate/board_maker.h"

#include "model/shapes.h"
#include "support/fakes.h"

namespace morvane::generate {
namespace {

/// Board 1 stands; a candidate like it is rejected by the inner test, a suit board passes.
struct Bench {
  Bench() { Set.At(1) = test::RoundBoard(1); }

  /// Offers `rejects` candidates that can't pass, then ones that do.
  bool MakeSecond(int rejects) {
    return MakeBoard(Set, Tests, 2, [this, rejects](Board& board) {
      board = Board{};
      board.Cards = (++Drawn <= rejects ? test::RoundBoard(1) : test::SuitBoard(1)).Cards;
    });
  }

  BoardSet Set;
  history::HistoryRing History;
  RejectionTests Tests{Set, History, 1, {.Inner = true}, {}};
  int Drawn = 0;
};

TEST(MakeBoard, TakesTheFirstCandidateThatPasses) {
  Bench bench;
  EXPECT_TRUE(bench.MakeSecond(0));
  EXPECT_EQ(bench.Drawn, 1);
  EXPECT_TRUE(bench.MakeSecond(3 + bench.Drawn));
  EXPECT_EQ(bench.Drawn, 1 + 4);
  EXPECT_EQ(bench.Tests.InnerRejects, 3);
}

TEST(MakeBoard, GivesTheBoardItsNumberDealerVulnerabilityAndFigures) {
  Bench bench;
  ASSERT_TRUE(bench.MakeSecond(0));
  Board expected = test::SuitBoard(2);
  EXPECT_EQ(bench.Set.At(2), expected);
  EXPECT_EQ(bench.Set.At(2).Dealer, kEast);
  EXPECT_EQ(bench.Set.At(2).Vul, 2);
}

TEST(MakeBoard, TheFortyNinthAttemptCanSucceed) {
  Bench bench;
  EXPECT_TRUE(bench.MakeSecond(48));
  EXPECT_EQ(bench.Drawn, 49);
  EXPECT_EQ(bench.Tests.InnerRejects, 48);
  EXPECT_EQ(bench.Set.At(2).Status, Board::kComplete);
}

TEST(MakeBoard, TheFiftiethAttemptFailsThoughItWasNotRejected) {
  Bench bench;
  EXPECT_FALSE(bench.MakeSecond(49));
  EXPECT_EQ(bench.Drawn, 50);
  EXPECT_EQ(bench.Tests.InnerRejects, 49);
  EXPECT_EQ(bench.Set.At(2), Board{});
}

TEST(MakeBoard, FiftyRejectionsAreTheEnd) {
  Bench bench;
  EXPECT_FALSE(bench.MakeSecond(1000));
  EXPECT_EQ(bench.Drawn, 50);
  EXPECT_EQ(bench.Tests.InnerRejects, 50);
}

TEST(MakeBoard, EachBoardHasItsOwnAttempts) {
  Bench bench;
  EXPECT_TRUE(bench.MakeSecond(48));
  bench.Drawn = 0;
  EXPECT_TRUE(bench.MakeSecond(48));
}

TEST(MakeBoard, ARejectedCandidateDoesNotChangeTheShapeCounts) {
  Bench bench;
  EXPECT_FALSE(bench.MakeSecond(1000));
  EXPECT_EQ(bench.Set.ShapeCount, BoardSet().ShapeCount);
}

TEST(MakeBoard, AnAcceptedOneCountsTheShapeOfEachHand) {
  Bench bench;
  ASSERT_TRUE(bench.MakeSecond(5));
  // Hands of thirteen in one suit have no shape and count at 0.
  auto expected = BoardSet().ShapeCount;
  expected[0] = 4;
  EXPECT_EQ(bench.Set.ShapeCount, expected);

  Bench round;
  round.Set.At(1) = test::SuitBoard(1);
  ASSERT_TRUE(
      MakeBoard(round.Set, round.Tests, 2, [](Board& board) { board = test::RoundBoard(1); }));
  // Thirteen cards round four hands: every hand has one suit of four.
  expected = BoardSet().ShapeCount;
  expected[static_cast<std::size_t>(ShapeIndex("4333"))] = 4;
  EXPECT_EQ(round.Set.ShapeCount, expected);
}

}  // namespace
}  // namespace morvane::generate
