#include <algorithm>

#include "simulator/talk.h"

namespace morvane::simulator {
namespace {

using std::chrono::milliseconds;

constexpr int kActive = 4;
constexpr int kPedal = 8;
constexpr int kInserted = 16;

/// The program's polling timer, as far as slot and pedal go: a poll each 100 ms.
struct Poller {
  Talk& Line;
  int PedalFlag = 0;
  int BoxFlag = 0;
  int BoxInTicks = 0;
  int BoxOutTicks = 0;
  int Starts = 0;

  void Poll(int times = 1) {
    for (; times > 0; --times) {
      Line.Clock.Spend(milliseconds(100));
      const auto flags =
          static_cast<std::uint8_t>((PedalFlag != 0 ? 2 : 0) | (BoxFlag != 0 ? 4 : 0));
      const int bits = Line.Status(flags).at(6);
      PedalFlag = (bits & kPedal) != 0 ? 1 : 0;
      BoxFlag = (bits & kInserted) != 0 ? 1 : 0;
      if (BoxFlag != 0) BoxInTicks = BoxOutTicks;
      if ((bits & kActive) != 0) BoxOutTicks = 0;
      BoxOutTicks = std::min(BoxOutTicks + 1, 10);
      if (PedalFlag == 1 || (BoxFlag == 1 && BoxInTicks == 10)) ++Starts;
    }
  }
};

TEST(Pedal, IsReportedUntilItIsAcknowledged) {
  Talk talk;
  EXPECT_EQ(talk.Status().at(6), 0);
  talk.Machine.PressPedal();
  EXPECT_EQ(talk.Status().at(6), kPedal);
  EXPECT_EQ(talk.Status(4).at(6), kPedal);  // the other's acknowledgement
  EXPECT_EQ(talk.Status(1).at(6), kPedal);
  EXPECT_EQ(talk.Status(2).at(6), 0);
  EXPECT_EQ(talk.Status().at(6), 0);
}

TEST(Pedal, AnAcknowledgementCoversWhatWasNotReportedYet) {
  Talk talk;
  talk.Machine.PressPedal();
  EXPECT_EQ(talk.Status(2).at(6), 0);
  EXPECT_EQ(talk.Status().at(6), 0);
  talk.Machine.InsertBoard(7);
  EXPECT_EQ(talk.Status(4).at(6) & kInserted, 0);
  EXPECT_EQ(talk.Status().at(6) & kInserted, 0);
}

TEST(Slot, AnInsertionIsReportedUntilItIsAcknowledged) {
  Talk talk;
  talk.Machine.InsertBoard(7);
  EXPECT_EQ(talk.Status().at(6), kActive | kInserted);
  EXPECT_EQ(talk.Status(2).at(6), kInserted);
  EXPECT_EQ(talk.Status(4).at(6), 0);
  EXPECT_EQ(talk.Status().at(6), 0);
}

TEST(Slot, ARemovalOnlyMovesTheSwitch) {
  Talk talk;
  talk.Machine.InsertBoard(7);
  talk.Status();
  talk.Status(4);
  talk.Machine.RemoveBoard();
  EXPECT_EQ(talk.Status().at(6), kActive);
  EXPECT_EQ(talk.Status().at(6), 0);
  talk.Machine.RemoveBoard();  // nothing in it
  EXPECT_EQ(talk.Status().at(6), 0);
}

TEST(Slot, AQuietSecondBeforeTheBoardStartsADeal) {
  Talk talk;
  Poller poller{talk};
  poller.Poll(10);
  talk.Machine.InsertBoard(1);
  poller.Poll();
  EXPECT_EQ(poller.BoxInTicks, 10);
  EXPECT_EQ(poller.Starts, 1);
  poller.Poll(20);  // acknowledged: no second start
  EXPECT_EQ(poller.Starts, 1);
}

TEST(Slot, TheBoardsOfAnEveningEachStartADeal) {
  Talk talk;
  Poller poller{talk};
  poller.Poll(10);
  for (int board = 1; board <= 4; ++board) {
    talk.Machine.InsertBoard(board);
    poller.Poll(5);
    EXPECT_EQ(poller.Starts, board);
    talk.Machine.RemoveBoard();
    poller.Poll(10);
  }
}

TEST(Slot, ABoardPulledAndPushedBackWithinASecondStartsNothing) {
  for (int polls = 0; polls <= 9; ++polls) {
    Talk talk;
    Poller poller{talk};
    poller.Poll(10);
    talk.Machine.InsertBoard(1);
    poller.Poll(20);
    ASSERT_EQ(poller.Starts, 1);
    talk.Machine.RemoveBoard();
    poller.Poll(polls);
    talk.Machine.InsertBoard(1);
    poller.Poll(30);
    EXPECT_EQ(poller.Starts, 1) << polls;
  }
}

TEST(Slot, ABoardPutInTheOldOnesPlaceAtLeisureStartsADeal) {
  Talk talk;
  Poller poller{talk};
  poller.Poll(10);
  talk.Machine.InsertBoard(1);
  poller.Poll(20);
  talk.Machine.InsertBoard(2);
  poller.Poll(2);
  EXPECT_EQ(poller.Starts, 2);
}

TEST(Slot, ABoardInAndOutBetweenTwoPollsWasNotInserted) {
  Talk talk;
  talk.Machine.InsertBoard(1);
  talk.Machine.RemoveBoard();
  EXPECT_EQ(talk.Status().at(6), kActive);
  EXPECT_EQ(talk.Status().at(6), 0);
}

TEST(Slot, ALostReplyLosesNoInsertion) {
  Talk talk;
  Poller poller{talk};
  poller.Poll(10);
  talk.Machine.InsertBoard(1);
  talk.Machine.Faults().AtCommand(0x19, 1, LinkFault::LoseReply());
  EXPECT_TRUE(talk.Status().empty());
  poller.Poll();
  EXPECT_EQ(poller.Starts, 1);
}

TEST(Slot, PullingTheBoardOutOfARunStopsIt) {
  Talk talk;
  const Board board = RandomBoard(5);
  talk.Machine.InsertBoard(1);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  for (int poll = 1; poll <= 3; ++poll) talk.Status();
  talk.Machine.RemoveBoard();
  EXPECT_EQ(talk.State(), 58);
  talk.Machine.InsertBoard(1);
  ASSERT_TRUE(talk.Accepted(DealFrame(board, true)));
  EXPECT_EQ(talk.PollToEnd(), 0);
}

std::uint8_t LabelRead(Talk& talk) {
  const Bytes reply = talk.Ask({0x1B, 4, 0});
  EXPECT_EQ(reply.at(1), 4);
  return reply.at(2);
}

TEST(Label, IsTheNthByteWithFourBitsSet) {
  Talk talk;
  EXPECT_EQ(LabelRead(talk), 0);  // an empty slot
  int n = 0;
  for (int byte = 0; byte <= 255; ++byte) {
    int bits = 0;
    for (int bit = 0; bit < 8; ++bit) bits += byte >> bit & 1;
    if (bits != 4) continue;
    talk.Machine.InsertBoard(++n);
    EXPECT_EQ(LabelRead(talk), byte) << n;
  }
  EXPECT_EQ(n, 70);
  talk.Machine.InsertBoard(1);
  EXPECT_EQ(LabelRead(talk), 15);
  talk.Machine.InsertBoard(2);
  EXPECT_EQ(LabelRead(talk), 23);
  talk.Machine.InsertBoard(70);
  EXPECT_EQ(LabelRead(talk), 240);
}

TEST(Label, BoardsAbove70HaveNone) {
  Talk talk;
  for (const int board : {71, 640, 0, -1}) {
    talk.Machine.InsertBoard(board);
    EXPECT_EQ(LabelRead(talk), 0) << board;
  }
}

TEST(Label, AnyByteCanBeInTheSlot) {
  Talk talk;
  talk.Machine.InsertBoardWithLabel(0xFF);
  EXPECT_EQ(LabelRead(talk), 0xFF);
  talk.Machine.RemoveBoard();
  EXPECT_EQ(LabelRead(talk), 0);
}

TEST(Label, WithoutAReaderNothingIsRead) {
  Options options = Talk::Fast();
  options.Hardware = 0x7B;  // bit 2 clear
  Talk talk(options);
  talk.Machine.InsertBoard(1);
  EXPECT_EQ(LabelRead(talk), 0);
}

}  // namespace
}  // namespace morvane::simulator
