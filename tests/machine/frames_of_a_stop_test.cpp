#include "machine/known_boards.h"
#include "machine/run_fixture.h"
#include "support/frame_list.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using test::FramesAre;

using FramesOfAStop = RunFixture;

const std::string kStart = "98 00 00 00 0B 24 00" + kBoard1;
const std::string kGoOnFrame = "98 01 00 00 0B 24 00" + kBoard1;
const std::string kBreakFrame = "19 01 .. .. .. .. ..";

/// Presses it after the dialog has polled twice.
template <typename Press>
std::function<void(ErrorDialog&)> AfterTwoPolls(test::TestDesk& desk, Press press) {
  return [&desk, press](ErrorDialog& dialog) {
    desk.Loop.After(250, [&dialog, press] { press(dialog); });
  };
}

TEST_F(FramesOfAStop, ContinueSendsTheListAgainWithByte1Set) {
  paper.Codes = {30};
  view.Answers = {AfterTwoPolls(desk, Continue)};
  Contact();
  run.cmdDeal();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kStart, kThreePolls, kCardLog, kDialogPoll + " x2",
                                      kGoOnFrame, kThreePolls, kCardLog, kProbe}));
}

TEST_F(FramesOfAStop, EachFaultOfABoardFetchesTheLogAndGoesOn) {
  paper.Codes = {30, 54, 57};
  view.Answers = {Continue, Continue, Continue};
  Contact();
  run.cmdDeal();
  EXPECT_TRUE(FramesAre(
      bridge.Sent, {kStart, kThreePolls, kCardLog, kGoOnFrame, kThreePolls, kCardLog, kGoOnFrame,
                    kThreePolls, kCardLog, kGoOnFrame, kThreePolls, kCardLog, kProbe}));
}

TEST_F(FramesOfAStop, CancelAsksForTheVersionAndThePollingGoesOn) {
  paper.Codes = {30};
  view.Answers = {AfterTwoPolls(desk, Cancel)};
  Contact();
  run.cmdDeal();
  desk.Loop.WaitMs(250);
  EXPECT_TRUE(FramesAre(
      bridge.Sent, {kStart, kThreePolls, kCardLog, kDialogPoll + " x2", kProbe, kPoll + " x2"}));
}

TEST_F(FramesOfAStop, TheSameBoardBeginsAgainWithTheNextRotation) {
  paper.Codes = {1};
  view.Answers = {Third};
  Contact();
  run.cmdDeal();
  run.cmdDeal();
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {kStart, kThreePolls, kCardLog, kProbe,
                              "98 00 00 01 3D 56 00" + kBoard1, kThreePolls, kCardLog, kProbe}));
}

TEST_F(FramesOfAStop, TheBreakStandsInThePlaceOfAPollWithTheOtherFlagsClear) {
  paper.BusyPolls = 10;
  view.Answers = {AfterTwoPolls(desk, Cancel)};
  Contact();
  paper.Damage = [&](int, const Bytes& plain, const Bytes& wire) {
    if (plain[0] == 0x19 && SentOf(0x19).size() == 2) paper.Events = 8 | 16;
    return wire;
  };
  desk.Loop.OnPump = [&] {
    if (machine.PedalFlag != 0) run.cmdBreak();
  };
  run.cmdDeal();
  // The third poll reports pedal and board. The break comes in the place of their acknowledgement,
  // which is the dialog's; nobody has pressed since it opened.
  EXPECT_TRUE(FramesAre(bridge.Sent, {kStart, kThreePolls, kBreakFrame, kCardLog,
                                      "19 06 == 00 00 00 00", kDialogPoll, kProbe}));
}

TEST_F(FramesOfAStop, ABreakThatIsContinuedGoesOnWithTheBoard) {
  paper.BusyPolls = 4;
  view.Answers = {Continue};
  Contact();
  desk.Loop.OnPump = [this, asked = false]() mutable {
    if (machine.MachineState == Machine::kBusy && !std::exchange(asked, true)) run.cmdBreak();
  };
  run.cmdDeal();
  EXPECT_TRUE(FramesAre(
      bridge.Sent, {kStart, kBreakFrame, kCardLog, kGoOnFrame, kPoll + " x4", kCardLog, kProbe}));
}

TEST_F(FramesOfAStop, ThePedalThatContinuesIsAcknowledgedByTheNextPoll) {
  paper.Codes = {55};
  view.Answers = {[this](ErrorDialog&) { paper.Events = 8; }};
  Contact();
  run.cmdDeal();
  EXPECT_TRUE(FramesAre(bridge.Sent, {kStart, kThreePolls, kCardLog, kDialogPoll, kGoOnFrame,
                                      "19 02 .. .. .. .. ..", kPoll + " x2", kCardLog, kProbe}));
}

TEST_F(FramesOfAStop, ABoardPutInDuringTheDialogIsAcknowledgedByItsNextPoll) {
  paper.Codes = {58};
  view.Answers = {[this](ErrorDialog& dialog) {
    paper.Events = 16;
    desk.Loop.After(350, [&dialog] { dialog.PressContinue(); });
  }};
  Contact();
  run.cmdDeal();
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {kStart, kThreePolls, kCardLog, kDialogPoll, "19 04 == 00 00 00 00",
                              kDialogPoll, kGoOnFrame, kThreePolls, kCardLog, kProbe}));
}

TEST_F(FramesOfAStop, ALinkLostInTheDialogIsTriedOnceMoreByTheProbe) {
  paper.Codes = {30};
  view.Answers = {[this](ErrorDialog&) { paper.Powered = false; }};
  Contact();
  run.cmdDeal();
  desk.Loop.WaitMs(1000);
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {kStart, kThreePolls, kCardLog, kDialogPoll + " x2", kProbe + " x2"}));
}

TEST_F(FramesOfAStop, LeavingInTheMiddleBreaksAndProbes) {
  paper.BusyPolls = 10;
  Contact();
  desk.Loop.OnPump = [this, asked = false]() mutable {
    if (machine.MachineState == Machine::kBusy && !std::exchange(asked, true)) run.Exit();
  };
  run.cmdDeal();
  desk.Loop.WaitMs(1000);
  EXPECT_TRUE(FramesAre(bridge.Sent, {kStart, kBreakFrame, kCardLog, kProbe}));
  EXPECT_THAT(bridge.Calls, ::testing::ElementsAre("WriteLatch 1 0", "Close"));
}

}  // namespace
}  // namespace morvane::machine
