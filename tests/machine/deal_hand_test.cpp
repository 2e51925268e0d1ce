#include "machine/run_fixture.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

using OneBoard = RunFixture;
using EndOfSet = RunFixture;
using Leaving = RunFixture;

TEST_F(OneBoard, ItsFramesComeInOrder) {
  Contact();
  run.cmdDeal();
  EXPECT_THAT(SentCodes(), ElementsAre(0x98, 0x19, 0x19, 0x19, 0x20, 0x1A));
  EXPECT_EQ(run.LastOutcome(), DealingRun::Outcome::kDone);
}

TEST_F(OneBoard, TheStartFrameIsTheOneWorkedByHand) {
  desk.Prog.Set.At(1) = test::SuitBoard(1);
  desk.Store.Set(kNational, "4");
  desk.Store.Set(kThreshold, "1");
  desk.Store.Set(kCardIndex, "2");
  Contact();
  run.cmdDeal();
  const Bytes frame = SentOf(0x98).at(0);
  EXPECT_THAT(Bytes(frame.begin(), frame.begin() + 8), ElementsAre(0x98, 0, 0x46, 0, 11, 36, 5, 0));
  // North has the spades (pocket 4), East the hearts (3), South the diamonds (1), West the clubs
  // (2).
  Bytes pockets;
  for (const std::uint8_t pocket : Bytes{4, 3, 1, 2}) pockets.insert(pockets.end(), 13, pocket);
  EXPECT_EQ(Bytes(frame.begin() + 8, frame.begin() + 60), pockets);
  EXPECT_EQ(LastLine(), "  001 : 1,0 4,0,1,2 OK");
}

TEST_F(OneBoard, EveryCardStandsAtItsPlace) {
  Contact();
  run.cmdDeal();
  const Bytes frame = SentOf(0x98).at(0);
  const Board& board = desk.Prog.Set.At(1);
  const std::string ranks = "23456789TJQKA";
  const Bytes pockets{0, 4, 3, 1, 2};
  for (int card = 1; card <= kCards; ++card) {
    const std::size_t suit = static_cast<std::size_t>(card - 1) / 13;
    const std::size_t at = 8 + suit * 13 + ranks.find(CardLetter(card));
    const std::size_t hand = board.Cards[static_cast<std::size_t>(card)];
    EXPECT_EQ(frame[at], pockets[hand]);
  }
}

TEST_F(OneBoard, ItsLogLineNamesNumberSettingsAndOk) {
  Contact();
  run.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK");
  EXPECT_TRUE(run.Window().Controls.Deal_next);
  EXPECT_EQ(view.Focused, 1);
  EXPECT_TRUE(run.Window().Controls.cmdDeal && run.Window().Controls.cmdExit &&
              run.Window().Controls.cmdNext);
  EXPECT_FALSE(run.Window().Controls.cmdPrev || run.Window().Controls.cmdBreak);
  EXPECT_EQ(StatusText(machine.MachineState), "Idle");
}

TEST_F(OneBoard, TheRotationGoesRoundWithEachBoard) {
  Contact();
  desk.Ui.Default = kNo;
  for (int i = 0; i < 5; ++i) run.cmdDeal();
  std::vector<int> rotations;
  for (const Bytes& frame : SentOf(0x98)) {
    rotations.push_back(frame[3]);
    EXPECT_EQ(frame[4], 11 + 50 * frame[3]);
    EXPECT_EQ(frame[5], 36 + 50 * frame[3]);
  }
  EXPECT_THAT(rotations, ElementsAre(0, 1, 2, 3, 0));
}

TEST_F(OneBoard, CountsAndTimeShowWhileTheMachineIsBusy) {
  Contact();
  std::vector<std::string> states;
  view.OnState = [&] {
    states.push_back(StatusText(machine.MachineState) +
                     (run.Cards().CountsShown ? std::to_string(machine.CardCount[1]) : "-"));
    desk.Clock.Spend(std::chrono::milliseconds(250));
  };
  run.cmdDeal();
  EXPECT_THAT(states, ElementsAre("Idle-", "Busy-", "Busy5", "Busy5", "Idle13", "Idle13", "Idle13",
                                  "Idle13"));
  EXPECT_EQ(run.Cards().txtDealTime, "0.8") << "0.75 seconds at the last busy report";
}

