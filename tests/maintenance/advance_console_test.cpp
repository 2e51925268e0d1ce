#include "maintenance/console_desk.h"

// The console's button Advance.

namespace morvane::maintenance {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

class AdvanceButton : public ConsoleDesk {};

TEST_F(AdvanceButton, OpensTheFormOverTheMachine) {
  Start("serial=4712,hardware=0x6B");
  view.OnAdvance = [](AdvanceForm& form) {
    EXPECT_TRUE(form.MachineKnown() && form.Known());
    EXPECT_EQ(form.Adv_SerialNumber.Text(), "4712");
    EXPECT_EQ(form.Curr_HID(), 0x6B);
  };
  console->Advance();
  EXPECT_EQ(view.Advances, 1);
  EXPECT_FALSE(machine.PollLock);
}

TEST_F(AdvanceButton, ThereIsNoneBeforeTheFirstContactWhichComesAllTheSame) {
  Open();
  console->Advance();
  EXPECT_EQ(view.Advances, 0);
  desk.Loop.WaitMs(Maintenance::kFirstContactMs);
  EXPECT_TRUE(console->Controls().MachineKnown);
  console->Advance();
  EXPECT_EQ(view.Advances, 1);
}

TEST_F(AdvanceButton, WorksWithoutFirmwareWithWhatNeedsNoMachine) {
  Start("boot=0.00");
  bridge.Sent.clear();
  view.OnAdvance = [](AdvanceForm& form) { EXPECT_FALSE(form.MachineKnown()); };
  console->Advance();
  EXPECT_EQ(view.Advances, 1);
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(AdvanceButton, NothingElseTakesTheLinkWhileTheFormIsThere) {
  Start();
  view.OnAdvance = [this](AdvanceForm&) {
    bridge.Sent.clear();
    desk.Loop.WaitMs(500);
    console->Feed_card();
    console->Get_param();
    console->Advance();
    EXPECT_THAT(bridge.Sent, IsEmpty());
  };
  console->Advance();
  EXPECT_EQ(view.Advances, 1);
  EXPECT_EQ(bridge.Sent.size(), 3U) << "the identity, behind it";
  Poll();
  EXPECT_EQ(bridge.Sent.size(), 9U) << "and the polling goes on";
}

TEST_F(AdvanceButton, WhatTheFormHasChangedIsShownBehindIt) {
  Start();
  EXPECT_EQ(console->TheIdentity().Boards_dealed, "0");
  view.OnAdvance = [this](AdvanceForm& form) {
    form.Boards_dealt.Put(4'000'000'000);
    desk.Ui.Answers = {kYes};
    form.Clear_boards();
  };
  const int shown = view.All;
  console->Advance();
  EXPECT_EQ(console->TheIdentity().Boards_dealed, "4000000000");
  EXPECT_GT(view.All, shown);
}

TEST_F(AdvanceButton, ALinkLostInTheFormClosesTheServiceAndNothingMoreIsAsked) {
  Start();
  view.OnAdvance = [this](AdvanceForm& form) {
    Deaf = [](const test::Bytes&) { return true; };
    desk.Ui.Answers = {kYes};
    form.Clear_boards();
    bridge.Sent.clear();
  };
  console->Advance();
  EXPECT_TRUE(console->Closed());
  EXPECT_EQ(view.Closes, 1);
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_EQ(desk.Ui.Boxes.back().Text, desk.Prog.Texts.Msg055);
  EXPECT_THAT(bridge.Calls, Contains("WriteLatch 1 0"));
}

TEST_F(AdvanceButton, WhoLeavesMeanwhileLeavesBehindTheForm) {
  Start();
  view.OnAdvance = [this](AdvanceForm&) {
    console->Exit();
    EXPECT_FALSE(console->Closed());
  };
  console->Advance();
  EXPECT_TRUE(console->Closed());
}

}  // namespace
}  // namespace morvane::maintenance
