#include "simulator/line/paced_line.h"

#include "simulator/talk.h"

namespace morvane::simulator {
namespace {

using std::chrono::microseconds;

/// A plain status poll, and a plain fetch of the card log, whose reply is long.
const Bytes kPoll{0x19, 0, 0, 0, 0, 0, 0, 0};
const Bytes kFetchLog{0x20, 0, 0, 0, 0, 0, 0, 0};

class PacedLineTest : public testing::Test {
 protected:
  static Options OfSpeed(double speed) {
    Options options = Talk::Fast();
    options.Speed = speed;
    return options;
  }
  /// What has arrived by `us`.
  static Bytes Taken(PacedLine& line, int us) {
    Bytes bytes(200);
    bytes.resize(line.Take(bytes, microseconds(us)));
    return bytes;
  }
  static std::size_t Arrived(PacedLine& line, int us) { return Taken(line, us).size(); }

  WiredMachine machine{OfSpeed(1)};
  PacedLine wire{machine, Pace::kWire};
};

// A byte takes 86.8 us: eight of them 694, of the command and again of the reply, and 2000 between.
TEST_F(PacedLineTest, AReplyComesByteByByteAfterTheCommandAndTheThinking) {
  wire.Hear(ToWire(kPoll), microseconds(0));
  EXPECT_EQ(wire.NextAt(), microseconds(694 + 2000 + 694));
  EXPECT_EQ(Arrived(wire, 2694 + 86), 0U);
  EXPECT_EQ(Arrived(wire, 2694 + 87), 1U);
  EXPECT_EQ(Arrived(wire, 2694 + 174), 1U) << "the second one";
  EXPECT_EQ(Arrived(wire, 2694 + 693), 5U);
  EXPECT_EQ(Arrived(wire, 2694 + 694), 1U);
  EXPECT_EQ(wire.NextAt(), std::nullopt);
}

TEST_F(PacedLineTest, TheReplyIsTheMachinesOwn) {
  wire.Hear(ToWire(kPoll), microseconds(0));
  const Bytes plain = Keyed(Taken(wire, 10'000), 0x19, 21);
  EXPECT_EQ(plain, (Bytes{0x19, 0, 0, 0, 0, 0, 0, 0xE6})) << "idle, no card; 19 xor FF";
}

// 136 bytes take 11806 us.
TEST_F(PacedLineTest, ALongReplyWakesItsCarrierAFewTimes) {
  wire.Hear(ToWire(kFetchLog), microseconds(5000));
  int wakes = 0;
  std::size_t bytes = 0;
  microseconds last{0};
  while (const auto next = wire.NextAt()) {
    ++wakes;
    last = *next;
    bytes += Arrived(wire, static_cast<int>(next->count()));
  }
  EXPECT_EQ(bytes, 136U);
  EXPECT_EQ(wakes, 9) << "8 bytes, then 16 at a time";
  EXPECT_EQ(last, microseconds(5000 + 694 + 2000 + 11806));
}

TEST_F(PacedLineTest, TheNextExchangeBeginsAnewWithItsTimes) {
  for (const int start : {0, 100'000}) {
    wire.Hear(ToWire(kPoll), microseconds(start));
    EXPECT_EQ(Arrived(wire, start + 3387), 7U);
    EXPECT_EQ(Arrived(wire, start + 3388), 1U);
  }
}

TEST_F(PacedLineTest, AnAnswerToACommandThatCameTooEarlyFollowsTheFirst) {
  wire.Hear(ToWire(kPoll), microseconds(0));
  wire.Hear(ToWire(kPoll), microseconds(10));
  EXPECT_EQ(Arrived(wire, 2694 + 694), 8U);
  EXPECT_EQ(Arrived(wire, 2694 + 1388), 7U);
  EXPECT_EQ(Arrived(wire, 2694 + 1389), 1U);
}

TEST_F(PacedLineTest, AsFastAsAskedNothingTakesTime) {
  PacedLine fast(machine, Pace::kFast);
  fast.Hear(ToWire(kFetchLog), microseconds(7));
  EXPECT_EQ(fast.NextAt(), microseconds(7));
  EXPECT_EQ(Arrived(fast, 7), 136U);
}

TEST_F(PacedLineTest, WhatIsUnderWayGoesWithTheOneAtTheOtherEnd) {
  const Bytes command = ToWire(kPoll);
  wire.Hear(command, microseconds(0));
  wire.Hear(std::span(command).first(5), microseconds(10));
  wire.Clear();
  EXPECT_EQ(wire.NextAt(), std::nullopt);
  wire.Hear(command, microseconds(5000));
  EXPECT_EQ(Arrived(wire, 20'000), 8U) << "the half command stands in no one's way";
}

TEST_F(PacedLineTest, WhatNobodyAskedForComesBehindTheAnswer) {
  WiredMachine machine0{OfSpeed(0)};
  PacedLine fast{machine0, Pace::kFast};
  fast.Hear(ToWire({23, 0, 1}), microseconds(0));
  const Bytes taken = Taken(fast, 0);
  ASSERT_EQ(taken.size(), 16U);
  const Bytes verdict(taken.begin() + 8, taken.end());
  EXPECT_EQ(Keyed(verdict, verdict[7] ^ 255U, 21).at(0), 21);
}

}  // namespace
}  // namespace morvane::simulator
