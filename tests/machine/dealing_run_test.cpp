#include "machine/run_fixture.h"

namespace morvane::machine {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

using Walk = RunFixture;
using Polling = RunFixture;

TEST_F(Walk, StaysWithinTheRangeAndDisablesDealNext) {
  Contact();
  run.Walk(BoardWalk::Step::kNext);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 2);
  EXPECT_TRUE(run.Window().Controls.cmdPrev && run.Window().Controls.cmdNext);
  run.Walk(BoardWalk::Step::kLast);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 3);
  EXPECT_FALSE(run.Window().Controls.cmdNext || run.Window().Controls.cmdLast);
  run.Walk(BoardWalk::Step::kNext);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 3);
  run.Walk(BoardWalk::Step::kPrev);
  run.Walk(BoardWalk::Step::kFirst);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 1);
  EXPECT_FALSE(run.Window().Controls.cmdPrev || run.Window().Controls.cmdFirst);
  run.cmdDeal();
  ASSERT_TRUE(run.Window().Controls.Deal_next);
  run.Walk(BoardWalk::Step::kNext);
  EXPECT_FALSE(run.Window().Controls.Deal_next);
  EXPECT_EQ(run.Cards().CardLog[wire::MachineCard(1)], 99);
}

TEST_F(Walk, CopiesHaveAWalkOfTheirOwn) {
  desk.Store.Set(kDealCopy, "1");
  Contact();
  run.SetNumberCopies("3");
  EXPECT_TRUE(run.Window().Controls.NextCopy);
  run.Walk(BoardWalk::Step::kNextCopy);
  run.Walk(BoardWalk::Step::kNextCopy);
  EXPECT_EQ(run.Place().CurrentCopy(), 3);
  EXPECT_FALSE(run.Window().Controls.NextCopy);
  run.Walk(BoardWalk::Step::kNextCopy);
  EXPECT_EQ(run.Place().CurrentCopy(), 3);
  run.Walk(BoardWalk::Step::kPrevCopy);
  EXPECT_EQ(run.Place().CurrentCopy(), 2);
  run.SetNumberCopies("");  // counts as one, and the copy shown is cut back to it
  EXPECT_EQ(memory.NumberOfCopies, 1);
  EXPECT_EQ(run.Place().CurrentCopy(), 1);
}

TEST_F(Walk, TheSubRangeIsRaisedAndTheBoardBroughtIntoIt) {
  desk.Store.Set(kDealSub, "1");
  test::FillSet(desk.Prog.Set, 5, 9);
  Contact();
  run.LeaveSubfrom("7");
  EXPECT_EQ(memory.RunFirst, 7);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 7);
  run.LeaveSubfrom("2");
  EXPECT_EQ(memory.RunFirst, 5);
  run.LeaveSubto("3");
  EXPECT_EQ(memory.RunLast, 5);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 5);
  run.LeaveSubto("");
  EXPECT_EQ(memory.RunLast, 5);
  run.LeaveSubfrom("8");  // above the last board of the run, which follows
  EXPECT_EQ(memory.RunFirst, 8);
  EXPECT_EQ(memory.RunLast, 8);
}

TEST_F(Walk, ABoardThatARangeHasMovedShowsNothingAsDealt) {
  desk.Store.Set(kDealSub, "1");
  Contact();
  run.cmdDeal();
  ASSERT_TRUE(run.Window().Controls.Deal_next);
  run.LeaveSubto("3");
  EXPECT_TRUE(run.Window().Controls.Deal_next) << "board 1 is still the one that was dealt";
  run.LeaveSubfrom("2");
  EXPECT_FALSE(run.Window().Controls.Deal_next);
  EXPECT_EQ(run.Cards().CardLog[wire::MachineCard(1)], 99);
  run.cmdDeal();
  ASSERT_TRUE(run.Window().Controls.Deal_next);
  run.Walk(BoardWalk::Step::kNext);
  run.cmdDeal();
  run.LeaveSubto("2");
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 2);
  EXPECT_EQ(run.Cards().CardLog[wire::MachineCard(1)], 99);
}

TEST_F(Polling, ThePedalDealsTheBoard) {
  Contact();
  paper.Events = 8;
  desk.Loop.WaitMs(100);
  EXPECT_THAT(SentOf(0x98), SizeIs(1));
  EXPECT_EQ(SentCodes()[2], 0x19);
  EXPECT_EQ(bridge.Sent[2][1], 2) << "the first poll of the board acknowledges the press";
  desk.Loop.WaitMs(500);
  EXPECT_THAT(SentOf(0x98), SizeIs(1)) << "one press, one board";
}

TEST_F(Polling, ThePedalDealsTheNextBoardAfterAGoodOne) {
  Contact();
  run.cmdDeal();
  paper.Events = 8;
  desk.Loop.WaitMs(200);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 2);
  EXPECT_THAT(SentOf(0x98), SizeIs(2));
}

TEST_F(Polling, AnInsertedBoardDealsAfterASecondOfQuiet) {
  Contact();
  desk.Loop.WaitMs(1000);  // ten polls
  paper.Events = 16;
  desk.Loop.WaitMs(100);
  EXPECT_THAT(SentOf(0x98), SizeIs(1));
}

TEST_F(Polling, ABoardPushedBackWithinASecondStartsNothing) {
  Contact();
  desk.Loop.WaitMs(1000);
  paper.Events = 4;  // the slot is active: the board is being pulled
  desk.Loop.WaitMs(100);
  paper.Events = 0;
  desk.Loop.WaitMs(800);
  paper.Events = 16;
  desk.Loop.WaitMs(500);
  EXPECT_THAT(SentOf(0x98), IsEmpty());
}

