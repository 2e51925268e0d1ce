#include "machine/run_fixture.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using ::testing::ElementsAre;
using ::testing::SizeIs;

using Errors = RunFixture;

TEST_F(Errors, ContinueGoesOnWithTheSameBoard) {
  paper.Codes = {30};
  view.Answers = {Continue};
  Contact();
  run.cmdDeal();
  const auto starts = SentOf(0x98);
  ASSERT_THAT(starts, SizeIs(2));
  EXPECT_EQ(starts[0][1], 0);
  EXPECT_EQ(starts[1][1], 1);
  EXPECT_EQ(starts[1][3], 0) << "the rotation stays for the whole board";
  EXPECT_THAT(view.Errors, ElementsAre("Card Recognition Error|Error Code: 30"));
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 30 OK");
  EXPECT_THAT(SentOf(0x1A), SizeIs(1)) << "the probe only at the end";
}

TEST_F(Errors, SeveralErrorsAreListedEach) {
  paper.Codes = {30, 55, 60};
  view.Answers = {Continue, Continue, Continue};
  Contact();
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 30 55 60 OK");
}

TEST_F(Errors, EachNamesItsBoardAndTheCardBehindThoseInTheLog) {
  paper.Codes = {30, 55, 60};
  paper.CardsLogged = 16;
  view.Answers = {[this](ErrorDialog& dialog) {
                    paper.CardsLogged = 0;
                    dialog.PressContinue();
                  },
                  [this](ErrorDialog& dialog) {
                    paper.CardsLogged = 52;  // all have fallen: it is none of them
                    dialog.PressContinue();
                  },
                  Continue};
  Contact();
  run.Walk(BoardWalk::Step::kNext);
  run.cmdDeal();
  EXPECT_THAT(view.Places,
              ElementsAre("Board 2, card 17 of 52", "Board 2, card 1 of 52", "Board 2"));
}

TEST_F(Errors, CancelStopsTheBoardAndOffersItAgain) {
  paper.Codes = {54};
  view.Answers = {Cancel};
  Contact();
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 54");
  EXPECT_EQ(run.LastOutcome(), DealingRun::Outcome::kStopped);
  EXPECT_FALSE(run.Window().Controls.Deal_next);
  EXPECT_TRUE(run.Window().Controls.cmdDeal);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 1);
  EXPECT_EQ(SentCodes().back(), 0x1A) << "the probe brings the machine back to idle";
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK");
}

TEST_F(Errors, AMechanicalFaultHasOnlyCancel) {
  paper.Codes = {9};
  view.Answers = {Third};
  Contact();
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 9");
}

TEST_F(Errors, BreakTakesThePlaceOfTheNextPoll) {
  paper.BusyPolls = 10;
  view.Answers = {Cancel};
  Contact();
  int polls = 0;
  desk.Loop.OnPump = [&] {
    if (++polls != 3) return;
    machine.PedalFlag = 1;
    run.cmdBreak();
  };
  run.cmdDeal();
  const auto frames = SentOf(0x19);
  ASSERT_GE(frames.size(), 3U);
  EXPECT_EQ(frames[2][1], 1);
  EXPECT_EQ(std::count_if(frames.begin(), frames.end(), [](const Bytes& f) { return f[1] == 1; }),
            1);
  EXPECT_THAT(view.Errors, ElementsAre("Break Dealing|Error Code: 57"));
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 57");
}

TEST_F(Errors, BreakDisablesItself) {
  paper.BusyPolls = 10;
  view.Answers = {Cancel};
  Contact();
  desk.Loop.OnPump = [&] {
    if (!run.Window().Controls.cmdBreak) return;
    run.cmdBreak();
    EXPECT_FALSE(run.Window().Controls.cmdBreak);
  };
  run.cmdDeal();
  EXPECT_FALSE(run.Window().Controls.cmdBreak);
}

TEST_F(Errors, ABreakThatCameTooLateIsAnsweredByTheDialog) {
  paper.Codes = {54};
  view.Answers = {Continue};
  Contact();
  desk.Loop.OnPump = [&] {
    if (machine.MachineState == Machine::kError) run.cmdBreak();
  };
  run.cmdDeal();
  for (const Bytes& poll : SentOf(0x19)) EXPECT_EQ(poll[1] & 1, 0);
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 54 OK");
}

TEST_F(Errors, AContinuedBoardCanBeBrokenAgain) {
  paper.BusyPolls = 10;
  view.Answers = {Continue, Cancel};
  Contact();
  desk.Loop.OnPump = [&] {
    if (machine.MachineState == Machine::kBusy) run.cmdBreak();
  };
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 57 57");
}

TEST_F(Errors, AfterTheDialogTheRunWaits300Ms) {
  paper.Codes = {54};
  std::chrono::microseconds closed{0};
  view.Answers = {[&](ErrorDialog& dialog) {
    closed = desk.Clock.Elapsed();
    dialog.PressCancel();
  }};
  Contact();
  run.cmdDeal();
  EXPECT_EQ(desk.Clock.Elapsed() - closed, std::chrono::milliseconds(300));
}

TEST_F(Errors, ALinkLostInTheDialogShowsBothBoxes) {
  paper.Codes = {54};
  view.Answers = {[this](ErrorDialog&) { paper.Powered = false; }};
  Contact();
  run.cmdDeal();
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "            Lost Communication with Dealer  -  Dealing Aborted             ");
  EXPECT_EQ(desk.Ui.Boxes[1].Text, desk.Prog.Texts.Msg048);
  EXPECT_TRUE(run.Closed());
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 54");
}

TEST_F(Errors, ABreakBehindContinueIsTheFirstPollOfWhatGoesOn) {
  paper.BusyPolls = 10;
  paper.Codes = {54};
  view.Answers = {[this](ErrorDialog& dialog) {
                    desk.Loop.After(100, [this] { run.cmdBreak(); });  // before the run goes on
                    dialog.PressContinue();
                  },
                  Cancel};
  Contact();
  run.cmdDeal();
  const auto polls = SentOf(0x19);
  ASSERT_THAT(polls, SizeIs(11)) << "ten to the fault, and the break";
  EXPECT_EQ(polls.back()[1], 1);
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 54 57");
}

}  // namespace
}  // namespace morvane::machine
