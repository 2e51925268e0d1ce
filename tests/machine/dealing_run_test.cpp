#include "machine/run_fixture.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

using Opening = RunFixture;
using Walk = RunFixture;
using Polling = RunFixture;
using Options = RunFixture;

TEST_F(Opening, RaisesTheLatchAndLogsTheCommand) {
  Open();
  EXPECT_THAT(bridge.Calls, ElementsAre("SetTimeouts 200 200", "WriteLatch 1 1"));
  EXPECT_EQ(LastLine(), " Deal: 3:04:05 PM");
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 1);
  EXPECT_EQ(StatusText(machine.MachineState), "Down");
  EXPECT_FALSE(run.Window().SettingsShown);
  EXPECT_FALSE(run.Window().Controls.cmdDeal);
}

TEST_F(Opening, TheFirstContactComesAfterTwoSeconds) {
  Open();
  desk.Loop.WaitMs(1999);
  EXPECT_THAT(bridge.Sent, IsEmpty());
  desk.Loop.WaitMs(1);
  EXPECT_THAT(SentCodes(), ElementsAre(0x1A, 0x1A, 0x12, 0x12, 0x33));
  EXPECT_EQ(bridge.Sent[2][1], 1);
  EXPECT_EQ(bridge.Sent[3][1], 2);
  EXPECT_EQ(LastLine(), "  S/N:4711 Dealt:258 Firmware:2.90");
  EXPECT_EQ(StatusText(machine.MachineState), "Idle");
  EXPECT_TRUE(run.Window().SettingsShown);
  EXPECT_TRUE(run.Window().Controls.cmdDeal && run.Window().Controls.cmdExit &&
              run.Window().Controls.cmdNext);
  EXPECT_FALSE(run.Window().Controls.Deal_next || run.Window().Controls.cmdBreak);
}

TEST_F(Opening, ThePollingStartsAfterTheContact) {
  Contact();
  desk.Loop.WaitMs(350);
  EXPECT_THAT(SentCodes(), ElementsAre(0x19, 0x19, 0x19));
}

TEST_F(Opening, AMachineThatDoesNotAnswerIsNamedAndTheWindowGoes) {
  paper.Powered = false;
  Contact();
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg047);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Communication Error");
  EXPECT_TRUE(run.Closed());
  EXPECT_EQ(machine.Link.UsbHandle, MachineLink::kClosed);
}

TEST_F(Opening, AnIdentityThatDoesNotComeIsALostLink) {
  paper.Deaf = {0x12};
  Contact();
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg048);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Dealing Error");
  EXPECT_TRUE(run.Closed());
  EXPECT_THAT(desk.LogLines(), Each(Not(::testing::HasSubstr("S/N"))));
}

TEST_F(Opening, SilentGatesClearWhatTheMachineCannotDo) {
  desk.Store.Set(kCheckBoard, "1");
  desk.Store.Set(kCardIndex, "1");
  paper.Hardware = 0;
  Contact();
  EXPECT_FALSE(run.Options().Check_board);
  EXPECT_EQ(desk.Store.Get(kCheckBoard), "0");
  EXPECT_EQ(run.Options().Cards.CardIndex, CardSettings::kStandardIndex);
  EXPECT_EQ(desk.Store.Get(kCardIndex), "0");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(Opening, SilentGatesLookAtTheFirmwareToo) {
  desk.Store.Set(kCheckBoard, "1");
  desk.Store.Set(kCardIndex, "1");
  paper.Minor = 0x39;
  Contact();
  EXPECT_FALSE(run.Options().Check_board);
  EXPECT_EQ(run.Options().Cards.CardIndex, CardSettings::kStandardIndex);
}

TEST_F(Opening, SilentGatesKeepWhatTheMachineCanDo) {
  desk.Store.Set(kCheckBoard, "1");
  desk.Store.Set(kCardIndex, "1");
  paper.Minor = 0x40;
  Contact();
  EXPECT_TRUE(run.Options().Check_board);
  EXPECT_EQ(run.Options().Cards.CardIndex, CardSettings::kLargeIndex);
}

TEST_F(Opening, StartFromBoxIsOnWhereItWasNeverStored) {
  Open();
  EXPECT_TRUE(run.Options().AutoStartEnabled);
}

TEST_F(Opening, WithoutCopiesThereIsOneAndWithoutSubRangeTheWholeSet) {
  memory = {2, 2, 5, ""};
  Contact();
  EXPECT_EQ(memory.NumberOfCopies, 1);
  EXPECT_EQ(memory.RunFirst, 1);
  EXPECT_EQ(memory.RunLast, 3);
  EXPECT_FALSE(run.Window().CopiesShown || run.Window().SubRangeShown);
}

TEST_F(Opening, CopiesAndSubRangeStayFromTheLastOpening) {
  desk.Store.Set(kDealCopy, "1");
  desk.Store.Set(kDealSub, "1");
  memory = {2, 640, 5, ""};
  Contact();
  EXPECT_EQ(memory.NumberOfCopies, 5);
  EXPECT_EQ(memory.RunFirst, 2);
  EXPECT_EQ(memory.RunLast, 3);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 2);
  EXPECT_TRUE(run.Window().CopiesShown && run.Window().SubRangeShown &&
              run.Window().Controls.NextCopy);
  EXPECT_FALSE(run.Window().Controls.PrevCopy);
}

