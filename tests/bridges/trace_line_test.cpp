#include "bridges/trace/trace_line.h"

#include <gtest/gtest.h>

#include <limits>

namespace morvane::bridges {
namespace {

using std::chrono::microseconds;

TraceLine Line(Operation what, std::array<std::uint32_t, 3> numbers,
               std::vector<std::uint8_t> bytes = {}) {
  TraceLine line;
  line.What = what;
  line.Numbers = numbers;
  line.Bytes = std::move(bytes);
  return line;
}

std::string Fault(std::string_view text) {
  const TraceLine before = Line(Operation::kClose, {7});
  TraceLine line = before;
  const auto fault = ParseTraceLine(text, line);
  EXPECT_EQ(line, before) << text;
  return fault.value_or("none");
}

std::string WithoutEnd(std::string text) {
  EXPECT_TRUE(text.ends_with('\n'));
  text.pop_back();
  return text;
}

TEST(TraceLine, SaysWhenHowLongWhatAndWithWhichOutcome) {
  TraceLine line = Line(Operation::kRead, {1, 8}, {0x19, 0xF1, 0x00});
  line.At = microseconds(12'345'678);
  line.Took = microseconds(720);
  EXPECT_EQ(TextOf(line, "status: busy, 3 2 4 1"),
            "12.345678 0.000720 Read 0 handle=1 asked=8 bytes=19F100 ; status: busy, 3 2 4 1\n");
}

TEST(TraceLine, EachOperationHasItsNumbersByName) {
  const std::array<std::pair<TraceLine, std::string_view>, 14> kLines{{
      {Line(Operation::kGetDllVersion, {1, 2}), "GetDllVersion 0 high=1 low=2"},
      {Line(Operation::kGetDriverVersion, {0x30001, 0}), "GetDriverVersion 0 high=196609 low=0"},
      {Line(Operation::kGetNumDevices, {2}), "GetNumDevices 0 count=2"},
      {Line(Operation::kGetProductString, {1, 0}, {'4', '7'}),
       "GetProductString 0 index=1 option=0 bytes=3437"},
      {Line(Operation::kOpen, {0, 5}), "Open 0 index=0 handle=5"},
      {Line(Operation::kSetTimeouts, {200, 400}), "SetTimeouts 0 read=200 write=400"},
      {Line(Operation::kSetBaudRate, {5, 115200}), "SetBaudRate 0 handle=5 rate=115200"},
      {Line(Operation::kSetLineControl, {5, 0x800}), "SetLineControl 0 handle=5 control=2048"},
      {Line(Operation::kFlushBuffers, {5, 0, 1}), "FlushBuffers 0 handle=5 transmit=0 receive=1"},
      {Line(Operation::kWrite, {5, 1}, {0xAB}), "Write 0 handle=5 written=1 bytes=AB"},
      {Line(Operation::kRead, {5, 8}), "Read 0 handle=5 asked=8 bytes="},
      {Line(Operation::kWriteLatch, {5, 1, 0}), "WriteLatch 0 handle=5 mask=1 value=0"},
      {Line(Operation::kClose, {5}), "Close 0 handle=5"},
      {Line(Operation::kAdvice, {}, {'N', 'o'}), "Advice 0 bytes=4E6F"},
  }};
  for (const auto& [line, text] : kLines) {
    const std::string whole = "0.000000 0.000000 " + std::string(text);
    EXPECT_EQ(TextOf(line, ""), whole + "\n");
    TraceLine read;
    EXPECT_EQ(ParseTraceLine(whole, read), std::nullopt) << text;
    EXPECT_EQ(read, line) << text;
    EXPECT_TRUE(text.starts_with(NameOf(line.What)));
  }
}

TEST(TraceLine, TheExtremesComeBack) {
  constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
  TraceLine line = Line(Operation::kFlushBuffers, {kMost, kMost, kMost});
  line.At = microseconds(999'999'999'999'999);
  line.Took = microseconds(1);
  line.Result = std::numeric_limits<UsbXpress::Status>::min();
  const std::string text = WithoutEnd(TextOf(line, ""));
  EXPECT_EQ(text,
            "999999999.999999 0.000001 FlushBuffers -2147483648 handle=4294967295 "
            "transmit=4294967295 receive=4294967295");
  TraceLine read;
  EXPECT_EQ(ParseTraceLine(text, read), std::nullopt);
  EXPECT_EQ(read, line);
}

TEST(TraceLine, ATimeBeyondTheExtremesIsThatExtreme) {
  TraceLine line = Line(Operation::kClose, {1});
  line.At = microseconds::max();
  line.Took = microseconds(-1);
  EXPECT_EQ(TextOf(line, ""), "999999999.999999 0.000000 Close 0 handle=1\n");
}

TEST(TraceLine, WhatIsSaidIsForPeopleOnly) {
  TraceLine read;
  EXPECT_EQ(ParseTraceLine("0.000000 0.000000 Close 0 handle=1 ; a ; b handle=2", read),
            std::nullopt);
  EXPECT_EQ(read, Line(Operation::kClose, {1}));
}

TEST(TraceLine, WhatIsSaidStaysInItsLine) {
  EXPECT_EQ(TextOf(Line(Operation::kClose, {1}), "one\ntwo\x1B[2J"),
            "0.000000 0.000000 Close 0 handle=1 ; one?two?[2J\n");
}

TEST(TraceLine, NoLineIsTooLongToBeRead) {
  TraceLine line = Line(Operation::kGetProductString, {1, 2},
                        std::vector<std::uint8_t>(kLongestTraceLine, 0xAB));
  std::string said;
  for (std::size_t i = 0; i < kLongestTraceLine; ++i) said += "\xF0\x9F\x82\xA1";
  const std::string text = TextOf(line, said);
  EXPECT_LE(text.size(), kLongestTraceLine);
  TraceLine read;
  EXPECT_EQ(ParseTraceLine(WithoutEnd(text), read), std::nullopt);
  line.Bytes.resize(kMostTraceBytes);
  EXPECT_EQ(read, line);
}

TEST(TraceLine, AnEmptyLineHasNoTime) { EXPECT_EQ(Fault(""), "no time"); }

TEST(TraceLine, ATimeIsSecondsWithSixDecimals) {
  for (const std::string_view time :
       {"", "1", ".000000", "1.00000", "1.0000000", "-1.000000", "+1.000000", "1.+00000",
        "1000000000.000000", "1,000000", "0x1.000000"}) {
    const std::string word(time);
    EXPECT_EQ(Fault(word + " 0.000000 Close 0 handle=1"),
              word.empty() ? "\"\" is no time" : "\"" + word + "\" is no time");
    EXPECT_EQ(Fault("0.000000 " + word + " Close 0 handle=1"), "\"" + word + "\" is no duration");
  }
}

TEST(TraceLine, AnOperationIsOneOfOurs) {
  EXPECT_EQ(Fault("0.000000 0.000000 Foo 0"), "unknown operation \"Foo\"");
  EXPECT_EQ(Fault("0.000000 0.000000 read 0"), "unknown operation \"read\"");
  EXPECT_EQ(Fault("0.000000 0.000000  Read 0"), "unknown operation \"\"");
}

TEST(TraceLine, AStatusIsANumberOf32Bits) {
  EXPECT_EQ(Fault("0.000000 0.000000 Close ok handle=1"), "\"ok\" is no status");
  EXPECT_EQ(Fault("0.000000 0.000000 Close 2147483648 handle=1"), "\"2147483648\" is no status");
}

TEST(TraceLine, ANumberHasItsNameItsPlaceAnd32Bits) {
  EXPECT_EQ(Fault("0.000000 0.000000 Close 0 hand=1"), "handle= is missing");
  EXPECT_EQ(Fault("0.000000 0.000000 Open 0 handle=1 index=0"), "index= is missing");
  EXPECT_EQ(Fault("0.000000 0.000000 Close 0 handle="), "handle=\"\" is no number of 32 bits");
  EXPECT_EQ(Fault("0.000000 0.000000 Close 0 handle=1x"), "handle=\"1x\" is no number of 32 bits");
  EXPECT_EQ(Fault("0.000000 0.000000 Close 0 handle=-1"), "handle=\"-1\" is no number of 32 bits");
  EXPECT_EQ(Fault("0.000000 0.000000 Close 0 handle=4294967296"),
            "handle=\"4294967296\" is no number of 32 bits");
}

TEST(TraceLine, BytesAreWholePairsOfHexDigits) {
  const std::string start = "0.000000 0.000000 Read 0 handle=1 asked=8 ";
  EXPECT_EQ(Fault(start + "byte=00"), "bytes= is missing");
  EXPECT_EQ(Fault(start + "bytes=001"), "an odd number of hex digits");
  EXPECT_EQ(Fault(start + "bytes=0g"), "bytes= has what is no hex digit");
  EXPECT_EQ(Fault(start + "bytes=" + std::string(kMostTraceBytes * 2 + 2, '0')),
            "more bytes than a line has");
}

TEST(TraceLine, ALineThatIsCutOffSaysWhere) {
  EXPECT_EQ(Fault("0.000000"), "the line is cut off before the duration");
  EXPECT_EQ(Fault("0.000000 0.000000"), "the line is cut off before the operation");
  EXPECT_EQ(Fault("0.000000 0.000000 Read"), "the line is cut off before the status");
  EXPECT_EQ(Fault("0.000000 0.000000 Read 0"), "the line is cut off before handle=");
  EXPECT_EQ(Fault("0.000000 0.000000 Read 0 handle=1"), "the line is cut off before asked=");
  EXPECT_EQ(Fault("0.000000 0.000000 Read 0 handle=1 asked=8"),
            "the line is cut off before bytes=");
}

TEST(TraceLine, NothingElseBelongsToIt) {
  EXPECT_EQ(Fault("0.000000 0.000000 Close 0 handle=1 mask=1"), "\"mask=1\" is too much");
  EXPECT_EQ(Fault("0.000000 0.000000 Close 0 handle=1 "), "\"\" is too much");
  EXPECT_EQ(Fault(std::string(kLongestTraceLine, '0')), "the line is too long");
}

TEST(TraceLine, AFaultQuotesLittleAndNothingThatCommandsATerminal) {
  EXPECT_EQ(Fault("\x1B[2J" + std::string(100, 'x')),
            "\"?[2J" + std::string(36, 'x') + "\" is no time");
}

}  // namespace
}  // namespace morvane::bridges
