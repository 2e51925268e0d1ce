// The files of a trace that goes well.

#include "bridges/trace/trace_file.h"

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
  /// A trace of one line.
  void WriteOne(const TraceOrder& order, std::uint32_t handle);

  static constexpr auto kOwners =
      std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
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

void TraceFileTest::WriteOne(const TraceOrder& order, std::uint32_t handle) {
  TraceFile trace(order, Clock);
  trace.Write(Closing(handle), "");
  trace.End();
  EXPECT_EQ(trace.Trouble(), "");
}

int FilesIn(const std::string& folder) {
  const std::filesystem::directory_iterator files(folder);
  return static_cast<int>(std::distance(begin(files), end(files)));
}

/// A trace with this line of its own.
std::string Whole(std::uint32_t handle) { return kTraceHead + Text(handle) + "# end\n"; }

TEST_F(TraceFileTest, EachLineIsThereAtOnce) {
  TraceFile trace(Order(), Clock);
  trace.Write(Closing(1), "");
  EXPECT_EQ(Content(Path), kTraceHead + Text(1));
  trace.Write(Closing(2), "");
  EXPECT_EQ(Content(Path), kTraceHead + Text(1) + Text(2));
  EXPECT_EQ(trace.Trouble(), "");
}

TEST_F(TraceFileTest, WhoEndsItSaysSo) {
  WriteOne(Order(), 1);
  EXPECT_EQ(Content(Path), Whole(1));
}

TEST_F(TraceFileTest, NothingIsWrittenBehindItsEnd) {
  TraceFile trace(Order(), Clock);
  trace.Write(Closing(1), "");
  trace.End();
  trace.Write(Closing(2), "");
  trace.End();
  EXPECT_EQ(Content(Path), Whole(1));
  EXPECT_EQ(trace.Trouble(), "");
}

TEST_F(TraceFileTest, WithoutALineItLeavesAllAsItWas) {
  WriteContent(Path, kTraceHead + "old");
  {
    TraceFile trace(Order(), Clock);
    EXPECT_EQ(trace.Trouble(), "");
    trace.End();
    trace.Write(Closing(1), "");
  }
  EXPECT_EQ(Content(Path), kTraceHead + "old");
  EXPECT_EQ(FilesIn(Folder.Path()), 1) << "no lock either";
}

TEST_F(TraceFileTest, ItsTimeIsTheClocksSinceItWasMade) {
  Clock.SetStart({2026, 12, 31, 9, 8, 7, 65});
  Clock.Spend(microseconds(3'000'000));
  TraceFile trace(Order(), Clock);
  EXPECT_EQ(trace.Time(), microseconds(0));
  Clock.Spend(microseconds(17));
  trace.Write(Closing(1), "");
  EXPECT_EQ(trace.Time(), microseconds(17));
  EXPECT_THAT(Content(Path), ::testing::HasSubstr("# began 2026-12-31 09:08:10.065\n"));
}

TEST_F(TraceFileTest, ItsHeadSaysThatHandsAreLeftOut) {
  auto order = Order();
  order.HandsLeftOut = true;
  TraceFile trace(order, Clock);
  EXPECT_TRUE(trace.HandsLeftOut());
  trace.Write(Closing(1), "");
  EXPECT_EQ(Content(Path), kTraceHead + "# hands left out\n" + Text(1));
}

TEST_F(TraceFileTest, WithoutHandsItsHeadNamesTheKindOfTheMachineOnly) {
  const std::vector<std::pair<std::string, std::string>> kinds{{"usb", "usb"},
                                                               {"usb:0001X", "usb"},
                                                               {"usb:10C4:EA61:0001X", "usb"},
                                                               {"serial:/home/ann/tty", "serial"},
                                                               {"simulated", "simulated"},
                                                               {"simulated,seed=5", "simulated"},
                                                               {"replay:/home/ann/a,b", "replay"}};
  auto order = Order();
  order.HandsLeftOut = true;
  for (const auto& [machine, kind] : kinds) {
    order.Machine = machine;
    WriteOne(order, 1);
    EXPECT_THAT(Content(Path), ::testing::HasSubstr("\n# machine " + kind + "\n")) << machine;
  }
}

#ifndef _WIN32  // rights are access lists
TEST_F(TraceFileTest, ItIsItsUsersAlone) {
  TraceFile trace(Order(), Clock);
  trace.Write(Closing(1), "");
  EXPECT_EQ(std::filesystem::status(Path).permissions(), kOwners);
}

TEST_F(TraceFileTest, OneThatIsMovedOnBecomesSo) {
  WriteContent(Path, Whole(1));
  std::filesystem::permissions(Path, std::filesystem::perms(0644));
  WriteOne(Order(), 2);
  EXPECT_EQ(Content(Old(1)), Whole(1));
  EXPECT_EQ(std::filesystem::status(Old(1)).permissions(), kOwners);
}
#endif

TEST_F(TraceFileTest, ATraceThatWasThereIsMovedOn) {
  WriteContent(Path, kTraceHead + "old");
  WriteOne(Order(), 1);
  EXPECT_EQ(Content(Path), Whole(1));
  EXPECT_EQ(Content(Old(1)), kTraceHead + "old");
}

TEST_F(TraceFileTest, ATraceOfAnyVersionIsOne) {
  WriteContent(Path, "# Morvane link trace 12\n");
  WriteOne(Order(), 1);
  EXPECT_EQ(Content(Old(1)), "# Morvane link trace 12\n");
}

TEST_F(TraceFileTest, AFileWithoutAnOperationIsTaken) {
  for (const std::string& nothing : {std::string(), kTraceHead, kTraceHead + "# end\n"}) {
    WriteContent(Path, nothing);
    WriteOne(Order(), 1);
    EXPECT_EQ(Content(Path), Whole(1));
    EXPECT_FALSE(IsThere(Old(1)));
  }
}

TEST_F(TraceFileTest, WithoutANewestPartNoneMovesOn) {
  WriteContent(Old(1), kTraceHead + "a");
  WriteOne(Order(), 1);
  EXPECT_EQ(Content(Path), Whole(1));
  EXPECT_EQ(Content(Old(1)), kTraceHead + "a");
  EXPECT_FALSE(IsThere(Old(2)));
}

TEST_F(TraceFileTest, OldTracesMoveOnAsFarAsOneIsInTheWay) {
  WriteContent(Path, kTraceHead + "a");
  WriteContent(Old(1), kTraceHead + "b");
  WriteContent(Old(3), kTraceHead + "d");
  WriteOne(Order(), 1);
  EXPECT_EQ(Content(Old(1)), kTraceHead + "a");
  EXPECT_EQ(Content(Old(2)), kTraceHead + "b");
  EXPECT_EQ(Content(Old(3)), kTraceHead + "d");
  EXPECT_FALSE(IsThere(Old(4)));
}

TEST_F(TraceFileTest, TheOldestOfFiveGoes) {
  WriteContent(Path, kTraceHead + "0");
  for (int i = 1; i <= 4; ++i) WriteContent(Old(i), kTraceHead + std::to_string(i));
  WriteOne(Order(), 1);
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
