#include "edit/board_text.h"

#include "support/fakes.h"

namespace morvane::edit {
namespace {

constexpr int kNorthSpades = 0;
constexpr int kNorthClubs = 3;
constexpr int kEastSpades = 4;
constexpr int kWestClubs = 15;

TEST(SuitBoxes, StandHandByHandAndSuitBySuit) {
  EXPECT_EQ(HandOfBox(0), kNorth);
  EXPECT_EQ(HandOfBox(7), kEast);
  EXPECT_EQ(HandOfBox(15), kWest);
  EXPECT_EQ(SuitOfBox(0), 1);
  EXPECT_EQ(SuitOfBox(7), 4);
  EXPECT_EQ(SuitOfBox(10), 3);
}

TEST(SuitText, HasTheLettersInCardOrder) {
  Board board;
  for (const int card : {13, 1, 5}) board.Cards[static_cast<std::size_t>(card)] = kNorth;
  board.Cards[52] = kWest;
  EXPECT_EQ(SuitText(board, kNorthSpades), "AT2") << "cards 1, 5 and 13";
  EXPECT_EQ(SuitText(board, kNorthClubs), "");
  EXPECT_EQ(SuitText(board, kWestClubs), "2");
}

TEST(MissingText, HasWhatNobodyHolds) {
  Board board = test::SuitBoard(1);
  EXPECT_EQ(MissingText(board, 2), "");
  board.Cards[14] = board.Cards[26] = 0;
  EXPECT_EQ(MissingText(board, 2), "A2");
  EXPECT_EQ(MissingText(Board{}, 4), "AKQJT98765432");
}

TEST(ParseSuit, TakesLowerCaseAndBlanks) {
  Board board;
  ParseSuit(board, kNorthSpades, "  akT2 ");
  EXPECT_EQ(SuitText(board, kNorthSpades), "AKT2");
}

TEST(ParseSuit, IgnoresWhatIsNoRankLetter) {
  Board board;
  ParseSuit(board, kNorthSpades, "K10x\xC3\xA4-9");
  EXPECT_EQ(SuitText(board, kNorthSpades), "K9") << "also the 1 and the 0 of a ten";
}

TEST(ParseSuit, TakesACardFromTheHandThatHeldIt) {
  Board board;
  ParseSuit(board, kNorthSpades, "AKQ");
  ParseSuit(board, kEastSpades, "K9");
  EXPECT_EQ(SuitText(board, kNorthSpades), "AQ");
  EXPECT_EQ(SuitText(board, kEastSpades), "K9");
}

TEST(ParseSuit, ClearsTheHandsOtherCardsOfTheSuitAlone) {
  Board board = test::SuitBoard(1);
  ParseSuit(board, kNorthSpades, "3");
  EXPECT_EQ(SuitText(board, kNorthSpades), "3");
  EXPECT_EQ(MissingText(board, 1), "AKQJT9876542");
  EXPECT_EQ(SuitText(board, kWestClubs), "AKQJT98765432");
}

TEST(CountText, SaysWhatIsOff) {
  EXPECT_EQ(CountText(13), "13 \u2713");
  EXPECT_EQ(CountText(0), "0 \u2717 13 missing");
  EXPECT_EQ(CountText(14), "14 \u2717 1 too many");
}

TEST(HandLine, IsTheHandBehindItsLetter) {
  Board board;
  ParseSuit(board, kEastSpades, "A2");
  ParseSuit(board, kEastSpades + 2, "J");
  EXPECT_EQ(HandLine(board, kEast), "E: A2..J.");
  EXPECT_EQ(HandLine(board, kNorth), "N: ...");
}

}  // namespace
}  // namespace morvane::edit
