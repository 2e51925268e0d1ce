#include "model/board.h"

#include "model/board_set.h"
#include "model/shapes.h"
#include "model/similarity.h"
#include "support/fakes.h"

namespace morvane {
namespace {

using test::RoundBoard;
using test::SuitBoard;

TEST(Board, AllCardsUnassignedIsEmpty) {
  Board board;
  EXPECT_EQ(AnalyzeBoard(board), 0);
  EXPECT_EQ(board.Status, Board::kEmpty);
  EXPECT_EQ(board.Hcp, (std::array<std::uint8_t, 5>{}));
  EXPECT_EQ(board.Shape, (std::array<std::uint8_t, 5>{}));
}

TEST(Board, OneCardAssignedIsIncomplete) {
  Board board;
  board.Cards[52] = kWest;
  EXPECT_EQ(AnalyzeBoard(board), 0);
  EXPECT_EQ(board.Status, Board::kIncomplete);
}

TEST(Board, OneCardMissingLeavesOnlyItsHandWithoutShape) {
  Board board = RoundBoard(1);
  board.Cards[4] = 0;  // the Jack of Spades was West's
  EXPECT_EQ(AnalyzeBoard(board), 3);
  EXPECT_EQ(board.Status, Board::kIncomplete);
  EXPECT_EQ(board.HandCount[kWest], 12);
  EXPECT_EQ(board.Shape[kWest], 0);
  EXPECT_GT(board.Shape[kNorth], 0);
  EXPECT_GT(board.Shape[kEast], 0);
  EXPECT_GT(board.Shape[kSouth], 0);
}

TEST(Board, AHandNumberAboveFourCountsForNobody) {
  Board board = RoundBoard(1);
  board.Cards[1] = 5;
  EXPECT_EQ(AnalyzeBoard(board), 3);
  EXPECT_EQ(board.HandCount[kNorth], 12);
}

TEST(Board, FiguresOfAHandWorkedOut) {
  // North: AK of spades, all eleven cards of hearts from the Queen down: 7 + 2 + 1 points.
  Board board;
  board.Cards[1] = board.Cards[2] = kNorth;
  for (std::size_t card = 16; card <= 26; ++card) board.Cards[card] = kNorth;
  AnalyzeBoard(board);
  EXPECT_EQ(board.Hcp[kNorth], 10);
  EXPECT_EQ(board.ShortPoints[kNorth], 1 + 3 + 3);
  EXPECT_EQ(Shapes[board.Shape[kNorth]].Name, "B200");
  EXPECT_EQ(GetHandShape(board, kNorth), "B200");
}

TEST(Board, ThirteenSpadesHaveAShapeOnlyInTheAnalysis) {
  const Board board = SuitBoard(1);
  EXPECT_EQ(board.Status, Board::kComplete);
  EXPECT_EQ(board.Shape[kNorth], 39);
  EXPECT_EQ(board.ShortPoints[kNorth], 9);
  EXPECT_EQ(board.Hcp[kNorth], 10);
  EXPECT_EQ(GetHandShape(board, kNorth), "000");
  EXPECT_EQ(ShapeIndex(GetHandShape(board, kNorth)), 0);
}

TEST(Shapes, StandInOrderOfFallingFrequency) {
  EXPECT_EQ(Shapes.Count(), 39);
  EXPECT_EQ(ShapeIndex("4432"), 1);
  EXPECT_EQ(ShapeIndex("D000"), 39);
  for (int i = 2; i <= Shapes.Count(); ++i) {
    EXPECT_LE(Shapes[i].Frequency, Shapes[i - 1].Frequency) << Shapes[i].Name;
  }
}

TEST(Shapes, AnUnknownNameHasIndexZeroAndFrequencyZero) {
  EXPECT_EQ(ShapeIndex("1234"), 0);
  EXPECT_EQ(Shapes.Count(), 39);
  EXPECT_EQ(Shapes[0].Frequency, 0.0F);
}

TEST(Numbers, VulnerabilityFollowsTheSixteenBoardCycle) {
  const std::array<std::string_view, 16> cycle{"None", "NS",   "EW", "All", "NS",   "EW",
                                               "All",  "None", "EW", "All", "None", "NS",
                                               "All",  "None", "NS", "EW"};
  for (int n = 1; n <= 32; ++n) {
    EXPECT_EQ(VulName[static_cast<std::size_t>(VulOfNumber(n))],
              cycle[static_cast<std::size_t>((n - 1) % 16)])
        << n;
  }
  EXPECT_EQ(VulOfNumber(17), VulOfNumber(1));
}

TEST(Numbers, DealerGoesRoundFromNorth) {
  EXPECT_EQ(DealerOfNumber(1), kNorth);
  EXPECT_EQ(DealerOfNumber(2), kEast);
  EXPECT_EQ(DealerOfNumber(5), kNorth);
}

TEST(Numbers, ADealerOfItsOwnComesBeforeTheNumber) {
  Board board;
  EXPECT_EQ(BoardDealer(board, 3), kSouth);
  EXPECT_EQ(BoardVul(board, 4), 4);
  board.Dealer = kWest;
  board.Vul = 1;
  EXPECT_EQ(BoardDealer(board, 3), kWest);
  EXPECT_EQ(BoardVul(board, 4), 1);
}

TEST(Numbers, PocketsAndHandsAreInverse) {
  EXPECT_EQ(PocketOfHand[kNorth], 4);
  EXPECT_EQ(PocketOfHand[kSouth], 1);
  for (std::size_t hand = 1; hand <= 4; ++hand) EXPECT_EQ(HandOfPocket[PocketOfHand[hand]], hand);
}

TEST(CompareBoards, TellsCardsFromFrame) {
  const Board a = RoundBoard(1);
  Board b = a;
  EXPECT_EQ(CompareBoards(a, b), 2);
  b.Vul = 4;
  EXPECT_EQ(CompareBoards(a, b), 1);
  b.Cards[52] = 0;
  EXPECT_EQ(CompareBoards(a, b), 0);
}

TEST(CompareHands, CountsTheMostAlikePair) {
  const Board suits = SuitBoard(1);
  const Board round = RoundBoard(1);
  // Every hand of the one holds 3 or 4 cards of each suit; North (first to get one) 4 spades.
  const Similarity similarity = CompareHands(suits, round);
  EXPECT_EQ(similarity.Cards, 4);
  EXPECT_EQ(similarity.HandA, 'N');
  EXPECT_EQ(similarity.HandB, 'N');
  const Similarity same = CompareHands(suits, suits);
  EXPECT_EQ(same.Cards, 13);
}

TEST(CompareHands, WithoutACommonCardNamesNorthTwice) {
  const Similarity none = CompareHands(Board{}, RoundBoard(1));
  EXPECT_EQ(none.Cards, 0);
  EXPECT_EQ(none.HandA, 'N');
  EXPECT_EQ(none.HandB, 'N');
}

TEST(FillHandCards, GivesLengthsCardsAndPoints) {
  const HandCards hands = FillHandCards(SuitBoard(1));
  EXPECT_EQ(hands[kEast][2][0], 13);
  EXPECT_EQ(hands[kEast][2][1], 14);
  EXPECT_EQ(hands[kEast][2][13], 26);
  EXPECT_EQ(hands[kEast][1][0], 0);
  EXPECT_EQ(hands[kEast][0][0], 10);
}

TEST(BoardSet, ChangedIsComparedByNumber) {
  BoardSet set;
  EXPECT_FALSE(set.Changed());
  set.BoardSetChanged = "1";
  EXPECT_TRUE(set.Changed());
  set.BoardSetChanged = " 1.0";
  EXPECT_TRUE(set.Changed());
  set.BoardSetChanged = "";
  EXPECT_FALSE(set.Changed());
}

TEST(BoardSet, ClearLeavesNoSet) {
  BoardSet set;
  EXPECT_EQ(set.FirstBoard, 0);
  EXPECT_EQ(set.CurrentBoard, 1);
  test::FillSet(set, 3, 7);
  set.EventName = "Cup";
  set.Clear();
  EXPECT_FALSE(set.Exists());
  EXPECT_EQ(set.FirstBoard, 1);
  EXPECT_EQ(set.Count(), 0);
  EXPECT_EQ(set.EventName, "");
  EXPECT_EQ(set.At(5), Board{});
}

}  // namespace
}  // namespace morvane