TEST_F(Polling, ASlotThatReportsAsLongAsABoardIsInNeedsASecondWithoutOne) {
  Contact();
  paper.Events = 4;  // the board of before is in the slot
  desk.Loop.WaitMs(1000);
  paper.Events = 0;
  desk.Loop.WaitMs(800);
  paper.Events = 4 | 16;
  desk.Loop.WaitMs(200);
  EXPECT_THAT(SentOf(0x98), IsEmpty());
  paper.Events = 0;
  desk.Loop.WaitMs(1100);
  paper.Events = 4 | 16;
  desk.Loop.WaitMs(100);
  EXPECT_THAT(SentOf(0x98), SizeIs(1));
}

TEST_F(Polling, AFirmwareRequestIsIgnoredInItsWords) {
  Contact();
  desk.Prog.Link = {LinkRequest::kDownload, "new.adc"};
  desk.Loop.WaitMs(300);
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg092);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Download New Firmware");
  EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kNone);
}

TEST_F(Polling, DealNextIsRefusedAfterMovingOn) {
  Contact();
  run.cmdDeal();
  desk.Prog.Set.At(2) = NumberedBoard(2);
  bridge.Sent.clear();
  run.Deal_next();
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 2);
  EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg053);
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_FALSE(run.Window().Controls.Deal_next);
}

TEST_F(Polling, DealNextOnTheLastCopyOfTheLastBoardStaysThere) {
  desk.Ui.Default = kNo;
  Contact();
  run.cmdDeal();
  run.LeaveSubto("1");  // the range ends here now, with the button still enabled
  run.Deal_next();
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 1);
  EXPECT_EQ(run.Place().CurrentCopy(), 1);
}

TEST_F(Polling, ThePedalDuringABoardStartsNoOther) {
  paper.BusyPolls = 6;
  Contact();
  int pumps = 0;
  desk.Loop.OnPump = [&] {
    if (++pumps == 2) paper.Events = 8;
  };
  run.cmdDeal();
  desk.Loop.OnPump = nullptr;
  desk.Loop.WaitMs(500);
  EXPECT_THAT(SentOf(0x98), SizeIs(1));
}

TEST_F(Polling, AnInsertedBoardStartsNothingWhereTheOptionIsOff) {
  desk.Store.Set(kInitStartFromBox, "0");
  Contact();
  desk.Loop.WaitMs(1000);
  paper.Events = 16;
  desk.Loop.WaitMs(300);
  EXPECT_THAT(SentOf(0x98), IsEmpty());
}

TEST_F(Polling, TwoBadRepliesLoseTheLink) {
  Contact();
  paper.Powered = false;
  desk.Loop.WaitMs(100);
  EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg048);
  EXPECT_TRUE(run.Closed());
  EXPECT_THAT(bridge.Calls, Not(Contains("WriteLatch 1 0"))) << "the machine does not answer";
  EXPECT_THAT(bridge.Calls, Contains("Close"));
}

TEST_F(Polling, ALockedLinkIsLeftAlone) {
  Contact();
  machine.PollLock = true;
  desk.Loop.WaitMs(500);
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(Polling, AnIncompleteBoardIsRefusedBeforeAnythingIsSent) {
  Contact();
  desk.Prog.Set.At(1).Cards[1] = 0;
  AnalyzeBoard(desk.Prog.Set.At(1));
  run.cmdDeal();
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_EQ(LastBox(), "      Board incomplete - cannot deal this board.       ");
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Dealing Error");
}

TEST_F(Polling, ThePedalStartsNothingBehindARefusal) {
  Contact();
  desk.Prog.Set.At(1) = NumberedBoard(1);
  paper.Events = 8;
  desk.Ui.OnBox = [this] { desk.Loop.WaitMs(500); };
  run.cmdDeal();
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

/// A press and a board that come while a box is open.
class BehindABox : public RunFixture {
 protected:
  /// What is sent once `show` has shown its one box.
  void Expect(const std::function<void()>& show) {
    desk.Loop.WaitMs(1500);  // the slot has been quiet
    desk.Ui.OnBox = [this] {
      paper.Events = 8 | 16;
      bridge.Sent.clear();
      desk.Loop.WaitMs(300);
    };
    show();
    desk.Ui.OnBox = nullptr;
    ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
    desk.Loop.WaitMs(500);
    EXPECT_EQ(bridge.Sent.at(0)[1], 6) << "both are acknowledged";
    EXPECT_THAT(SentOf(0x98), IsEmpty());
    EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
    paper.Events = 8;
    desk.Loop.WaitMs(200);
    EXPECT_EQ(SentOf(0x98).size() + desk.Ui.Boxes.size(), 2U) << "the next press counts again";
  }
};

TEST_F(BehindABox, OfARefusedBoardNothingStarts) {
  Contact();
  desk.Prog.Set.At(1) = NumberedBoard(1);
  Expect([this] { run.cmdDeal(); });
}

TEST_F(BehindABox, OfRefusedCardsNothingStarts) {
  paper.Minor = 0x10;
  Contact();
  run.Change(&RunOptions::SetNational, int{CardSettings::kFrench});
  Expect([this] { run.cmdDeal(); });
}

TEST_F(BehindABox, OfARefusedOptionNothingStarts) {
  paper.Minor = 0x39;
  Contact();
  Expect([this] { run.Change(&RunOptions::SetCheck_board, true); });
}

TEST_F(BehindABox, OfAFirmwareRequestNothingStarts) {
  Contact();
  Expect([this] {
    desk.Prog.Link = {LinkRequest::kDownload, "new.adc"};
    desk.Loop.WaitMs(100);
  });
}

}  // namespace
}  // namespace morvane::machine