TEST_F(OneBoard, OnlyBreakIsEnabledMeanwhile) {
  Contact();
  int looks = 0;
  view.OnState = [&] {
    if (machine.MachineState != Machine::kBusy) return;
    ++looks;
    const RunControls& now = run.Window().Controls;
    EXPECT_TRUE(now.cmdBreak);
    EXPECT_FALSE(now.cmdDeal || now.cmdExit || now.cmdFirst || now.cmdPrev || now.cmdNext ||
                 now.cmdLast || now.Deal_next || now.PrevCopy || now.NextCopy || now.Options);
  };
  run.cmdDeal();
  EXPECT_EQ(looks, 2) << "at the start, and when the first cards lie";
}

TEST_F(OneBoard, EventsInTheMiddleOfItDoNotDisturb) {
  Contact();
  int pumps = 0;
  desk.Loop.OnPump = [&] {
    if (++pumps > 20) return;
    run.cmdDeal();
    run.Deal_next();
    run.Walk(BoardWalk::Step::kFirst);
    run.Walk(BoardWalk::Step::kNext);
    run.Walk(BoardWalk::Step::kPrev);
    run.Walk(BoardWalk::Step::kLast);
    run.Walk(BoardWalk::Step::kNextCopy);
    run.Walk(BoardWalk::Step::kPrevCopy);
    run.SetNumberCopies("5");
    run.LeaveSubfrom("3");
    run.LeaveSubto("3");
    run.Change(&RunOptions::SetNational, 6);
    run.Change(&RunOptions::SetCardType, 1);
    run.Change(&RunOptions::SetThreshold, 2);
    run.Change(&RunOptions::SetCardIndex, 1);
    run.Change(&RunOptions::SetCheck_board, true);
    run.Change(&RunOptions::SetStart_from_box, false);
    run.Command1();
  };
  run.cmdDeal();
  EXPECT_THAT(SentOf(0x98), SizeIs(1));
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK");
  EXPECT_GT(pumps, 3);
  EXPECT_EQ(run.Options().Cards.LogText(), "0,0,0,0");
  EXPECT_EQ(memory.RunFirst, 1);
  EXPECT_EQ(memory.NumberOfCopies, 1);
  EXPECT_FALSE(desk.Store.Has(kNational));
}

TEST_F(OneBoard, TheSetIsNotChangedByDealing) {
  Contact();
  const Board before = desk.Prog.Set.At(1);
  run.cmdDeal();
  EXPECT_EQ(desk.Prog.Set.At(1), before);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
}

TEST_F(OneBoard, APollGarbledIntoTheQuestionForTheBoardDoesNotChangeTheSet) {
  Contact();
  const Board before = desk.Prog.Set.At(1);
  int polls = 0;
  paper.Damage = [&](int, const Bytes& plain, Bytes wire) {
    return plain[0] == 0x19 && ++polls == 2 ? test::OnTheWire(test::Long({0x9D}), 21) : wire;
  };
  run.cmdDeal();
  EXPECT_EQ(desk.Prog.Set.At(1), before);
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK");
}

TEST_F(OneBoard, NationalCardsNeedTheirFirmware) {
  struct Row {
    int National;
    std::uint8_t Minor;
    VersionGate Gate;
  };
  Contact();
  for (const Row& row :
       {Row{1, 0x26, kNationalGate}, {5, 0x31, kDanishGate}, {6, 0x89, kSwedishGate}}) {
    machine.Version.FirmwareMinor = row.Minor;
    run.Change(&RunOptions::SetNational, row.National);
    run.cmdDeal();
    EXPECT_THAT(bridge.Sent, IsEmpty());
    EXPECT_EQ(LastBox(), GateText(machine, desk.Prog.Texts, row.Gate));
    EXPECT_TRUE(run.Window().Controls.cmdDeal) << "all state stays as it was";
  }
  machine.Version.FirmwareMinor = 0x32;
  run.Change(&RunOptions::SetNational, 5);
  run.cmdDeal();
  EXPECT_THAT(SentOf(0x98), SizeIs(1));
}

