// The files of a trace that goes well.

#include "bridges/trace_file.h"

#include <filesystem>

#include "bridges/trace_desk.h"

namespace morvane::bridges {
namespace {

using std::chrono::microseconds;
using test::Content;
using test::kTraceHead;
using test::WriteContent;
using ::testing::ElementsAre;

class TraceFileTest : public test::TraceDesk {
 protected:
  [[nodiscard]] std::string Old(int number) const { return Path + "." + std::to_string(number); }
  [[nodiscard]] static bool IsThere(const std::string& path) {
    return std::filesystem::exists(path);
  }
};

TraceLine Closing(std::uint32_t handle) {
  TraceLine line;
  line.What = Operation::kClose;
  line.Numbers = {handle};
  return line;
}

std::string Text(std::uint32_t handle) {
  return "0.000000 0.000000 Close 0 handle=" + std::to_string(handle) + "\n";
}

TEST_F(TraceFileTest, EachLineIsThereAtOnce) {
  TraceFile trace(Order(), Clock);
  EXPECT_EQ(Content(Path), kTraceHead);
  trace.Write(Closing(1), "");
  EXPECT_EQ(Content(Path), kTraceHead + Text(1));
  trace.Write(Closing(2), "");
  EXPECT_EQ(Content(Path), kTraceHead + Text(1) + Text(2));
  EXPECT_EQ(trace.Trouble(), "");
}

TEST_F(TraceFileTest, WhoEndsItSaysSo) {
  { TraceFile trace(Order(), Clock); }
  EXPECT_EQ(Content(Path), kTraceHead + "# end\n");
}

TEST_F(TraceFileTest, ItsTimeIsTheClocksSinceItBegan) {
  Clock.SetStart({2026, 12, 31, 9, 8, 7, 65});
  Clock.Spend(microseconds(3'000'000));
  TraceFile trace(Order(), Clock);
  EXPECT_EQ(trace.Time(), microseconds(0));
  Clock.Spend(microseconds(17));
  EXPECT_EQ(trace.Time(), microseconds(17));
  EXPECT_THAT(Content(Path), ::testing::HasSubstr("# began 2026-12-31 09:08:10.065\n"));
}

TEST_F(TraceFileTest, ItsHeadSaysThatHandsAreLeftOut) {
  auto order = Order();
  order.HandsLeftOut = true;
  const TraceFile trace(order, Clock);
  EXPECT_TRUE(trace.HandsLeftOut());
  EXPECT_EQ(Content(Path), kTraceHead + "# hands left out\n");
}

TEST_F(TraceFileTest, ItIsItsUsersAlone) {
  const TraceFile trace(Order(), Clock);
  EXPECT_EQ(std::filesystem::status(Path).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(TraceFileTest, ATraceThatWasThereIsMovedOn) {
  WriteContent(Path, kTraceHead + "old");
  const TraceFile trace(Order(), Clock);
  EXPECT_EQ(trace.Trouble(), "");
  EXPECT_EQ(Content(Path), kTraceHead);
  EXPECT_EQ(Content(Old(1)), kTraceHead + "old");
}

TEST_F(TraceFileTest, ATraceOfAnyVersionIsOne) {
  WriteContent(Path, "# Morvane link trace 27\n");
  const TraceFile trace(Order(), Clock);
  EXPECT_EQ(Content(Old(1)), "# Morvane link trace 27\n");
}

TEST_F(TraceFileTest, AnEmptyFileIsTaken) {
  WriteContent(Path, "");
  const TraceFile trace(Order(), Clock);
  EXPECT_EQ(Content(Path), kTraceHead);
  EXPECT_FALSE(IsThere(Old(1)));
}

TEST_F(TraceFileTest, OldTracesMoveOnAsFarAsOneIsInTheWay) {
  WriteContent(Path, kTraceHead + "a");
  WriteContent(Old(1), kTraceHead + "b");
  WriteContent(Old(3), kTraceHead + "d");
  const TraceFile trace(Order(), Clock);
  EXPECT_EQ(Content(Old(1)), kTraceHead + "a");
  EXPECT_EQ(Content(Old(2)), kTraceHead + "b");
  EXPECT_EQ(Content(Old(3)), kTraceHead + "d");
  EXPECT_FALSE(IsThere(Old(4)));
}

TEST_F(TraceFileTest, TheOldestOfFiveGoes) {
  WriteContent(Path, kTraceHead + "0");
  for (int i = 1; i <= 4; ++i) WriteContent(Old(i), kTraceHead + std::to_string(i));
  const TraceFile trace(Order(), Clock);
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(Content(Old(i)), kTraceHead + std::to_string(i - 1));
  EXPECT_FALSE(IsThere(Old(5)));
}

/// A head and two lines fill a part to the byte.
TEST_F(TraceFileTest, APartThatWouldGrowTooLargeIsTheLastButOne) {
  auto order = Order();
  order.LargestPart = kTraceHead.size() + 2 * Text(1).size();
  {
    TraceFile trace(order, Clock);
    for (std::uint32_t i = 1; i <= 5; ++i) trace.Write(Closing(i), "");
    EXPECT_EQ(trace.Trouble(), "");
  }
  const std::string start = kTraceHead.substr(0, kTraceHead.size() - 2);
  EXPECT_EQ(Content(Old(2)), start + "1\n" + Text(1) + Text(2));
  EXPECT_EQ(Content(Old(1)), start + "2\n" + Text(3) + Text(4));
  EXPECT_EQ(Content(Path), start + "3\n" + Text(5) + "# end\n");
}

TEST_F(TraceFileTest, TimeGoesOnFromPartToPart) {
  auto order = Order();
  order.LargestPart = 1;
  TraceFile trace(order, Clock);
  trace.Write(Closing(1), "");
  Clock.Spend(microseconds(5));
  trace.Write(Closing(2), "");
  EXPECT_EQ(trace.Time(), microseconds(5));
  EXPECT_THAT(Content(Path), ::testing::StartsWith("# Morvane link trace 1\n"
                                                   "# began 2026-03-03 15:04:05.000\n"));
}

TEST_F(TraceFileTest, ALongRunKeepsItsNewestFiveParts) {
  auto order = Order();
  order.LargestPart = 1;  // a line each
  TraceFile trace(order, Clock);
  for (std::uint32_t i = 1; i <= 7; ++i) trace.Write(Closing(i), "");
  EXPECT_THAT(LinesOf(Path), ElementsAre("0.000000 0.000000 Close 0 handle=7"));
  EXPECT_THAT(LinesOf(Old(1)), ElementsAre("0.000000 0.000000 Close 0 handle=6"));
  EXPECT_THAT(LinesOf(Old(4)), ElementsAre("0.000000 0.000000 Close 0 handle=3"));
  EXPECT_FALSE(IsThere(Old(5)));
}

}  // namespace
}  // namespace morvane::bridges
