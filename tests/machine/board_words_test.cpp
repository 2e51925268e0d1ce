#include "machine/board_words.h"

#include <gtest/gtest.h>

namespace morvane::machine {
namespace {

BoardDisplay SevenOfTwoCopies() {
  BoardDisplay display;
  display.Board = " Board: 7";
  display.Copy = " Copy: 1/2";
  display.Vul = "Vul: All";
  display.Dealer = "Dealer: South";
  display.HandsShown = true;
  display.Hands[kNorth][1] = {{"A"}, {"K", false}, {"4"}};
  display.Hands[kNorth][4] = {{"T", false}, {"2", false}};
  display.Hands[kEast][2] = {{"Q"}};
  display.Hands[kWest][3] = {{"Kn"}, {"9"}};
  return display;
}

TEST(BoardInWords, TellsHandsAndWhatIsNotDealt) {
  EXPECT_EQ(BoardInWords(SevenOfTwoCopies()),
            "Board: 7, Copy: 1/2, Vul: All, Dealer: South. North: spades A K 4, clubs T 2; not "
            "dealt: spades K, clubs T 2. East: hearts Q. South: no cards. West: diamonds Kn 9. "
            "Analysis has not been completed for this board.");
}

TEST(BoardInWords, HiddenBoardsShowOnlyTheirHeading) {
  BoardDisplay display = SevenOfTwoCopies();
  display.HandsShown = false;
  display.Copy = "";
  EXPECT_EQ(BoardInWords(display), "Board: 7, Vul: All, Dealer: South.");
}

// Rows as they are drawn: North, South, East, West. North's results are the elements 0 to 4, East's
// 5 to 9, South's 10 to 14, West's 15 to 19.
TEST(BoardInWords, TellsTheTricksRowByRow) {
  BoardDisplay display = SevenOfTwoCopies();
  display.Hands = {};
  display.Analyzed = true;
  display.Tricks = {1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 5, 4, 3, 2, 1, 0, 0, 0, 0, 7, 0};
  const std::string words = BoardInWords(display);
  EXPECT_EQ(
      words.substr(words.find("Tricks")),
      "Tricks in no-trump, spades, hearts, diamonds, clubs: North 1 2 3 4 5; South 5 4 3 2 1; "
      "East 0 0 0 0 0; West 0 0 0 0 7.");
}

}  // namespace
}  // namespace morvane::machine
