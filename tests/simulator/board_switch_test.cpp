// The optical board switch of the simulated machine, against frames on paper.

#include <gmock/gmock.h>

#include "simulator/talk.h"

namespace morvane::simulator {
namespace {

Options Levels(int lost, int seen) {
  Options options = Talk::Fast();
  options.BoardSwitch = {lost, seen};
  return options;
}

void Write(Talk& talk, const Bytes& plain) {
  talk.Write(ToWire(plain));
  EXPECT_TRUE(talk.Read(8).empty());
}

void Try(Talk& talk, int sensitivity) {
  Write(talk, {19, 14, 0, 0, static_cast<std::uint8_t>(sensitivity), 1, 0});
}

/// 1 seen, 0 not seen; anything else is no answer.
int Seen(Talk& talk) {
  const Bytes reply = talk.Ask({27, 5, 0, 0, 0, 0, 0});
  return reply.size() == 8 && reply[0] == 27 && (reply[1] & 0x3F) == 5 ? reply[2] : -1;
}

int SeenAt(Talk& talk, int sensitivity) {
  Try(talk, sensitivity);
  return Seen(talk);
}

/// Where the board is lost on the way down from 255: one below the last sensitivity that was tried.
int LostBelow(Talk& talk) {
  for (int sensitivity = 255; sensitivity >= 21; --sensitivity) {
    if (SeenAt(talk, sensitivity) == 0) return sensitivity - 1;
  }
  return 20;
}

TEST(BoardSwitch, LosesAndFindsTheBoardAtTwoSensitivities) {
  Talk talk(Levels(100, 150));
  talk.Machine.InsertBoard(3);
  EXPECT_EQ(Seen(talk), 1) << "180 is what it keeps";
  EXPECT_EQ(SeenAt(talk, 255), 1);
  EXPECT_EQ(SeenAt(talk, 149), 1);
  EXPECT_EQ(SeenAt(talk, 101), 1);
  EXPECT_EQ(SeenAt(talk, 100), 0);
  EXPECT_EQ(SeenAt(talk, 101), 0);
  EXPECT_EQ(SeenAt(talk, 149), 0);
  EXPECT_EQ(SeenAt(talk, 150), 1);
}

TEST(BoardSwitch, ABoardMayBeInTheSlotFromTheStart) {
  Options options = Levels(100, 150);
  options.Board = 3;
  Talk talk(options);
  EXPECT_EQ(Seen(talk), 1);
  Talk empty(Levels(100, 150));
  EXPECT_EQ(Seen(empty), 0);
}

TEST(BoardSwitch, LooksAtEachSensitivityAlsoWhenNobodyAsks) {
  Talk talk(Levels(100, 150));
  talk.Machine.InsertBoard(3);
  Try(talk, 50);
  EXPECT_EQ(SeenAt(talk, 120), 0);
}

TEST(BoardSwitch, ReachesTheEndsOfTheScale) {
  Talk never(Levels(254, 255));
  never.Machine.InsertBoard(3);
  EXPECT_EQ(SeenAt(never, 254), 0);
  EXPECT_EQ(SeenAt(never, 255), 1);
  Talk always(Levels(0, 1));
  always.Machine.InsertBoard(3);
  EXPECT_EQ(SeenAt(always, 1), 1);
  EXPECT_EQ(SeenAt(always, 0), 0);
}

TEST(BoardSwitch, AUsualBoardIsLostAt101) {
  Talk talk;
  talk.Machine.InsertBoard(3);
  EXPECT_EQ(LostBelow(talk), 100);
  EXPECT_EQ(SeenAt(talk, 119), 0);
  EXPECT_EQ(SeenAt(talk, 120), 1);
}

TEST(BoardSwitch, SeesNothingInAnEmptySlot) {
  Talk talk(Levels(100, 150));
  EXPECT_EQ(SeenAt(talk, 255), 0);
  talk.Machine.InsertBoard(3);
  EXPECT_EQ(Seen(talk), 1);
  talk.Machine.RemoveBoard();
  EXPECT_EQ(Seen(talk), 0);
}

TEST(BoardSwitch, ANewBoardIsUnseenBetweenTheLevels) {
  Talk talk(Levels(100, 150));
  talk.Machine.InsertBoard(3);
  EXPECT_EQ(SeenAt(talk, 120), 1);
  talk.Machine.InsertBoard(4);
  EXPECT_EQ(Seen(talk), 0);
}

TEST(BoardSwitch, ATrialEndsWithTheNextSensitivityThatIsKept) {
  Talk talk(Levels(100, 150));
  talk.Machine.InsertBoard(3);
  EXPECT_EQ(SeenAt(talk, 50), 0);
  Write(talk, {19, 14, 128, 128, 200, 0, 0});
  EXPECT_EQ(Seen(talk), 1);
  EXPECT_EQ(talk.Machine.Parameters().Video.BoardSen, 200);
  EXPECT_EQ(SeenAt(talk, 255), 1);
  Write(talk, {19, 14, 128, 128, 100, 0, 0});
  EXPECT_EQ(Seen(talk), 0);
}

TEST(BoardSwitch, OtherParametersLeaveTheTrial) {
  Talk talk(Levels(100, 150));
  talk.Machine.InsertBoard(3);
  EXPECT_EQ(SeenAt(talk, 50), 0);
  Write(talk, {19, 1, 11, 12, 13, 14});
  Write(talk, {19, 14, 128, 128, 200, 0, 1});
  EXPECT_EQ(Seen(talk), 0) << "the second one is garbled";
}

TEST(BoardSwitch, ATrialEndsWithThePower) {
  Talk talk(Levels(100, 150));
  talk.Machine.InsertBoard(3);
  EXPECT_EQ(SeenAt(talk, 50), 0);
  talk.Machine.PowerOff();
  talk.Machine.PowerOn();
  EXPECT_EQ(Seen(talk), 1) << "180 is what it keeps";
}

TEST(BoardSwitch, ATrialTouchesNeitherBrightnessNorContrast) {
  Talk talk;
  Write(talk, {19, 14, 70, 80, 90, 0, 0});
  Try(talk, 255);
  const Bytes block = talk.Ask({17, 14});
  EXPECT_EQ(Bytes(block.begin() + 2, block.begin() + 7), (Bytes{70, 80, 90, 0, 0}));
}

TEST(BoardSwitch, NeedsItsHardware) {
  Options options = Talk::Fast();
  options.Hardware = 0xFFBF;
  Talk without(options);
  without.Machine.InsertBoard(3);
  EXPECT_EQ(Seen(without), -1);
  options.Hardware = 0x40;
  Talk with(options);
  with.Machine.InsertBoard(3);
  EXPECT_EQ(Seen(with), 1);
}

TEST(BoardSwitch, TellsTheFlipPlateLikeEveryStatusFrame) {
  Talk talk;
  EXPECT_EQ(talk.Ask({27, 5}).at(1), 5);
  talk.Ask({23, 16, 0});
  EXPECT_EQ(talk.Ask({27, 5}).at(1), 0x85);
  EXPECT_EQ(Seen(talk), 0) << "bit 7 says nothing of the board";
}

TEST(BoardSwitch, AFrameThatCanBeNoneIsNotAnswered) {
  Talk talk;
  for (std::size_t at = 2; at <= 6; ++at) {
    Bytes frame{27, 5, 0, 0, 0, 0, 0};
    frame.at(at) = 1;
    EXPECT_TRUE(talk.Ask(frame).empty()) << at;
  }
}

TEST(BoardSwitch, NothingElseGoesByIt) {
  Talk talk(Levels(100, 150));
  talk.Machine.InsertBoard(3);
  ASSERT_EQ(SeenAt(talk, 50), 0);
  EXPECT_EQ(talk.Ask({23, 0, 0}).at(6) & 0x80, 0x80) << "the switch of the box";
  EXPECT_EQ(talk.Ask({27, 4}).at(2), 27) << "the label of board 3";
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
  EXPECT_EQ(talk.PollToEnd(), 0);
}

}  // namespace
}  // namespace morvane::simulator