TEST_F(EndOfSet, DealNextWalksToTheQuestion) {
  desk.Ui.Answers = {kYes};
  Contact();
  run.cmdDeal();
  run.Deal_next();
  run.Deal_next();
  EXPECT_THAT(SentOf(0x98), SizeIs(3));
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg060);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Dealing");
  EXPECT_EQ(desk.Ui.Boxes[0].Flags, kYesNoQuestion);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 1);
  EXPECT_FALSE(run.Window().Controls.Deal_next);
  EXPECT_EQ(desk.LogLines().back(), "  003 : 1,0 0,0,0,0 OK");
}

TEST_F(EndOfSet, NoStaysOnTheLastBoard) {
  desk.Ui.Answers = {kNo};
  Contact();
  run.Walk(BoardWalk::Step::kLast);
  run.cmdDeal();
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 3);
}

TEST_F(EndOfSet, OneBoardAndOneCopyAskAtOnce) {
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Ui.Answers = {kNo};
  Contact();
  run.cmdDeal();
  EXPECT_FALSE(run.Window().Controls.Deal_next);
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
}

TEST_F(EndOfSet, AllCopiesOfABoardComeBeforeTheNext) {
  desk.Store.Set(kDealCopy, "1");
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Ui.Answers = {kYes};
  Contact();
  run.SetNumberCopies("2");
  run.cmdDeal();
  EXPECT_TRUE(run.Window().Controls.Deal_next);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  run.Deal_next();
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(run.Place().CurrentCopy(), 1) << "Yes goes back to the first copy";
  EXPECT_THAT(SentOf(0x98), SizeIs(2));
}

TEST_F(EndOfSet, AnEventBehindTheBoxIsAcknowledgedAndStartsNothing) {
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Ui.Answers = {kNo};
  Contact();
  desk.Ui.OnBox = [this] { paper.Events = 8 | 16; };
  run.cmdDeal();
  bridge.Sent.clear();
  desk.Loop.WaitMs(400);
  EXPECT_EQ(bridge.Sent.at(0)[1], 6);
  EXPECT_THAT(SentOf(0x98), IsEmpty());
}

TEST_F(Leaving, TheCloseBoxInTheMiddleBreaksAndClosesWhenTheRunIsBack) {
  paper.BusyPolls = 50;
  Contact();
  int pumps = 0;
  desk.Loop.OnPump = [&] {
    if (++pumps != 4) return;
    run.Exit();
    EXPECT_FALSE(run.Closed());
  };
  run.cmdDeal();
  EXPECT_TRUE(run.Closed());
  EXPECT_EQ(view.Closings, 1);
  EXPECT_THAT(view.Errors, IsEmpty()) << "nobody is there to answer";
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 57");
  EXPECT_THAT(bridge.Calls, Contains("Close"));
}

TEST_F(Leaving, ASecondRequestDoesNotWaitForTheMachine) {
  paper.BusyPolls = 1'000'000;
  paper.Deaf = {};
  Contact();
  paper.Damage = [](int, const Bytes& plain, Bytes wire) {
    // A machine that overhears the break and stays busy for ever.
    return plain[0] == 0x19 ? test::OnTheWire(test::Short({0x19, 0xFF}), 21) : wire;
  };
  desk.Loop.OnPump = [&] { run.Exit(); };
  run.cmdDeal();
  EXPECT_TRUE(run.Closed());
}

TEST_F(Leaving, QuittingEndsTheRunWithABreakOnItsWay) {
  paper.BusyPolls = 1'000'000;
  Contact();
  int pumps = 0;
  desk.Loop.OnPump = [&] {
    if (++pumps == 4) desk.Loop.Quit();
  };
  run.cmdDeal();
  EXPECT_TRUE(run.Closed());
  EXPECT_EQ(SentOf(0x19).back()[1], 1);
  EXPECT_THAT(LastLine(), Not(::testing::HasSubstr("OK")));
}

TEST_F(Leaving, QuittingEndsAnOpenErrorDialog) {
  paper.Codes = {54};
  view.Answers = {[this](ErrorDialog&) { desk.Loop.Quit(); }};
  Contact();
  run.cmdDeal();
  EXPECT_TRUE(run.Closed());
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 54");
}

}  // namespace
}  // namespace morvane::machine