TEST_F(Opening, ClosingBeforeTheContactLeavesNothingRunning) {
  Open();
  run.Exit();
  EXPECT_TRUE(run.Closed());
  EXPECT_EQ(view.Closings, 1);
  EXPECT_THAT(bridge.Calls, Contains("WriteLatch 1 0"));
  desk.Loop.WaitMs(5000);
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(Opening, LeavingForgetsEvents) {
  Contact();
  machine.PedalFlag = 1;
  machine.BoxFlag = 1;
  run.Exit();
  EXPECT_EQ(machine.PedalFlag, 0);
  EXPECT_EQ(machine.BoxFlag, 0);
  EXPECT_THAT(bridge.Calls, ElementsAre("WriteLatch 1 0", "Close"));
}

TEST_F(Opening, AMachineWithoutAnAnswerLeavesNoDataInTheLogAndDropsTheLatch) {
  paper.Powered = false;
  Open();
  desk.Loop.WaitMs(DealingRun::kFirstContactMs);
  EXPECT_THAT(desk.LogLines(), Each(Not(::testing::HasSubstr("S/N"))));
  EXPECT_THAT(bridge.Calls, Contains("WriteLatch 1 0"));
}

TEST_F(Opening, APressFromBeforeTheContactIsForgotten) {
  Open();
  machine.PedalFlag = 1;
  desk.Loop.WaitMs(DealingRun::kFirstContactMs);
  bridge.Sent.clear();
  desk.Loop.WaitMs(DealingRun::kPollMs);
  ASSERT_FALSE(bridge.Sent.empty());
  EXPECT_EQ(bridge.Sent[0][1], 0) << "nothing is acknowledged that nobody has seen";
}

TEST_F(Opening, AnotherCounterIsNotThatOfBoardsDealt) {
  paper.Damage = [](int, const Bytes& plain, const Bytes& wire) {
    return plain[0] == 0x33
               ? test::OnTheWire(test::Long({0xB3, 0, 1, 0, 0, 0, 0, 0, 9, 9, 9, 9}), 21)
               : wire;
  };
  Contact();
  EXPECT_EQ(LastLine(), "  S/N:4711 Dealt:0 Firmware:2.90");
}

TEST_F(Opening, AVersionInTheIdentitysPlaceIsAskedAgain) {
  desk.Store.Set(kCheckBoard, "1");
  int identities = 0;
  paper.Damage = [&](int, const Bytes& plain, const Bytes& wire) {
    const bool first = plain[0] == 0x12 && ++identities == 1;
    return first ? test::OnTheWire(test::Short({0x1A, 2, 0x90}), 21) : wire;
  };
  Contact();
  EXPECT_EQ(LastLine(), "  S/N:4711 Dealt:258 Firmware:2.90");
  EXPECT_TRUE(run.Options().Check_board)
      << "an identity that did not come says nothing of the hardware";
}

TEST_F(Opening, ASetOfOneBoardStillHasItsWayBack) {
  test::FillSet(desk.Prog.Set, 1, 1);
  Contact();
  EXPECT_TRUE(run.Window().Controls.cmdFirst && run.Window().Controls.cmdPrev);
  EXPECT_FALSE(run.Window().Controls.cmdNext || run.Window().Controls.cmdLast);
}

TEST_F(Opening, ASetOfBoard7LooksForwardByItsNumberAlone) {
  test::FillSet(desk.Prog.Set, 7, 7);
  Contact();
  EXPECT_TRUE(run.Window().Controls.cmdNext && run.Window().Controls.cmdLast);
  run.Walk(BoardWalk::Step::kNext);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 7);
}

TEST_F(Opening, TheTestButtonIsTheHighestServiceLevels) {
  desk.Prog.ServiceLevel = 1;
  Contact();
  run.Command1();
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_FALSE(run.Window().Command1Shown);
}

