#include "edit/hand_swaps.h"

#include "edit/board_text.h"
#include "support/fakes.h"

namespace morvane::edit {
namespace {

/// Who holds spades, hearts, diamonds and clubs, which North, East, South and West held; the two of
/// clubs is nobody's and stays so.
std::string HoldersAfter(int swap) {
  Board board = test::SuitBoard(1);
  board.Cards[52] = 0;
  Swap(board, swap);
  EXPECT_EQ(board.Cards[52], 0);
  std::string holders;
  for (const std::size_t ace : {1U, 14U, 27U, 40U}) holders += HandLetter(board.Cards[ace]);
  return holders;
}

TEST(Swap, ExchangesTwoHands) {
  EXPECT_EQ(HoldersAfter(0), "WESN");
  EXPECT_EQ(HoldersAfter(1), "ENSW");
  EXPECT_EQ(HoldersAfter(2), "NSEW");
  EXPECT_EQ(HoldersAfter(3), "NEWS");
  EXPECT_EQ(HoldersAfter(4), "SENW");
  EXPECT_EQ(HoldersAfter(5), "NWSE");
}

TEST(Swap, CcwGoesOneHandOnAndCwThree) {
  EXPECT_EQ(HoldersAfter(6), "ESWN") << "North's cards are East's";
  EXPECT_EQ(HoldersAfter(7), "WNES") << "North's cards are West's";
}

TEST(RotateHands, TwiceTwoIsNothing) {
  Board board = test::RoundBoard(1);
  RotateHands(board, 2);
  EXPECT_NE(board.Cards, test::RoundBoard(1).Cards);
  RotateHands(board, 2);
  EXPECT_EQ(board.Cards, test::RoundBoard(1).Cards);
}

}  // namespace
}  // namespace morvane::edit
