#include "machine/known_boards.h"
#include "machine/read_and_sort_fixture.h"
#include "support/frame_list.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::Each;
using ::testing::ElementsAre;

using FramesOfASort = SortFixture;

const std::string kStart = "35 00 00 00 0B 24 00";
const std::string kGoOnFrame = "35 01 00 00 0B 24 00";
const std::string kBreakFrame = "19 01 .. .. .. .. ..";
const std::string kPedalSeen = "19 02 .. .. .. .. ..";

TEST_F(FramesOfASort, AShortFrameStartsItAndTheCardLogEndsIt) {
  Contact();
  sorting.cmdSort();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kStart, kThreePolls, kCardLog, kProbe}));
  EXPECT_EQ(LastLine(), "  Sort: 0,0,0,0 OK");
}

TEST_F(FramesOfASort, TheRotationGoesRound) {
  Contact();
  for (int i = 0; i < 5; ++i) sorting.cmdSort();
  EXPECT_TRUE(FramesAre(SentOf(0x35), {kStart, "35 00 00 01 3D 56 00", "35 00 00 02 6F 88 00",
                                       "35 00 00 03 A1 BA 00", kStart}));
}

TEST_F(FramesOfASort, TheCardsStandInBytes2And6) {
  desk.Store.Set(kNational, "5");
  desk.Store.Set(kThreshold, "1");
  desk.Store.Set(kCardIndex, "2");
  Contact();
  sorting.cmdSort();
  EXPECT_TRUE(FramesAre(SentOf(0x35), {"35 00 56 00 0B 24 05"}));
  EXPECT_EQ(LastLine(), "  Sort: 5,0,1,2 OK");
}

TEST_F(FramesOfASort, AFaultIsContinuedWithByte1Set) {
  paper.Codes = {55};
  view.Answers = {
      [this](ErrorDialog& dialog) { desk.Loop.After(150, [&dialog] { dialog.PressContinue(); }); }};
  Contact();
  sorting.cmdSort();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kStart, kThreePolls, kCardLog, kDialogPoll, kGoOnFrame,
                                      kThreePolls, kCardLog, kProbe}));
  EXPECT_EQ(LastLine(), "  Sort: 0,0,0,0 55 OK");
}

TEST_F(FramesOfASort, TheBreakOfItsOwnButtonAndCancel) {
  paper.BusyPolls = 10;
  view.Answers = {Cancel};
  Contact();
  desk.Loop.OnPump = [this] {
    if (SentOf(0x19).size() == 2) sorting.cmdBreak();
  };
  sorting.cmdSort();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kStart, kPoll + " x2", kBreakFrame, kCardLog, kProbe}));
  EXPECT_THAT(view.Errors, ElementsAre("Break Dealing|Error Code: 57"));
  EXPECT_EQ(LastLine(), "  Sort: 0,0,0,0 57");
  EXPECT_TRUE(sorting.Window().Controls.cmdSort);
  EXPECT_FALSE(sorting.Window().Controls.cmdBreak);
}

TEST_F(FramesOfASort, ThePedalPressesCmdSort) {
  Contact();
  paper.Events = 8;
  desk.Loop.WaitMs(200);
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {kPoll, kStart, kPedalSeen, kPoll + " x2", kCardLog, kProbe, kPoll}));
}

TEST_F(FramesOfASort, AnInsertedBoardDoesItByTheSavedValueOfTheHiddenOption) {
  for (const char* saved : {"0", "1"}) {
    desk.Store.Set(kInitStartFromBox, saved);
    SortingRun fresh(desk.Prog, machine, memory);
    machine.Link.UsbHandle = 7;
    fresh.Open(view);
    desk.Loop.WaitMs(MachineRun::kFirstContactMs + 1000);
    bridge.Sent.clear();
    paper.Events = 16;
    desk.Loop.WaitMs(100);
    EXPECT_EQ(SentOf(0x35).size(), saved[0] == '1' ? 1U : 0U);
    EXPECT_EQ(desk.Store.Get(kInitStartFromBox), saved);
    fresh.Exit();
  }
}

TEST_F(FramesOfASort, NoLabelIsRead) {
  desk.Store.Set(kCheckBoard, "1");
  Contact();
  sorting.cmdSort();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kStart, kThreePolls, kCardLog, kProbe}));
}

TEST_F(FramesOfASort, NeitherCardsNorSetAreNeeded) {
  desk.Prog.Set.Clear();
  Contact();
  sorting.cmdSort();
  EXPECT_EQ(LastLine(), "  Sort: 0,0,0,0 OK");
}

TEST_F(FramesOfASort, TheCountsRiseTo63AndTheirTargetIs52) {
  paper.FinalCount = 0xFF;  // of which six bits count
  Contact();
  sorting.cmdSort();
  EXPECT_THAT(std::vector<int>(machine.CardCount.begin() + 1, machine.CardCount.end()), Each(63));
  EXPECT_EQ(sorting.CountTarget(), 52);
}

TEST_F(FramesOfASort, AMachineThatReportsNoCardHasSortedNone) {
  paper.FinalCount = 0;  // it restarted in the middle
  Contact();
  desk.Ui.OnBox = [this] { paper.Events = 8; };
  sorting.cmdSort();
  EXPECT_THAT(desk.LogLines(), ::testing::Contains("  Sort: 0,0,0,0"));
  EXPECT_EQ(sorting.LastOutcome(), MachineRun::Outcome::kStopped);
  EXPECT_EQ(sorting.Flow(), CardFlow::kStopped);
  EXPECT_EQ(LastBox(),
            "      The machine has stopped and reports no card in its pockets.      \r\n\r\n"
            "      Please put the cards together and sort them again.      ");
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Sort Error");
  desk.Loop.WaitMs(300);
  EXPECT_EQ(SentOf(0x35).size(), 1U) << "the pedal behind the box starts nothing";
}

TEST_F(FramesOfASort, OnlyTheBreakCanBePressedMeanwhile) {
  Contact();
  int looks = 0;
  view.OnState = [&] {
    if (machine.MachineState != Machine::kBusy) return;
    ++looks;
    const RunControls& now = sorting.Window().Controls;
    EXPECT_TRUE(now.cmdBreak);
    EXPECT_FALSE(now.cmdSort || now.cmdExit || now.Options);
  };
  desk.Loop.OnPump = [this] { sorting.cmdSort(); };
  sorting.cmdSort();
  EXPECT_EQ(looks, 2) << "at the start, and when the first cards lie";
  EXPECT_EQ(SentOf(0x35).size(), 1U);
}

TEST_F(FramesOfASort, TheFirstLineOfItsLogTellsTheMachine) {
  Contact();
  EXPECT_EQ(LastLine(), "  S/N:4711 Dealt:258 Firmware:2.90");
}

}  // namespace
}  // namespace morvane::machine
