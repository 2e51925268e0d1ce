#include "simulator/frame_log.h"

#include "simulator/talk.h"

namespace morvane::simulator {
namespace {

class FrameLogTest : public testing::Test {
 protected:
  Talk talk;

  [[nodiscard]] std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    const FrameLog& log = talk.Machine.Frames();
    for (std::size_t at = 0; at < log.Count(); ++at) lines.push_back(log.Text(at));
    return lines;
  }
  using Texts = std::vector<std::string>;
};

TEST_F(FrameLogTest, EveryExchangeStandsThereByName) {
  EXPECT_EQ(Lines(), Texts{});
  talk.Ask({0x1A, 0});
  talk.Accepted(DealFrame(RandomBoard(1)));
  talk.Ask({0x20});
  EXPECT_EQ(Lines(), (Texts{"CmdVersion -> version: 2.90", "CmdDeal begin -> accepted",
                            "CmdFetchLog -> card log"}));
  EXPECT_EQ(talk.Machine.Frames().Exchanges(), 3U);
}

TEST_F(FrameLogTest, PollsThatTellTheSameButForTheCountsAreOneLine) {
  ASSERT_TRUE(talk.Accepted({0x35, 0, 0, 0, 11, 36, 0}));
  Bytes last;
  for (int poll = 1; poll <= 54; ++poll) last = talk.Status();
  const auto count = [&last](std::size_t at) { return " " + std::to_string(last.at(at)); };
  EXPECT_EQ(Lines(),
            (Texts{"CmdSort begin -> accepted",
                   "54 x CmdStatus -> status: busy," + count(2) + count(3) + count(4) + count(5)}));
  EXPECT_EQ(talk.Machine.Frames().Exchanges(), 55U);
}

TEST_F(FrameLogTest, APollWithAnotherFlagOrAnotherAnswerIsALineOfItsOwn) {
  talk.Status();
  talk.Status();
  talk.Machine.PressPedal();
  talk.Status();
  talk.Status(2);
  talk.Status();
  EXPECT_EQ(Lines(), (Texts{"2 x CmdStatus -> status: idle, 0 0 0 0",
                            "CmdStatus -> status: idle, 0 0 0 0, pedal",
                            "CmdStatus pedal seen -> status: idle, 0 0 0 0",
                            "CmdStatus -> status: idle, 0 0 0 0"}));
}

TEST_F(FrameLogTest, APicturesLinesAreOneLine) {
  talk.Ask({10, 0, 0, 0});
  for (std::uint8_t y = 0; y < 192; ++y) talk.Ask({1, y});
  talk.Ask({2, 0});
  talk.Ask({1, 192});
  EXPECT_EQ(Lines(),
            (Texts{"CmdCapture index 0 -> picture", "192 x CmdPictureLine 191 -> picture line 191",
                   "CmdErrorPictureLine 0 -> error line 0", "CmdPictureLine 192 -> no answer"}));
}

TEST_F(FrameLogTest, OtherCommandsAreNotFolded) {
  talk.Ask({0x1A, 0});
  talk.Ask({0x1A, 0});
  EXPECT_EQ(Lines(), (Texts{"CmdVersion -> version: 2.90", "CmdVersion -> version: 2.90"}));
}

TEST_F(FrameLogTest, TheServicesPollIsALineForEachOfItsFrames) {
  const auto poll = [this](std::uint8_t outputs) {
    talk.Ask({23, outputs, 0});
    for (std::uint8_t selector = 0; selector <= 4; ++selector) talk.Ask({27, selector, 0});
  };
  for (int i = 0; i < 5; ++i) poll(0);
  talk.Machine.Opened().SetTemperature(300);
  poll(0);
  EXPECT_EQ(Lines(),
            (Texts{"6 x CmdOutputs 0x00 -> photo sensors: 35 35 35 35 35, switches 0x40",
                   "6 x CmdSensor 0 -> sensor: motors 0 0", "6 x CmdSensor 1 -> sensor: motors 0 0",
                   "6 x CmdSensor 2 -> sensor: climate 306 628", "6 x CmdSensor 3 -> sensor: 3",
                   "6 x CmdSensor label -> sensor: 0x00"}));
}

TEST_F(FrameLogTest, AnotherOutputSwitchOrLabelIsALineOfItsOwnInItsPlace) {
  talk.Ask({23, 0, 0});
  talk.Ask({27, 4, 0});
  talk.Ask({23, 64, 0});
  talk.Machine.Opened().Set(Sensors::Switch::Front, true);
  talk.Ask({23, 64, 0});
  talk.Machine.InsertBoard(1);
  talk.Ask({27, 4, 0});
  talk.Ask({19, 1, 1, 2, 3, 4});
  talk.Ask({27, 4, 0});
  EXPECT_EQ(Lines(),
            (Texts{"CmdOutputs 0x00 -> photo sensors: 35 35 35 35 35, switches 0x40",
                   "CmdSensor label -> sensor: 0x00",
                   "CmdOutputs 0x40 -> photo sensors: 35 35 35 35 35, switches 0x40",
                   "CmdOutputs 0x40 -> photo sensors: 35 35 35 35 35, switches 0x60",
                   "CmdSensor label -> sensor: 0x0F, board 1", "CmdWriteParameters 1 -> no answer",
                   "CmdSensor label -> sensor: 0x0F, board 1"}));
}

TEST_F(FrameLogTest, WhatIsNotAnsweredIsSaid) {
  talk.Ask({0x77});
  Bytes bad = ToWire({0x1A, 0, 0, 0, 0, 0, 0, 0});
  bad[3] ^= 1;
  talk.Write(bad);
  talk.Clock.Spend(std::chrono::milliseconds(30));
  talk.Machine.Faults().AtCommand(0x1A, 1, LinkFault::LoseReply());
  talk.Ask({0x1A, 0});
  EXPECT_EQ(Lines(), (Texts{"frame 0x77 -> no answer", "bytes with a bad check",
                            "CmdVersion -> no answer"}));
}

TEST_F(FrameLogTest, TheOldestGoWhereThereIsNoRoom) {
  for (int i = 0; i < 63; ++i) talk.Ask({0x12, 1});
  talk.Ask({0x1A, 0});
  talk.Ask({0x20});
  talk.Ask({0x1D});
  const auto lines = Lines();
  ASSERT_EQ(lines.size(), FrameLog::kCapacity);
  EXPECT_EQ(FrameLog::kCapacity, 64U);
  EXPECT_EQ(lines.front(), "CmdIdentity page 1 -> identity: 4711, hardware 0x007F");
  EXPECT_EQ(lines.at(61), "CmdVersion -> version: 2.90");
  EXPECT_EQ(lines.back(), "CmdFetchBoard -> board");
}

}  // namespace
}  // namespace morvane::simulator