TEST_F(Opening, TheTestButtonFetchesTheTestText) {
  desk.Prog.ServiceLevel = 2;
  Contact();
  paper.Damage = [](int, const Bytes& plain, const Bytes& wire) {
    Bytes text = test::Long({0x9E});
    text[9] = 200;
    return plain[0] == 0x1E ? test::OnTheWire(text, 21) : wire;
  };
  run.Command1();
  EXPECT_EQ(run.Window().TestText.substr(0, 16), "9 200  10 0  11 ");
  EXPECT_EQ(memory.TestText, run.Window().TestText);
  DealingRun later(desk.Prog, machine, memory);
  machine.Link.UsbHandle = 7;
  later.Open(view);
  EXPECT_EQ(later.Window().TestText, memory.TestText) << "it stays until the program ends";
}

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

TEST_F(Options, AreStoredAtOnce) {
  Contact();
  run.Change(&RunOptions::SetNational, 6);
  run.Change(&RunOptions::SetCardType, 1);
  run.Change(&RunOptions::SetThreshold, 2);
  run.Change(&RunOptions::SetCardIndex, 2);
  run.Change(&RunOptions::SetStart_from_box, false);
  run.Change(&RunOptions::SetCheck_board, true);
  EXPECT_EQ(desk.Store.Get(kNational), "6");
  EXPECT_EQ(desk.Store.Get(kCardType), "1");
  EXPECT_EQ(desk.Store.Get(kThreshold), "2");
  EXPECT_EQ(desk.Store.Get(kCardIndex), "2");
  EXPECT_EQ(desk.Store.Get(kInitStartFromBox), "0");
  EXPECT_EQ(desk.Store.Get(kCheckBoard), "1");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(Options, ThatCannotBeStoredAreToldOnceAndHoldAllTheSame) {
  Contact();
  desk.Store.Writable = false;
  run.Change(&RunOptions::SetNational, 6);
  run.Change(&RunOptions::SetThreshold, 2);
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Settings Error");
  EXPECT_EQ(run.Options().Cards.National, 6);
  EXPECT_EQ(run.Options().Cards.Threshold, 2);
}

TEST_F(Options, ClicksBeforeTheContactDoNothing) {
  Open();
  run.Change(&RunOptions::SetCardIndex, 1);
  run.Change(&RunOptions::SetCheck_board, true);
  EXPECT_EQ(run.Options().Cards.CardIndex, 0);
  EXPECT_FALSE(run.Options().Check_board);
  EXPECT_FALSE(desk.Store.Has(kCardIndex) || desk.Store.Has(kCheckBoard));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(Options, AnOldFirmwareRefusesEachInItsWords) {
  paper.Minor = 0x39;
  Contact();
  run.Change(&RunOptions::SetCheck_board, true);  // 0x39 is below 0x3A
  EXPECT_EQ(LastBox(), GateText(machine, desk.Prog.Texts, kCheckBoardClickGate));
  EXPECT_FALSE(run.Options().Check_board);
  run.Change(&RunOptions::SetCardIndex, int{CardSettings::kLargeIndex});
  EXPECT_EQ(LastBox(), GateText(machine, desk.Prog.Texts, kLargeIndexClickGate));
  EXPECT_EQ(run.Options().Cards.CardIndex, CardSettings::kStandardIndex);
  run.Change(&RunOptions::SetCardIndex, int{CardSettings::kSmallIndex});
  EXPECT_EQ(LastBox(), GateText(machine, desk.Prog.Texts, kSmallIndexClickGate));
  EXPECT_EQ(run.Options().Cards.CardIndex, CardSettings::kStandardIndex);
  EXPECT_EQ(desk.Store.Get(kCardIndex), "0");
  EXPECT_EQ(desk.Store.Get(kCheckBoard), "0");
}

TEST_F(Options, MissingHardwareRefusesInItsWords) {
  paper.Hardware = 0;
  Contact();
  run.Change(&RunOptions::SetCheck_board, true);
  EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg046);
  run.Change(&RunOptions::SetCardIndex, int{CardSettings::kLargeIndex});
  EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg045);
  EXPECT_EQ(run.Options().Cards.CardIndex, CardSettings::kStandardIndex);
}

TEST_F(Options, ShowBoardsStartsFromTheSettingAndToggles) {
  desk.Store.Set(kDealShow, "1");
  Contact();
  EXPECT_TRUE(run.Window().ShowBoards);
  run.Disp_boards();
  EXPECT_FALSE(run.Window().ShowBoards);
}

TEST_F(Options, AStateOutOfTheTableShowsItsNumber) {
  Contact();
  machine.MachineState = 9;
  EXPECT_EQ(StatusText(machine.MachineState), "Illegal (9)");
}

}  // namespace
}  // namespace morvane::machine
