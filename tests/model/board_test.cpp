#include "model/board.h"

#include <algorithm>

#include "model/board_set.h"
#include "model/hand_text.h"
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

/// C(13, k), by the row's own rule that each entry follows from the one before.
double ChoicesOfASuit(int k) {
  double choices = 1;
  for (int i = 1; i <= k; ++i) choices = choices * (14 - i) / i;
  return choices;
}

/// The probability that a hand has four suits of these lengths, in any order.
double ProbabilityOf(std::string_view name) {
  constexpr double kHandsOfThirteen = 635'013'559'600.0;  // C(52, 13)
  std::string order(name);
  std::sort(order.begin(), order.end());
  double ways = 0;
  do {
    double choices = 1;
    for (const char c : order) {
      choices *= ChoicesOfASuit(static_cast<int>(std::string_view("0123456789ABCD").find(c)));
    }
    ways += choices;
  } while (std::next_permutation(order.begin(), order.end()));
  return ways / kHandsOfThirteen;
}

TEST(Shapes, HaveTheFrequenciesOfTheirSuitLengths) {
  // From "8500" on the table has fewer digits; half a unit of the last one is allowed.
  constexpr std::array<double, 9> kHalfUnits{5e-7, 5e-7, 5e-6,  5e-7, 5e-8,
                                             5e-8, 5e-8, 5e-10, 5e-13};
  double sum = 0;
  for (int i = 1; i <= Shapes.Count(); ++i) {
    const double expected = ProbabilityOf(Shapes[i].Name);
    const double tolerance =
        i > 30 ? kHalfUnits[static_cast<std::size_t>(i - 31)] : expected * 5.1e-6;
    EXPECT_NEAR(static_cast<double>(Shapes[i].Frequency), expected, tolerance) << Shapes[i].Name;
    sum += expected;
  }
  EXPECT_NEAR(sum, 1.0, 1e-12) << "no shape is missing or there twice";
}

TEST(Shapes, OfTwoEquallyFrequent7510Comes23rdAnd8320Next) {
  EXPECT_EQ(ShapeIndex("7510"), 23);
  EXPECT_EQ(ShapeIndex("8320"), 24);
  EXPECT_EQ(Shapes[23].Frequency, Shapes[24].Frequency);
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
  EXPECT_EQ(PocketOfHand[kEast], 3);
  EXPECT_EQ(PocketOfHand[kSouth], 1);
  EXPECT_EQ(PocketOfHand[kWest], 2);
  EXPECT_EQ(HandOfPocket[1], kSouth);
  EXPECT_EQ(HandOfPocket[2], kWest);
  EXPECT_EQ(HandOfPocket[3], kEast);
  EXPECT_EQ(HandOfPocket[4], kNorth);
}

TEST(Tables, SuitGlyphsStandFromSpadesToClubs) {
  EXPECT_EQ(SuitGlyphsTerminal, (std::string{6, 3, 4, 5}));
  const auto code = [](std::size_t at) { return static_cast<unsigned char>(SuitGlyphsSymbol[at]); };
  ASSERT_EQ(SuitGlyphsSymbol.size(), 4U);
  EXPECT_EQ(code(0), 170);
  EXPECT_EQ(code(1), 169);
  EXPECT_EQ(code(2), 168);
  EXPECT_EQ(code(3), 167);
}

TEST(Tables, NamesOfHandsAndVulnerabilities) {
  EXPECT_EQ(HandName, (std::array<std::string_view, 5>{"", "North", "East", "South", "West"}));
  EXPECT_EQ(VulName, (std::array<std::string_view, 5>{"", "None", "NS", "EW", "All"}));
  EXPECT_EQ(VulNameLong, (std::array<std::string_view, 5>{"", "None", "N-S", "E-W", "Both"}));
  EXPECT_EQ(HandLetter(kNorth), 'N');
  EXPECT_EQ(HandLetter(kEast), 'E');
  EXPECT_EQ(HandLetter(kSouth), 'S');
  EXPECT_EQ(HandLetter(kWest), 'W');
}

