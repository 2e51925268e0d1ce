#include "poker/stage_words.h"

#include <gmock/gmock.h>

namespace morvane::poker {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Task = PokerStage::Task;

std::string States(const PokerStage& stage) {
  std::string states;
  for (int run = 1; run <= kRuns; ++run) {
    states += (run == 1 ? "" : "|") + std::string(WordOf(StateOfRun(stage, run)));
  }
  return states;
}

TEST(PokerStageWords, FourStepsTellWhatIsDoneAndWhatIsNext) {
  EXPECT_EQ(States({.What = Task::kNothing}), "to come|to come|to come|to come");
  EXPECT_EQ(States({.What = Task::kDeal}), "next|to come|to come|to come");
  EXPECT_EQ(States({.What = Task::kDeal, .Running = true}), "running|to come|to come|to come");
  EXPECT_EQ(States({.What = Task::kDeal, .Done = 2}), "done|done|next|to come");
  EXPECT_EQ(States({.What = Task::kDeal, .Done = 3, .Running = true}), "done|done|done|running");
  EXPECT_EQ(States({.What = Task::kDeal, .Done = 4}), "done|done|done|done");
  EXPECT_EQ(States({.What = Task::kRead, .Running = true}), "to come|to come|to come|to come");
}

TEST(PokerStageWords, EastGoesOnTopAndSouthToTheBottomAndNorthStays) {
  const PilePicture picture =
      PicturePiles({.What = Task::kDeal, .Done = 1, .Carried = {10, 9, 9}, .Staying = 24});
  EXPECT_EQ(picture.Task, "Put the piles into the feeder");
  EXPECT_THAT(picture.Feeder, ElementsAre(Pile{"East", 10, "on top"}, Pile{"West", 9, ""},
                                          Pile{"South", 9, "at the bottom"}));
  EXPECT_THAT(picture.North, ElementsAre(Pile{"North", 24, "stays"}));
}

TEST(PokerStageWords, TheFirstRunNeedsAWholePackAndAReadingTheStackedOne) {
  PilePicture picture = PicturePiles({.What = Task::kDeal});
  EXPECT_EQ(picture.Task, "Put a whole pack into the feeder");
  EXPECT_THAT(picture.Feeder, ElementsAre(Pile{"Pack", 52, ""}));
  EXPECT_THAT(picture.North, IsEmpty());
  picture = PicturePiles({.What = Task::kRead});
  EXPECT_EQ(picture.Task, "Put the stacked pack into the feeder");
  EXPECT_THAT(picture.Feeder, ElementsAre(Pile{"Pack", 52, "as it lies"}));
}

TEST(PokerStageWords, BehindTheFourthRunThePackLiesInNorthAndTheNextGoesIn) {
  const PilePicture picture = PicturePiles({.What = Task::kDeal, .Done = 4});
  EXPECT_EQ(picture.Task, "Take the stacked pack, put in the next one");
  EXPECT_THAT(picture.Feeder, ElementsAre(Pile{"Pack", 52, "the next"}));
  EXPECT_THAT(picture.North, ElementsAre(Pile{"North", 52, "take it"}));
}

TEST(PokerStageWords, HandsHaveNothingToDoWhileCardsRunOrWithoutADeal) {
  EXPECT_EQ(PicturePiles({.What = Task::kDeal, .Running = true}).Task, "");
  EXPECT_EQ(PicturePiles({.What = Task::kRead, .Running = true}).Task, "");
  EXPECT_EQ(PicturePiles({.What = Task::kNothing}).Task, "");
}

TEST(PokerStageWords, TheProgressIsInCardsWhereTheMachineTellsElseInSeconds) {
  EXPECT_EQ(ProgressText({.Running = true, .Fallen = 12, .Count = 28, .Seconds = 5.9}),
            "12 of 28 cards");
  EXPECT_EQ(ProgressText({.Running = true, .Count = 28, .Seconds = 5.9}), "5 s");
  EXPECT_EQ(ProgressText({.Fallen = 12, .Count = 28}), "");
}

TEST(PokerStageWords, AreSpokenWhole) {
  EXPECT_EQ(
      StageInWords({.What = Task::kDeal, .Done = 2, .Carried = {9, 9, 9}, .Staying = 25}),
      "First Run done, Second Run done, Third Run next, Fourth Run to come. Put the piles into "
      "the feeder: East, 9 cards, on top; West, 9 cards; South, 9 cards, at the bottom; North, "
      "25 cards, stays.");
  EXPECT_EQ(StageInWords({.What = Task::kDeal, .Running = true, .Fallen = 3, .Count = 52}),
            "First Run running, Second Run to come, Third Run to come, Fourth Run to come.");
  EXPECT_EQ(StageInWords({.What = Task::kRead}),
            "Ready to read. Put the stacked pack into the feeder: Pack, 52 cards, as it lies.");
  EXPECT_EQ(StageInWords({.What = Task::kRead, .Running = true}), "Reading.");
  EXPECT_EQ(StageInWords({}), "No deal yet.");
}

}  // namespace
}  // namespace morvane::poker
