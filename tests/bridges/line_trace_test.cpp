#include "bridges/trace/line_trace.h"

#include <filesystem>

#include "bridges/trace_desk.h"
#include "simulator/talk.h"

namespace morvane::bridges {
namespace {

using simulator::Bytes;
using simulator::ToWire;
using std::chrono::microseconds;
using ::testing::ElementsAre;
using ::testing::StartsWith;

/// A status poll on the wire, 19 0 0 0 0 0 0 with the keys 19, 30, 47 ... and 19 xor FF; and the
/// reply of a machine that rests, the same with the keys 19, 2E, 43 ...
const Bytes kPoll = ToWire({0x19, 0, 0, 0, 0, 0, 0, 0});
const Bytes kRests{0x00, 0x2E, 0x43, 0x58, 0x6D, 0x82, 0x97, 0xE6};
/// Any long reply.
const Bytes kLog = ToWire(Bytes(136, 0xA0), 21);

class LineTraceTest : public test::TraceDesk {
 protected:
  LineTraceTest() { Clock.Spend(microseconds(5'000'000)); }
  /// Starts it a little after the clock began.
  LineTrace& Trace() {
    if (!trace_) trace_.emplace(Order(), Clock);
    return *trace_;
  }
  static microseconds At(int us) { return microseconds(5'000'000 + us); }
  static std::span<const std::uint8_t> Part(const Bytes& bytes, std::size_t from,
                                            std::size_t count) {
    return std::span(bytes).subspan(from, count);
  }
  /// The lines, once it has ended.
  std::vector<std::string> Ended() {
    trace_.reset();
    return LinesOf(Path);
  }
  /// Those without the words behind them.
  std::vector<std::string> Operations() {
    auto lines = Ended();
    for (std::string& line : lines) line = line.substr(0, line.find(" ;"));
    return lines;
  }

  std::optional<LineTrace> trace_;
};

TEST_F(LineTraceTest, AnExchangeIsAWriteAndARead) {
  Trace().Heard(kPoll, At(100));
  Trace().Said(kRests, At(3500));
  EXPECT_THAT(Operations(),
              ElementsAre("0.000100 0.000000 Write 0 handle=1 written=8 bytes=0030475E758CA3E6",
                          "0.003500 0.000000 Read 0 handle=1 asked=8 bytes=002E43586D8297E6"));
}

TEST_F(LineTraceTest, WhatComesInPiecesIsOneFrameFromItsFirstByteToItsLast) {
  Trace().Heard(Part(kPoll, 0, 3), At(0));
  Trace().Heard(Part(kPoll, 3, 5), At(400));
  Trace().Said(Part(kRests, 0, 7), At(3000));
  Trace().Said(Part(kRests, 7, 1), At(3087));
  EXPECT_THAT(Ended(), ElementsAre(StartsWith("0.000000 0.000400 Write 0 handle=1 written=8 "),
                                   StartsWith("0.003000 0.000087 Read 0 handle=1 asked=8 ")));
}

TEST_F(LineTraceTest, ALongReplyIsReadAsAProgramReadsIt) {
  Trace().Heard(kPoll, At(0));
  Trace().Said(Part(kLog, 0, 24), At(1000));
  Trace().Said(Part(kLog, 24, 112), At(2000));
  EXPECT_THAT(Ended(), ElementsAre(StartsWith("0.000000 0.000000 Write 0 "),
                                   StartsWith("0.001000 0.001000 Read 0 handle=1 asked=8 "),
                                   StartsWith("0.002000 0.000000 Read 0 handle=1 asked=128 ")));
}

TEST_F(LineTraceTest, TwoRepliesAtOnceAreTwo) {
  Bytes both = kRests;
  both.insert(both.end(), kRests.begin(), kRests.end());
  Trace().Said(both, At(0));
  EXPECT_THAT(Ended(), ElementsAre(StartsWith("0.000000 0.000000 Read 0 handle=1 asked=8 "),
                                   StartsWith("0.000000 0.000000 Read 0 handle=1 asked=8 ")));
}

TEST_F(LineTraceTest, HalfAFrameIsNotedBehindASilence) {
  Trace().Heard(Part(kPoll, 0, 5), At(0));
  Trace().Heard(kPoll, At(20'000));
  EXPECT_THAT(Ended(), ElementsAre(StartsWith("0.000000 0.000000 Write 0 handle=1 written=5 "),
                                   StartsWith("0.020000 0.000000 Write 0 handle=1 written=8 ")));
}

TEST_F(LineTraceTest, HalfAReplyIsNotedWhenTheProgramGoesOn) {
  Trace().Said(Part(kRests, 0, 5), At(0));
  Trace().Heard(kPoll, At(200'000));
  EXPECT_THAT(Ended(), ElementsAre(StartsWith("0.000000 0.000000 Read 0 handle=1 asked=5 "),
                                   StartsWith("0.200000 0.000000 Write 0 handle=1 written=8 ")));
}

TEST_F(LineTraceTest, TheLatchAndTheEndOfTheProgramAreNoted) {
  Trace().Latched(true, At(10));
  Trace().Heard(Part(kPoll, 0, 2), At(20));
  Trace().Latched(false, At(30));
  Trace().Closed(At(30));
  EXPECT_THAT(Operations(), ElementsAre("0.000010 0.000000 WriteLatch 0 handle=1 mask=1 value=1",
                                        "0.000020 0.000000 Write 0 handle=1 written=2 bytes=0030",
                                        "0.000030 0.000000 WriteLatch 0 handle=1 mask=1 value=0",
                                        "0.000030 0.000000 Close 0 handle=1"));
}

TEST_F(LineTraceTest, TimesDoNotGoBackWhereBothTalkAtOnce) {
  Trace().Heard(Part(kPoll, 0, 3), At(100));
  Trace().Said(kRests, At(150));
  Trace().Said(Part(kRests, 0, 2), At(200));
  Trace().Heard(Part(kPoll, 3, 5), At(300));
  EXPECT_THAT(Ended(), ElementsAre(StartsWith("0.000150 0.000000 Read 0 handle=1 asked=8 "),
                                   StartsWith("0.000200 0.000000 Read 0 handle=1 asked=2 "),
                                   StartsWith("0.000200 0.000100 Write 0 handle=1 written=8 ")));
}

TEST_F(LineTraceTest, ItHasItsHeadAndItsEnd) {
  Trace().Closed(At(0));
  Trace().End();
  EXPECT_EQ(test::Content(Path),
            "# Morvane link trace 1\n# began 2026-03-03 15:04:10.000\n# machine scripted\n"
            "# part 1\n0.000000 0.000000 Close 0 handle=1\n# end\n");
}

TEST_F(LineTraceTest, WhereNobodyComesThereIsNone) {
  Trace().End();
  EXPECT_FALSE(std::filesystem::exists(Path));
}

TEST_F(LineTraceTest, WhereItCannotBeWrittenItSaysSo) {
  test::WriteContent(Path, "somebody's words\n");
  EXPECT_NE(Trace().Trouble(), "");
  Trace().Heard(kPoll, At(0));
  trace_.reset();
  EXPECT_EQ(test::Content(Path), "somebody's words\n");
}

}  // namespace
}  // namespace morvane::bridges
