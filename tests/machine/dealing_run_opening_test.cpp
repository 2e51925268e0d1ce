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
  EXPECT_EQ(run.TestText().substr(0, 16), "9 200  10 0  11 ");
  DealingRun later(desk.Prog, machine, memory);
  machine.Link.UsbHandle = 7;
  later.Open(view);
  EXPECT_EQ(later.TestText(), run.TestText()) << "it stays until the program ends";
}

}  // namespace
}  // namespace morvane::machine
