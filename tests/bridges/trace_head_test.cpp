#include <gtest/gtest.h>

#include <limits>

#include "bridges/trace/trace_line.h"
#include "text/text_lines.h"

namespace morvane::bridges {
namespace {

TraceHead Read(std::string_view text) {
  TraceHead head;
  Lines lines(text);
  std::string_view line;
  EXPECT_TRUE(lines.Next(line));
  EXPECT_EQ(line, kTraceMark);
  while (lines.Next(line)) EXPECT_TRUE(TakeHeadLine(line, head)) << line;
  return head;
}

bool Takes(std::string_view line) {
  TraceHead head;
  const bool takes = TakeHeadLine(line, head);
  EXPECT_EQ(head != TraceHead(), takes) << line;
  return takes;
}

TEST(TraceHead, SaysOfWhichMachineAndWhen) {
  const TraceHead head{"2026-03-03 15:04:05.123", "serial:/dev/ttyUSB0", 2, false};
  EXPECT_EQ(TextOf(head),
            "# Morvane link trace 1\n"
            "# began 2026-03-03 15:04:05.123\n"
            "# machine serial:/dev/ttyUSB0\n"
            "# part 2\n");
  EXPECT_EQ(Read(TextOf(head)), head);
}

TEST(TraceHead, SaysThatHandsAreLeftOut) {
  const TraceHead head{"2026-03-03 15:04:05.123", "usb", 1, true};
  EXPECT_TRUE(TextOf(head).ends_with("# part 1\n# hands left out\n"));
  EXPECT_EQ(Read(TextOf(head)), head);
}

TEST(TraceHead, TheMachineStaysInItsLine) {
  EXPECT_EQ(Read(TextOf(TraceHead{"2026-03-03 15:04:05.123", "serial:a\nb", 1, false})).Machine,
            "serial:a?b");
}

TEST(TraceHead, ADateHasItsLook) {
  EXPECT_TRUE(Takes("# began 2026-03-03 15:04:05.123"));
  EXPECT_FALSE(Takes("# began 2026-03-03 15:04:05"));
  EXPECT_FALSE(Takes("# began 2026-03-03 15:04:05.1234"));
  EXPECT_FALSE(Takes("# began 2026-03-03T15:04:05.123"));
  EXPECT_FALSE(Takes("# began "));
}

TEST(TraceHead, APartIsANumberFromOneOn) {
  EXPECT_TRUE(Takes("# part 2147483647"));
  EXPECT_FALSE(Takes("# part 0"));
  EXPECT_FALSE(Takes("# part -1"));
  EXPECT_FALSE(Takes("# part 2147483648"));
  EXPECT_FALSE(Takes("# part 1 "));
}

TEST(TraceHead, OtherLinesAreNoneOfIt) {
  EXPECT_FALSE(Takes(""));
  EXPECT_FALSE(Takes("#"));
  EXPECT_FALSE(Takes(kTraceMark));
  EXPECT_FALSE(Takes(kTraceEnd));
  EXPECT_FALSE(Takes("# hands left out too"));
  EXPECT_FALSE(Takes("0.000000 0.000000 Close 0 handle=1"));
}

}  // namespace
}  // namespace morvane::bridges