TEST(Tables, AHandIsFoundByItsLetterInEitherCase) {
  EXPECT_EQ(HandOfLetter('N'), kNorth);
  EXPECT_EQ(HandOfLetter('e'), kEast);
  EXPECT_EQ(HandOfLetter('S'), kSouth);
  EXPECT_EQ(HandOfLetter('w'), kWest);
  int letters = 0;
  for (int c = 0; c <= 255; ++c) letters += HandOfLetter(static_cast<char>(c)) != 0 ? 1 : 0;
  EXPECT_EQ(letters, 8);
}

TEST(Tables, CardsRunFromAceToTwoInEachSuitAndFourOfThemCount) {
  EXPECT_EQ(CardLetters, "AKQJT98765432");
  const std::array<int, 5> points{4, 3, 2, 1, 0};
  for (int suit = 1; suit <= 4; ++suit) {
    const int ace = (suit - 1) * 13 + 1;
    for (int i = 0; i < 5; ++i) {
      EXPECT_EQ(CardHcp(ace + i), points[static_cast<std::size_t>(i)]) << ace + i;
    }
    EXPECT_EQ(CardHcp(ace + 12), 0);
    EXPECT_EQ(CardSuit(ace), suit);
    EXPECT_EQ(CardSuit(ace + 12), suit);
    EXPECT_EQ(CardLetter(ace), 'A');
    EXPECT_EQ(CardLetter(ace + 4), 'T');
    EXPECT_EQ(CardLetter(ace + 12), '2');
  }
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

TEST(CompareBoards, NumberAndDealerCountEachAndCardZeroDoesNot) {
  const Board a = RoundBoard(1);
  Board b = a;
  b.Number = 2;
  EXPECT_EQ(CompareBoards(a, b), 1);
  b = a;
  b.Dealer = kEast;
  EXPECT_EQ(CompareBoards(a, b), 1);
  b = a;
  b.Cards[0] = kWest;
  EXPECT_EQ(CompareBoards(a, b), 2);
  b.Cards[1] = 0;
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

TEST(FillHandCards, LeavesOutTheCardsThatNobodyHolds) {
  Board board;
  board.Cards[1] = kWest;    // the Ace of Spades
  board.Cards[3] = kNorth;   // the Queen of Spades
  board.Cards[13] = kWest;   // the Two of Spades
  board.Cards[17] = kWest;   // the Jack of Hearts
  board.Cards[52] = kNorth;  // the Two of Clubs
  board.Cards[2] = 5;        // the King of Spades, at no hand
  HandCards expected{};
  expected[kWest][0][0] = 4 + 1;
  expected[kWest][1][0] = 2;
  expected[kWest][1][1] = 1;
  expected[kWest][1][2] = 13;
  expected[kWest][2][0] = 1;
  expected[kWest][2][1] = 17;
  expected[kNorth][0][0] = 2;
  expected[kNorth][1][0] = 1;
  expected[kNorth][1][1] = 3;
  expected[kNorth][4][0] = 1;
  expected[kNorth][4][1] = 52;
  EXPECT_EQ(FillHandCards(board), expected);
}

TEST(HandText, JoinsTheFourSuitsOfAHand) {
  Board board;
  EXPECT_EQ(HandText(board, kNorth, "."), "...");
  board.Cards[1] = board.Cards[13] = board.Cards[29] = kNorth;  // spades A and 2, diamond Q
  board.Cards[52] = kEast;                                      // club 2
  EXPECT_EQ(HandText(board, kNorth, "."), "A2..Q.");
  EXPECT_EQ(HandText(board, kEast, "--"), "------2");
  EXPECT_EQ(HandText(board, kWest, ""), "");
}

TEST(Board, CardsHeldAreThoseOfAllFourHands) {
  EXPECT_EQ(CardsHeld(Board{}), 0);
  Board board = test::SuitBoard(1);
  EXPECT_EQ(CardsHeld(board), 52);
  board.Cards[1] = board.Cards[30] = board.Cards[52] = 0;
  AnalyzeBoard(board);
  EXPECT_EQ(CardsHeld(board), 49);
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
