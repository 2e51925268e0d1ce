#include "bridges/trace_reader.h"

#include <gmock/gmock.h>

#include "bridges/written_trace.h"

namespace morvane::bridges {
namespace {

using test::WriteContent;
using ::testing::HasSubstr;

const std::string kBegan = "2026-03-03 15:04:05.123";

TraceHead PartHead(int part, const std::string& began = kBegan) {
  return {began, "usb", part, false};
}

class TraceReaderTest : public ::testing::Test {
 protected:
  test::TempFolder folder;
  std::string path = folder / "run.trace";
  TraceReader reader;

  void Write(const std::string& text, const std::string& behind = "") {
    WriteContent(path + behind, text);
  }
  [[nodiscard]] std::string Refusal() {
    const auto wrong = reader.Open(path);
    return wrong ? wrong->substr(path.size()) : "";
  }
  [[nodiscard]] std::vector<Operation> All() {
    std::vector<Operation> all;
    for (; reader.Next() != nullptr; reader.Advance()) all.push_back(reader.Next()->What);
    return all;
  }
};

TEST_F(TraceReaderTest, GivesEachOperationInTurn) {
  Write(
      WrittenTrace().Add(Operation::kGetNumDevices, {2}).Add(Operation::kClose, {7}).End().Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  EXPECT_EQ(reader.Lines(), 2U);
  EXPECT_EQ(reader.Head().Machine, "usb");
  ASSERT_NE(reader.Next(), nullptr);
  EXPECT_EQ(reader.Next()->What, Operation::kGetNumDevices);
  EXPECT_EQ(reader.Next()->Numbers[0], 2U);
  EXPECT_EQ(reader.Next()->Took, microseconds(1000));
  EXPECT_EQ(reader.Played(), 0U);
  EXPECT_EQ(reader.Place(), path + ", line 5") << "behind four lines of the head";
  reader.Advance();
  EXPECT_EQ(reader.Next()->What, Operation::kClose);
  EXPECT_EQ(reader.Played(), 1U);
  reader.Advance();
  EXPECT_EQ(reader.Next(), nullptr);
  EXPECT_EQ(reader.Played(), 2U);
  EXPECT_FALSE(reader.CutOff());
  reader.Advance();
  EXPECT_EQ(reader.Played(), 2U) << "there is nothing behind the end";
}

TEST_F(TraceReaderTest, ATraceWhoseWriterWasKilledIsPlayedAsFarAsItGoes) {
  Write(WrittenTrace().Add(Operation::kGetNumDevices, {2}).Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  EXPECT_TRUE(reader.CutOff());
  EXPECT_EQ(All().size(), 1U);
}

TEST_F(TraceReaderTest, WhatIsNoTraceIsRefused) {
  EXPECT_EQ(Refusal(), ": there is no such file");
  Write("");
  EXPECT_EQ(Refusal(), ": the file is empty");
  Write("[Event \"x\"]\n");
  EXPECT_EQ(Refusal(), ", line 1: this is no trace");
  Write(std::string(100000, '\0'));
  EXPECT_EQ(Refusal(), ", line 1: this is no trace");
  path = folder.Path();
  EXPECT_EQ(Refusal(), ": this is no file");
}

TEST_F(TraceReaderTest, ATraceOfANewerVersionIsRefused) {
  Write("# Morvane link trace 2\n# began 2026-03-03 15:04:05.123\n");
  EXPECT_EQ(Refusal(), ", line 1: this trace is of a newer version of Morvane");
}

TEST_F(TraceReaderTest, AHeadAloneIsNothingToPlay) {
  Write(WrittenTrace().End().Text());
  EXPECT_EQ(Refusal(), ": there is nothing in this trace but its head");
}

TEST_F(TraceReaderTest, TimesThatRunBackwardsAreRefused) {
  WrittenTrace trace;
  trace.Opening();
  trace.At = microseconds(5000);
  Write(trace.Poll().Text());
  EXPECT_EQ(Refusal(), ", line 14: its time lies before that of the line above");
}

TEST_F(TraceReaderTest, AReadWithMoreBytesThanWereAskedForIsRefused) {
  Write(WrittenTrace().Add(Operation::kRead, {7, 2}, {1, 2, 3}).Text());
  EXPECT_EQ(Refusal(), ", line 5: more bytes were read than were asked for");
}

TEST_F(TraceReaderTest, WhatStandsBehindTheEndIsRefused) {
  Write(WrittenTrace().Flush().End().Flush().Text());
  EXPECT_EQ(Refusal(), ", line 7: the trace goes on behind its end");
}

TEST_F(TraceReaderTest, ALineLongerThanThoseOfATraceIsRefused) {
  Write(WrittenTrace().Flush().Line(std::string(kLongestTraceLine, '9')).Text());
  EXPECT_EQ(Refusal(), ", line 6: this line is longer than those of a trace");
}

TEST_F(TraceReaderTest, PartsArePlayedFromTheOldestOn) {
  Write(WrittenTrace(PartHead(1)).Add(Operation::kGetDllVersion).Text(), ".2");
  Write(WrittenTrace(PartHead(2)).Add(Operation::kGetNumDevices).Text(), ".1");
  Write(WrittenTrace(PartHead(3)).Add(Operation::kClose).End().Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  EXPECT_EQ(reader.Lines(), 3U);
  EXPECT_EQ(All(),
            (std::vector{Operation::kGetDllVersion, Operation::kGetNumDevices, Operation::kClose}));
}

TEST_F(TraceReaderTest, WithoutItsBeginningItStartsAtTheFirstOpeningOfTheLink) {
  Write(WrittenTrace(PartHead(4)).Poll().Leaving().Text(), ".1");
  Write(
      WrittenTrace(PartHead(5)).Later().Poll().Add(Operation::kGetDllVersion).Poll().End().Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  EXPECT_EQ(reader.Lines(), 3U);
  EXPECT_EQ(reader.Played(), 0U);
  EXPECT_EQ(All(), (std::vector{Operation::kGetDllVersion, Operation::kWrite, Operation::kRead}));
}

TEST_F(TraceReaderTest, WithoutItsBeginningAndWithoutAnOpeningItIsRefused) {
  Write(WrittenTrace(PartHead(2)).Poll().End().Text());
  EXPECT_THAT(Refusal(), HasSubstr("the beginning of this trace is gone"));
}

TEST_F(TraceReaderTest, PartsOfAnotherTraceAreNoneOfThisOne) {
  Write(WrittenTrace(PartHead(1, "2026-03-02 09:00:00.000")).Opening().Opening().Text(), ".1");
  Write(WrittenTrace(PartHead(2)).Add(Operation::kGetDllVersion).End().Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  EXPECT_EQ(reader.Lines(), 1U);
}

TEST_F(TraceReaderTest, ANumberThatDoesNotFitIsNoPart) {
  Write(WrittenTrace(PartHead(1)).Opening().Text(), ".1");
  Write(WrittenTrace(PartHead(3)).Add(Operation::kGetDllVersion).End().Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  EXPECT_EQ(reader.Lines(), 1U);
}

TEST_F(TraceReaderTest, AFaultInAnOlderPartNamesItsFile) {
  Write(WrittenTrace(PartHead(1)).Flush().Line("garbage").Text(), ".1");
  Write(WrittenTrace(PartHead(2)).Flush().End().Text());
  EXPECT_THAT(Refusal(), ::testing::StartsWith(".1, line 6: "));
}

TEST_F(TraceReaderTest, APartWhoseTimesLieBeforeThoseOfTheOneAboveIsRefused) {
  Write(WrittenTrace(PartHead(1)).Flush().Flush().Text(), ".1");
  Write(WrittenTrace(PartHead(2)).Flush().End().Text());
  EXPECT_EQ(Refusal(), ", line 5: its time lies before the part above");
}

TEST_F(TraceReaderTest, AFileThatChangesMeanwhileEndsTheTrace) {
  Write(WrittenTrace().Opening().End().Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  ASSERT_TRUE(reader.Fault().empty());
  WrittenTrace bigger;
  for (int i = 0; i < 2000; ++i) bigger.Poll();
  Write(bigger.Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  std::filesystem::resize_file(path, bigger.Text().size() - 10);
  EXPECT_LT(All().size(), 4000U);
  EXPECT_THAT(reader.Fault(), HasSubstr("cut off in the middle of this line"));
}

}  // namespace
}  // namespace morvane::bridges
