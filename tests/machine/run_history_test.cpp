#include "machine/run_history.h"

#include <gmock/gmock.h>

namespace morvane::machine {
namespace {

using ::testing::ElementsAre;
using ::testing::Optional;

class RunHistoryTest : public ::testing::Test {
 protected:
  RunHistory history;

  void Dealt(int board, double seconds, double endsAt) {
    history.Add({"Board " + std::to_string(board), seconds, "dealt", true}, endsAt);
  }
  void Stopped(int board, double endsAt) {
    history.Add({"Board " + std::to_string(board), 3, "stopped: Card Jam Error"}, endsAt);
  }
  [[nodiscard]] std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    for (const auto& entry : history.Entries()) lines.push_back(HistoryLine(entry));
    return lines;
  }
};

TEST_F(RunHistoryTest, TheLastBoardStandsFirst) {
  Dealt(7, 14.24, 20);
  Stopped(8, 30);
  EXPECT_THAT(Lines(), ElementsAre("Board 8   stopped: Card Jam Error", "Board 7   14.2 s   dealt"))
      << "the time of a board that was stopped says nothing";
}

TEST_F(RunHistoryTest, AHundredBoardsAreKept) {
  for (int board = 1; board <= 101; ++board) Dealt(board, 14, board * 20);
  EXPECT_EQ(history.Entries().size(), 100U);
  EXPECT_EQ(history.Count(), 101U);
  EXPECT_EQ(Lines().front(), "Board 101   14.0 s   dealt");
  EXPECT_EQ(Lines().back(), "Board 2   14.0 s   dealt");
}

TEST_F(RunHistoryTest, KnowsWhatWasDoneLastAndWell) {
  EXPECT_FALSE(history.HasJustDone("Board 1"));
  Dealt(1, 14, 20);
  EXPECT_TRUE(history.HasJustDone("Board 1"));
  EXPECT_FALSE(history.HasJustDone("Board 2"));
  Stopped(1, 40);
  EXPECT_FALSE(history.HasJustDone("Board 1"));
}

TEST_F(RunHistoryTest, NobodyKnowsHowLongABoardTakesBeforeTheFirstGoodOne) {
  Stopped(1, 5);
  EXPECT_EQ(history.SecondsEach(), std::nullopt);
}

TEST_F(RunHistoryTest, TheFirstGoodBoardTakesItsOwnTime) {
  Stopped(1, 5);
  Dealt(1, 14, 60);
  EXPECT_THAT(history.SecondsEach(), Optional(14.0));
}

TEST_F(RunHistoryTest, FromThenOnThePausesCount) {
  Dealt(1, 14, 20);
  Dealt(2, 14, 44);
  EXPECT_THAT(history.SecondsEach(), Optional(24.0));
  Dealt(3, 14, 64);
  EXPECT_THAT(history.SecondsEach(), Optional(22.0)) << "the mean of the two in the middle";
}

TEST_F(RunHistoryTest, ABreakDoesNotMoveIt) {
  Dealt(1, 14, 20);
  Dealt(2, 14, 40);
  Dealt(3, 14, 1240);
  Dealt(4, 14, 1262);
  EXPECT_THAT(history.SecondsEach(), Optional(22.0));
}

TEST_F(RunHistoryTest, AFaultBetweenTwoGoodBoardsIsPartOfTheirTime) {
  Dealt(1, 14, 20);
  Stopped(2, 30);
  Dealt(2, 14, 70);
  EXPECT_THAT(history.SecondsEach(), Optional(50.0));
}

TEST(LeftBehind, CountsEveryCopyOfEveryBoardToCome) {
  EXPECT_EQ(LeftBehind({1, 32, 1, ""}, 7, 1), 25);
  EXPECT_EQ(LeftBehind({1, 32, 3, ""}, 31, 2), 4) << "one copy of 31, three of 32";
  EXPECT_EQ(LeftBehind({1, 32, 3, ""}, 32, 3), 0);
  EXPECT_EQ(LeftBehind({1, 32, 0, ""}, 30, 1), 2) << "a read run has no copies";
}

TEST(LeftLine, SaysAboutHowLongWhereThatIsKnown) {
  EXPECT_EQ(LeftLine(25, std::nullopt), "25 boards left");
  EXPECT_EQ(LeftLine(25, 16.0), "25 boards left, about 7 minutes") << "400 s, rounded up";
  EXPECT_EQ(LeftLine(1, 16.0), "1 board left, less than a minute");
  EXPECT_EQ(LeftLine(2, 30.5), "2 boards left, about 2 minutes");
  EXPECT_EQ(LeftLine(240, 20.0), "240 boards left, about 1 h 20 min");
  EXPECT_EQ(LeftLine(180, 20.0), "180 boards left, about 1 h");
  EXPECT_EQ(LeftLine(0, 16.0), "No board left");
}

}  // namespace
}  // namespace morvane::machine
