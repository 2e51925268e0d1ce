#include "cli/diagram.h"

#include <gtest/gtest.h>

#include "files/pbn_values.h"
#include "model/messages.h"

namespace morvane::cli {
namespace {

Board BoardOf(const std::string& deal) {
  Board board;
  EXPECT_EQ(files::ParsePbnDeal(deal, board, InitMessages()), "");
  AnalyzeBoard(board);
  return board;
}

TEST(BoardDiagram, HasEachHandAtItsPlace) {
  // Points: North A K Q = 9, East J and twice A K Q J = 21, South A K Q J = 10.
  const Board board =
      BoardOf("N:AKQ2.T98.7654.32 JT9.AKQJ.32.AKQJ 876.765.AKQJ.T98 543.432.T98.7654");
  EXPECT_EQ(BoardDiagram(board, 7),
            "Board 7   Dealer: South   Vul: All\n"
            "                  North (9)\n"
            "                  ♠ AKQ2\n"
            "                  ♥ T98\n"
            "                  ♦ 7654\n"
            "                  ♣ 32\n"
            "West (0)                            East (21)\n"
            "♠ 543                               ♠ JT9\n"
            "♥ 432                               ♥ AKQJ\n"
            "♦ T98                               ♦ 32\n"
            "♣ 7654                              ♣ AKQJ\n"
            "                  South (10)\n"
            "                  ♠ 876\n"
            "                  ♥ 765\n"
            "                  ♦ AKQJ\n"
            "                  ♣ T98\n");
}

TEST(BoardDiagram, AVoidIsADashAndALongSuitKeepsItsColumn) {
  const Board board =
      BoardOf("N:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432");
  EXPECT_EQ(BoardDiagram(board, 1),
            "Board 1   Dealer: North   Vul: None\n"
            "                  North (10)\n"
            "                  ♠ AKQJT98765432\n"
            "                  ♥ -\n"
            "                  ♦ -\n"
            "                  ♣ -\n"
            "West (10)                           East (10)\n"
            "♠ -                                 ♠ -\n"
            "♥ -                                 ♥ AKQJT98765432\n"
            "♦ -                                 ♦ -\n"
            "♣ AKQJT98765432                     ♣ -\n"
            "                  South (10)\n"
            "                  ♠ -\n"
            "                  ♥ -\n"
            "                  ♦ AKQJT98765432\n"
            "                  ♣ -\n");
}

TEST(BoardDiagram, DealerAndVulnerabilityOfTheBoardGoBeforeThoseOfItsNumber) {
  Board board = NumberedBoard(1);
  board.Dealer = kWest;
  board.Vul = 3;
  EXPECT_EQ(BoardDiagram(board, 1), "Board 1   Dealer: West   Vul: EW   (empty)\n");
}

TEST(BoardDiagram, AnEmptyBoardIsOneLine) {
  EXPECT_EQ(BoardDiagram(Board{}, 2), "Board 2   Dealer: East   Vul: NS   (empty)\n");
}

TEST(BoardDiagram, AnIncompleteBoardSaysSo) {
  const std::string text = BoardDiagram(BoardOf("E:2... 3"), 640);
  EXPECT_EQ(text.substr(0, text.find('\n')), "Board 640   Dealer: West   Vul: EW   (incomplete)");
  EXPECT_NE(text.find("\n♠ -                                 ♠ 2\n"), std::string::npos) << text;
  EXPECT_NE(text.find("South (0)\n                  ♠ 3\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace morvane::cli
