#include "machine/known_boards.h"
#include "machine/run_fixture.h"
#include "support/frame_list.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::IsEmpty;

class FramesOfAStart : public RunFixture {
 protected:
  /// Presses the pedal when command `at` from now has come, before it is answered.
  void PressAtExchange(int at) {
    paper.OnCommand = [this, left = at](const Bytes&) mutable {
      if (left-- == 0) paper.Events = 8;
    };
  }
};

const std::string kStart = "98 00 00 00 0B 24 00" + kBoard1;
const std::string kPedalSeen = "19 02 .. .. .. .. ..";
const std::string kBoxSeen = "19 04 .. .. .. .. ..";
const std::string kBothSeen = "19 06 .. .. .. .. ..";

TEST_F(FramesOfAStart, ThePedalStartsWithThePollThatReportsItAndIsAcknowledgedByTheNext) {
  Contact();
  desk.Loop.WaitMs(200);
  paper.Events = 8;
  desk.Loop.WaitMs(200);
  EXPECT_TRUE(FramesAre(bridge.Sent,
                        {kThreePolls, kStart, kPedalSeen, kPoll + " x2", kCardLog, kProbe, kPoll}));
}

TEST_F(FramesOfAStart, ABoardPutInAfterNineQuietPollsStartsNothing) {
  Contact();
  desk.Loop.WaitMs(900);
  paper.Events = 16;
  desk.Loop.WaitMs(300);
  EXPECT_TRUE(FramesAre(bridge.Sent, {kPoll + " x10", kBoxSeen, kPoll}));
}

TEST_F(FramesOfAStart, ABoardPutInAfterTenQuietPollsStarts) {
  Contact();
  desk.Loop.WaitMs(1000);
  paper.Events = 16;
  desk.Loop.WaitMs(200);
  EXPECT_TRUE(FramesAre(
      bridge.Sent, {kPoll + " x11", kStart, kBoxSeen, kPoll + " x2", kCardLog, kProbe, kPoll}));
}

TEST_F(FramesOfAStart, AnActiveSlotBeginsTheCountAnew) {
  Contact();
  desk.Loop.WaitMs(1000);
  paper.Events = 4;
  desk.Loop.WaitMs(100);  // the eleventh poll: the count is 0, and 1 behind it
  paper.Events = 0;
  desk.Loop.WaitMs(800);  // 9
  paper.Events = 16;
  desk.Loop.WaitMs(300);
  EXPECT_TRUE(FramesAre(bridge.Sent, {kPoll + " x20", kBoxSeen, kPoll}));
  EXPECT_EQ(machine.BoxInTicks, 9);
}

TEST_F(FramesOfAStart, TenPollsBehindAnActiveSlotAreEnough) {
  Contact();
  paper.Events = 4;
  desk.Loop.WaitMs(100);
  paper.Events = 0;
  desk.Loop.WaitMs(900);
  paper.Events = 16;
  desk.Loop.WaitMs(100);
  EXPECT_EQ(machine.BoxInTicks, 10);
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {kPoll + " x11", kStart, kBoxSeen, kPoll + " x2", kCardLog, kProbe}));
}

TEST_F(FramesOfAStart, WithoutTheOptionABoardIsOnlyAcknowledged) {
  Contact();
  run.Change(&RunOptions::SetStart_from_box, false);
  desk.Loop.WaitMs(1000);
  paper.Events = 16;
  desk.Loop.WaitMs(300);
  EXPECT_TRUE(FramesAre(bridge.Sent, {kPoll + " x11", kBoxSeen, kPoll}));
}

TEST_F(FramesOfAStart, PedalAndBoardAtOnceAreOneStart) {
  Contact();
  desk.Loop.WaitMs(1000);
  paper.Events = 8 | 16;
  desk.Loop.WaitMs(200);
  EXPECT_TRUE(FramesAre(
      bridge.Sent, {kPoll + " x11", kStart, kBothSeen, kPoll + " x2", kCardLog, kProbe, kPoll}));
}

TEST_F(FramesOfAStart, ThePedalDealsTheNextBoardWhereThereIsOne) {
  Contact();
  run.cmdDeal();
  bridge.Sent.clear();
  paper.Events = 8;
  desk.Loop.WaitMs(100);
  EXPECT_TRUE(FramesAre(bridge.Sent, {kPoll, "98 00 00 01 3D 56 00" + kBoard2, kPedalSeen,
                                      kPoll + " x2", kCardLog, kProbe}));
}

/// When the pedal is pressed, and how the first two polls behind the board go out.
struct LatePress {
  int At;  ///< with this of the board's exchanges, from 0
  std::vector<std::string> Behind;
};

TEST_F(FramesOfAStart, ThePedalDuringABoardStartsTheNextOnlyWhereThePollsBehindItReportIt) {
  const std::vector<std::string> none{kPoll + " x2"};
  // The start, three polls, card log, probe. What a poll of the run reports is acknowledged by the
  // next, behind the last one by the first poll that follows.
  const std::vector<LatePress> rows{{0, none}, {2, none}, {3, {kPedalSeen, kPoll}}};
  for (const LatePress& row : rows) {
    SCOPED_TRACE(row.At);
    RunMemory freshMemory;
    RecordingView freshView(desk);
    DealingRun fresh(desk.Prog, machine, freshMemory);
    machine.Link.UsbHandle = 7;
    fresh.Open(freshView);
    desk.Loop.WaitMs(DealingRun::kFirstContactMs);
    PressAtExchange(row.At);
    fresh.cmdDeal();
    bridge.Sent.clear();
    desk.Loop.WaitMs(250);
    EXPECT_TRUE(FramesAre(bridge.Sent, row.Behind));
    fresh.Exit();
  }
}

TEST_F(FramesOfAStart, ThePedalWhileTheCardLogIsFetchedStartsTheNextBoard) {
  Contact();
  PressAtExchange(4);
  run.cmdDeal();
  bridge.Sent.clear();
  desk.Loop.WaitMs(150);
  EXPECT_TRUE(FramesAre(bridge.Sent, {kPoll, "98 00 00 01 3D 56 00" + kBoard2, kPedalSeen,
                                      kPoll + " x2", kCardLog, kProbe}));
}

TEST_F(FramesOfAStart, ThePedalBeforeTheFirstPollStartsWithIt) {
  Open();
  paper.Events = 8;
  desk.Loop.WaitMs(2000);
  bridge.Sent.clear();
  desk.Loop.WaitMs(100);
  EXPECT_TRUE(FramesAre(bridge.Sent, {kPoll, kStart, kPedalSeen, kPoll + " x2", kCardLog, kProbe}));
}

TEST_F(FramesOfAStart, WhatCameWhileTheEndOfTheSetWasToldIsAcknowledgedWithoutAStart) {
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Ui.Answers = {kYes};
  Contact();
  desk.Ui.OnBox = [this] {
    bridge.Sent.clear();
    paper.Events = 8 | 16;
    desk.Loop.WaitMs(1500);
    EXPECT_THAT(bridge.Sent, IsEmpty()) << "nobody polls while it asks";
  };
  run.cmdDeal();
  desk.Loop.WaitMs(350);
  EXPECT_TRUE(FramesAre(bridge.Sent, {kBothSeen, kPoll + " x2"}));
}

}  // namespace
}  // namespace morvane::machine
