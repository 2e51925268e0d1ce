#include "maintenance/console_poll.h"

#include "maintenance/service_desk.h"
#include "support/frame_list.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::ElementsAre;

class Console : public ServiceDesk {
 protected:
  ConsolePoll poll{link, machine, [] {}};
  void SetUp() override {
    ServiceDesk::SetUp();
    poll.SensorsLive = true;
  }
};

TEST_F(Console, APollIsTheOutputsAndTheStatusFramesThatTheFirmwareKnows) {
  const std::vector<std::string> all{"17 00 00 .. .. .. ..", "1B 00 00 .. .. .. ..",
                                     "1B 01 00 .. .. .. ..", "1B 02 00 .. .. .. ..",
                                     "1B 03 00 .. .. .. ..", "1B 04 00 .. .. .. .."};
  for (const auto& [minor, frames] : {std::pair{0x1F, 1},
                                      {0x20, 3},
                                      {0x23, 3},
                                      {0x24, 4},
                                      {0x25, 4},
                                      {0x26, 5},
                                      {0x36, 5},
                                      {0x37, 6},
                                      {0x90, 6}}) {
    SCOPED_TRACE(minor);
    Use(static_cast<std::uint8_t>(minor));
    EXPECT_TRUE(poll.Poll(false));
    EXPECT_TRUE(FramesAre(bridge.Sent, {all.begin(), all.begin() + frames}));
  }
}

TEST_F(Console, OldFirmwareLeavesTheStatusEmpty) {
  Use(0x1F);
  poll.Poll(false);
  EXPECT_NE(poll.Now().Photo[1].Text, "");
  EXPECT_EQ(poll.Now().Motor_speed[1].Text, "");
  EXPECT_EQ(poll.Now().Inside_temp.Text, "");
  EXPECT_EQ(poll.StatusAnswers(), 0);
}

TEST_F(Console, TheOutputsAreAMaskAndTheFeedLastsOnePoll) {
  Use(0x1F);
  poll.Outputs = wire::OutputsCommand::kMotors | wire::OutputsCommand::kFrontRedLed;
  poll.Poll(true);
  poll.Poll(false);
  EXPECT_TRUE(FramesAre(bridge.Sent, {"17 81 01 .. .. .. ..", "17 81 00 .. .. .. .."}));
}

TEST_F(Console, WhatTheMachineSaysIsShown) {
  poll.Outputs = wire::OutputsCommand::kMotors | wire::OutputsCommand::kCamLeds;
  poll.Poll(false);
  poll.Poll(false);
  EXPECT_EQ(poll.Now().Motor_speed[1], (Reading{"14500", Shade::kGood}));
  EXPECT_EQ(poll.Now().Motor_speed[4], (Reading{"14500", Shade::kGood}));
  EXPECT_EQ(poll.Now().Inside_temp.Text, "25.3");
  EXPECT_EQ(poll.Now().Supply_volt.Text, "23.6") << "four motors draw on it";
  EXPECT_EQ(poll.Now().Flip_Switch.Text, "ON");
  EXPECT_EQ(poll.Now().Board_no_txt, "0");
}

TEST_F(Console, NothingIsShownBeforeTheMachineIsKnown) {
  poll.SensorsLive = false;
  poll.Poll(false);
  EXPECT_EQ(poll.Now().Photo[1].Text, "");
}

TEST_F(Console, TheGatesAreFiredInTurnAndTheirRoundsCounted) {
  Use(0x1F);
  poll.Outputs = wire::OutputsCommand::kCamPower;
  poll.GateTest = true;
  for (int i = 0; i < 4; ++i) poll.Poll(false);
  EXPECT_THAT(SubCodes(23), ElementsAre(34, 36, 40, 34));
  EXPECT_EQ(poll.GateCycles(), 2);
  bridge.Sent.clear();
  poll.GateTest = false;
  poll.Poll(false);
  poll.GateTest = true;
  poll.Poll(false);
  EXPECT_THAT(SubCodes(23), ElementsAre(32, 34)) << "the turn begins anew";
}

TEST_F(Console, TheOutputsBesideAPollFireNoGate) {
  Use(0x1F);
  poll.Outputs = wire::OutputsCommand::kCamPower;
  poll.GateTest = true;
  EXPECT_TRUE(poll.SendOutputs());
  poll.Poll(false);
  EXPECT_TRUE(poll.SendOutputs());
  poll.Poll(false);
  EXPECT_THAT(SubCodes(23), ElementsAre(32, 34, 32, 36)) << "and the turn stays";
}

TEST_F(Console, EachStatusAnswerCounts) {
  poll.Poll(false);
  EXPECT_EQ(poll.StatusAnswers(), 5);
  poll.Poll(false);
  EXPECT_EQ(poll.StatusAnswers(), 10);
}

TEST_F(Console, ALostLinkEndsThePollAtAnyOfItsFrames) {
  for (int target = 0; target < 6; ++target) {
    SCOPED_TRACE(target);
    desk.Ui.Boxes.clear();
    ServiceLink fresh(desk.Prog, machine, [this] { ++recoveries; });
    ConsolePoll lost(fresh, machine, [] {});
    Use(0x90);
    recoveries = 0;
    int sent = 0;
    Damage = [&](const Bytes&, Bytes wire) { return sent++ >= target ? Bytes{} : wire; };
    EXPECT_FALSE(lost.Poll(false));
    EXPECT_EQ(bridge.Sent.size(), static_cast<std::size_t>(target) + 2) << "a retry and no more";
    EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
    EXPECT_EQ(recoveries, 1);
    EXPECT_FALSE(machine.PollLock);
    Damage = nullptr;
  }
}

}  // namespace
}  // namespace morvane::maintenance
