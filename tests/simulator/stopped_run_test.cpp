#include "simulator/talk.h"
#include "support/fakes.h"

namespace morvane::simulator {
namespace {

TEST(Break, StopsTheRunWithItsCode) {
  Talk talk;
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
  for (int poll = 1; poll <= 10; ++poll) talk.Status();
  const Bytes reply = talk.Status(1);
  EXPECT_EQ(reply.at(1), 57);
  EXPECT_EQ(reply[2] + reply[3] + reply[4] + reply[5], 10);
  EXPECT_EQ(talk.State(), 57);
}

TEST(Break, DoesNothingToAnIdleMachine) {
  Talk talk;
  EXPECT_EQ(talk.Status(1).at(1), 0);
}

TEST(Break, IsFollowedByTheRestOfTheBoardWhenTheRunGoesOn) {
  Talk talk;
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  for (int poll = 1; poll <= 10; ++poll) talk.Status();
  talk.Status(1);
  ASSERT_TRUE(talk.Accepted(DealFrame(board, true)));
  const Bytes reply = talk.Status();
  EXPECT_EQ(reply.at(1), 0xFF);
  EXPECT_EQ(reply[2] + reply[3] + reply[4] + reply[5], 11);
  ASSERT_EQ(talk.PollToEnd(), 0);
  EXPECT_TRUE(LiesAs(talk.Machine, board));
  EXPECT_EQ(talk.Machine.BoardsDealt(), 1);
}

TEST(MachineError, StopsBeforeTheChosenCardOfTheChosenBoard) {
  Options options = Talk::Fast();
  options.Faults = {{2, 20, 30}};
  Talk talk(options);
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  ASSERT_EQ(talk.PollToEnd(), 0);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  ASSERT_EQ(talk.PollToEnd(), 30);
  const Bytes reply = talk.Status();
  EXPECT_EQ(reply[2] + reply[3] + reply[4] + reply[5], 19);
  EXPECT_EQ(talk.Machine.BoardsDealt(), 1);
  ASSERT_TRUE(talk.Accepted(DealFrame(board, true)));
  ASSERT_EQ(talk.PollToEnd(), 0);
  EXPECT_TRUE(LiesAs(talk.Machine, board));
}

TEST(MachineError, HappensOnceAlsoWhenTheBoardIsBegunAgain) {
  Options options = Talk::Fast();
  options.Faults = {{1, 1, 9}, {2, 52, 55}};
  Talk talk(options);
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  ASSERT_EQ(talk.PollToEnd(), 9);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  ASSERT_EQ(talk.PollToEnd(), 0);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));  // the second board that is dealt to its end
  ASSERT_EQ(talk.PollToEnd(), 55);
}

TEST(MachineError, TwoAtTheSameCardComeOneAfterTheOther) {
  Options options = Talk::Fast();
  options.Faults = {{1, 5, 54}, {1, 5, 56}};
  Talk talk(options);
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  ASSERT_EQ(talk.PollToEnd(), 54);
  ASSERT_TRUE(talk.Accepted(DealFrame(board, true)));
  ASSERT_EQ(talk.PollToEnd(), 56);
  ASSERT_TRUE(talk.Accepted(DealFrame(board, true)));
  ASSERT_EQ(talk.PollToEnd(), 0);
  EXPECT_TRUE(LiesAs(talk.Machine, board));
}

TEST(MachineError, OnlyRecognitionAndFeedErrorsCanBeContinued) {
  for (int code = 1; code <= 240; ++code) {
    Talk talk;
    const Board board = RandomBoard(5);
    ASSERT_TRUE(talk.Accepted(DealFrame(board)));
    for (int poll = 1; poll <= 5; ++poll) talk.Status();
    talk.Machine.CauseFault(code);
    ASSERT_EQ(talk.PollToEnd(), code);
    ASSERT_TRUE(talk.Accepted(DealFrame(board, true)));
    ASSERT_EQ(talk.PollToEnd(), code >= 25 && code <= 60 ? 0 : code);
    ASSERT_TRUE(talk.Accepted(DealFrame(board)));  // from the beginning it always goes
    ASSERT_EQ(talk.PollToEnd(), 0);
    ASSERT_TRUE(LiesAs(talk.Machine, board)) << code;
  }
}

TEST(MachineError, ACodeThatWouldReadAsIdleOrBusyIsIgnored) {
  Talk talk;
  for (const int code : {0, -1, 241, 255, 256}) talk.Machine.CauseFault(code);
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
  EXPECT_EQ(talk.PollToEnd(), 0);
}

TEST(MachineError, TheVersionCommandBringsTheMachineBackToIdle) {
  Talk talk;
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  talk.Machine.CauseFault(34);
  ASSERT_EQ(talk.PollToEnd(), 34);
  EXPECT_EQ(talk.Ask({0x1A}).at(0), 0x1A);
  EXPECT_EQ(talk.State(), 0);
  // Its run is over: going on with nothing must never look like a finished board.
  ASSERT_TRUE(talk.Accepted(DealFrame(board, true)));
  EXPECT_EQ(talk.PollToEnd(), 62);
}

TEST(MachineError, TheVersionCommandLeavesARunInProgressAlone) {
  Talk talk;
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  talk.Status();
  talk.Ask({0x1A});
  EXPECT_EQ(talk.State(), 0xFF);
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_TRUE(LiesAs(talk.Machine, board));
}

TEST(MachineError, ARepeatedContinueIsHarmless) {
  Talk talk;
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  talk.Status();
  talk.Status(1);
  ASSERT_TRUE(talk.Accepted(DealFrame(board, true)));
  ASSERT_TRUE(talk.Accepted(DealFrame(board, true)));
  ASSERT_EQ(talk.PollToEnd(), 0);
  ASSERT_TRUE(talk.Accepted(DealFrame(board, true)));  // done already, and stays done
  EXPECT_EQ(talk.State(), 0);
  EXPECT_TRUE(LiesAs(talk.Machine, board));
  EXPECT_EQ(talk.Machine.BoardsDealt(), 1);
}

TEST(Power, OffIsSilenceAndOnAgainTheRunIsForgotten) {
  Talk talk;
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  talk.Status();
  talk.Machine.PowerOff();
  EXPECT_EQ(talk.Machine.StateText(), "off");
  EXPECT_TRUE(talk.Status().empty());
  EXPECT_TRUE(talk.Ask({0x1A}).empty());
  talk.Machine.PowerOn();
  EXPECT_EQ(talk.State(), 0);
  ASSERT_TRUE(talk.Accepted(DealFrame(board, true)));
  EXPECT_EQ(talk.PollToEnd(), 62);
}

TEST(StateText, SaysWhatTheMachineDoes) {
  Talk talk;
  EXPECT_EQ(talk.Machine.StateText(), "idle");
  const auto before = talk.Machine.Changed();
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
  for (int poll = 1; poll <= 11; ++poll) talk.Status();
  EXPECT_EQ(talk.Machine.StateText(), "dealing card 12 of 52");
  EXPECT_TRUE(talk.Machine.Busy());
  EXPECT_GE(talk.Machine.Changed(), before + 11);
  talk.Status(1);
  EXPECT_EQ(talk.Machine.StateText(), "stopped at card 12 of 52 with code 57");
}

}  // namespace
}  // namespace morvane::simulator
