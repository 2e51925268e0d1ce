#include "machine/board_walk.h"

#include "support/fakes.h"

namespace morvane::machine {
namespace {

using Step = BoardWalk::Step;

class BoardWalkTest : public ::testing::Test {
 protected:
  BoardSet set;
  RunMemory memory;
  BoardWalk walk{set, memory};

  void SetUp() override { test::FillSet(set, 5, 9); }
  /// "7/2": the board and its copy.
  [[nodiscard]] std::string Place() const {
    return std::to_string(set.CurrentBoard) + "/" + std::to_string(walk.CurrentCopy());
  }
};

TEST_F(BoardWalkTest, ItOpensOnTheWholeSetWithOneCopy) {
  memory = {6, 8, 4, ""};
  walk.Open(false, false);
  EXPECT_EQ(memory.RunFirst, 5);
  EXPECT_EQ(memory.RunLast, 9);
  EXPECT_EQ(memory.NumberOfCopies, 1);
  EXPECT_EQ(Place(), "5/1");
}

TEST_F(BoardWalkTest, ItOpensWhereItWasLeftAsFarAsTheSetStillHasIt) {
  memory = {6, 20, 4, ""};
  walk.Open(true, true);
  EXPECT_EQ(memory.RunFirst, 6);
  EXPECT_EQ(memory.RunLast, 9);
  EXPECT_EQ(memory.NumberOfCopies, 4);
  EXPECT_EQ(Place(), "6/1");
}

TEST_F(BoardWalkTest, AllCopiesOfABoardComeBeforeTheNextAndTheLastStays) {
  memory = {8, 9, 2, ""};
  walk.Open(true, true);
  std::vector<std::string> places{Place()};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(walk.AtEnd(), i == 3);
    walk.NextBoardStep();
    places.push_back(Place());
  }
  EXPECT_THAT(places, ::testing::ElementsAre("8/1", "8/2", "9/1", "9/2", "9/1"));
}

TEST_F(BoardWalkTest, EachButtonStaysWithinItsRange) {
  memory = {6, 7, 2, ""};
  walk.Open(true, true);
  walk.Take(Step::kPrev);
  walk.Take(Step::kPrevCopy);
  EXPECT_EQ(Place(), "6/1");
  EXPECT_TRUE(walk.AtFirstBoard() && walk.AtFirstCopy());
  walk.Take(Step::kNext);
  walk.Take(Step::kNextCopy);
  EXPECT_EQ(Place(), "7/2");
  walk.Take(Step::kNext);
  walk.Take(Step::kNextCopy);
  EXPECT_EQ(Place(), "7/2");
  EXPECT_TRUE(walk.AtEnd());
  walk.Take(Step::kFirst);
  EXPECT_EQ(Place(), "6/2");
  walk.Take(Step::kLast);
  EXPECT_EQ(Place(), "7/2");
}

TEST_F(BoardWalkTest, ARangeIsBroughtIntoTheSetAndTheBoardIntoTheRange) {
  walk.Open(false, true);
  EXPECT_TRUE(walk.SetFirst(7));
  EXPECT_EQ(Place(), "7/1");
  EXPECT_FALSE(walk.SetFirst(0)) << "board 7 is still within it";
  EXPECT_EQ(memory.RunFirst, 5);
  EXPECT_FALSE(walk.SetLast(700));
  EXPECT_EQ(memory.RunLast, 9);
  EXPECT_TRUE(walk.SetLast(3));
  EXPECT_EQ(memory.RunLast, 5);
  EXPECT_EQ(Place(), "5/1");
  EXPECT_TRUE(walk.SetFirst(700));
  EXPECT_EQ(memory.RunFirst, 9);
  EXPECT_EQ(memory.RunLast, 9);
}

TEST_F(BoardWalkTest, CopiesAreOneTo99AndTheCopyIsCutBack) {
  walk.Open(true, false);
  walk.SetCopies(100);
  EXPECT_EQ(memory.NumberOfCopies, 99);
  walk.Take(Step::kNextCopy);
  walk.Take(Step::kNextCopy);
  walk.SetCopies(2);
  EXPECT_EQ(Place(), "5/2");
  walk.SetCopies(0);
  EXPECT_EQ(memory.NumberOfCopies, 1);
  EXPECT_EQ(Place(), "5/1");
}

}  // namespace
}  // namespace morvane::machine
