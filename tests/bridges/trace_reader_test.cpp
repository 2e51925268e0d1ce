#include "bridges/trace/trace_reader.h"

#include <gmock/gmock.h>

#include "bridges/written_trace.h"

namespace morvane::bridges {
namespace {

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
    test::WriteInPlace(path + behind, text);  // it may be read
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
  EXPECT_EQ(Refusal(), ", line 14: its time lies before the end of the line above");
}

TEST_F(TraceReaderTest, AnOperationThatIsNotOverWhenTheNextOneBeginsIsRefused) {
  Write(
      WrittenTrace().Line("0.000000 0.010001 FlushBuffers 0 handle=7 transmit=1 receive=1").Text() +
      "0.010000 0.000000 Close 0 handle=7\n");
  EXPECT_EQ(Refusal(), ", line 6: its time lies before the end of the line above");
  Write(
      WrittenTrace().Line("0.000000 0.010000 FlushBuffers 0 handle=7 transmit=1 receive=1").Text() +
      "0.010000 0.000000 Close 0 handle=7\n");
  EXPECT_EQ(Refusal(), "");
}

TEST_F(TraceReaderTest, ATraceOfTheMachinesEndIsForReading) {
  Write(WrittenTrace().Poll().Poll().Leaving().End().Text());
  EXPECT_EQ(Refusal(), ": this trace was written at the machine's end, and is for reading");
}

TEST_F(TraceReaderTest, WhatMakesTheRunEndsBeforeTheLastPollsAndTheLeaving) {
  const test::Bytes version = test::Short({0x1A});
  Write(WrittenTrace().Opening().Exchange(version, version).Poll().Flush().Leaving().End().Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  EXPECT_EQ(reader.Lines(), 16U);
  EXPECT_EQ(reader.Needed(), 11U) << "nine of the opening, and the version's two";
  Write(WrittenTrace().Opening().Poll().BusyPoll(1).Leaving().End().Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  EXPECT_EQ(reader.Needed(), 13U) << "a break is no mere poll";
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
  Write(WrittenTrace(PartHead(2)).Later().Add(Operation::kGetNumDevices).Text(), ".1");
  Write(WrittenTrace(PartHead(3)).Later().Later().Add(Operation::kClose).End().Text());
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

TEST_F(TraceReaderTest, APartIsPlayedWithThoseThatAreOlder) {
  Write(WrittenTrace(PartHead(1)).Add(Operation::kGetDllVersion).Text(), ".2");
  Write(WrittenTrace(PartHead(2)).Later().Add(Operation::kGetNumDevices).Text(), ".1");
  Write(WrittenTrace(PartHead(3)).Later().Later().Add(Operation::kClose).End().Text());
  ASSERT_EQ(reader.Open(path + ".1"), std::nullopt);
  EXPECT_EQ(All(), (std::vector{Operation::kGetDllVersion, Operation::kGetNumDevices}));
}

TEST_F(TraceReaderTest, WhereItsProgramWasKilledWhileItMovedThePartsOnTheyArePlayed) {
  Write(WrittenTrace(PartHead(1)).Add(Operation::kGetDllVersion).Text(), ".3");
  Write(WrittenTrace(PartHead(2)).Later().Add(Operation::kGetNumDevices).Text(), ".1");
  ASSERT_EQ(reader.Open(path), std::nullopt) << "the file itself is not there";
  EXPECT_EQ(reader.Path(), path + ".1");
  EXPECT_EQ(All(), (std::vector{Operation::kGetDllVersion, Operation::kGetNumDevices}));
  Write(WrittenTrace(PartHead(3)).Later().Later().Add(Operation::kClose).End().Text());
  ASSERT_EQ(reader.Open(path), std::nullopt) << "number 2 is not there";
  EXPECT_EQ(reader.Lines(), 3U);
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
  EXPECT_EQ(Refusal(), ", line 5: its time lies before the end of the part above");
}

/// A trace of more than what is read of a file at once.
std::string LongTrace(const TraceHead& head) {
  WrittenTrace trace(head);
  trace.Opening();
  for (int i = 0; i < 2000; ++i) trace.Poll();
  return trace.Text();
}

TEST_F(TraceReaderTest, AFileThatIsCutMeanwhileEndsTheTrace) {
  const std::string whole = LongTrace(PartHead(1));
  for (const bool inALine : {true, false}) {
    Write(whole);
    ASSERT_EQ(reader.Open(path), std::nullopt);
    std::filesystem::resize_file(
        path, inALine ? whole.size() - 10 : whole.rfind('\n', whole.size() - 2) + 1);
    EXPECT_LT(All().size(), 4009U);
    EXPECT_THAT(reader.Fault(),
                HasSubstr(inALine ? "cut off in the middle of this line"
                                  : ": it has changed since it was looked through"));
  }
}

TEST_F(TraceReaderTest, APartThatIsAnotherMeanwhileEndsTheTrace) {
  Write(WrittenTrace(PartHead(1)).Opening().Text(), ".1");
  Write(WrittenTrace(PartHead(2)).Later().Poll().End().Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  Write(WrittenTrace(PartHead(3)).Later().Poll().End().Text());
  EXPECT_EQ(All().size(), 9U);
  EXPECT_EQ(reader.Fault(), path + ": it has changed since it was looked through");
}

TEST_F(TraceReaderTest, WhatIsWrittenMeanwhileIsNotPlayed) {
  WrittenTrace trace;
  Write(trace.Opening().Text());
  ASSERT_EQ(reader.Open(path), std::nullopt);
  Write(trace.Poll().Text());
  EXPECT_EQ(All().size(), 9U);
  EXPECT_EQ(reader.Fault(), "");
  EXPECT_EQ(reader.Played(), reader.Lines());
}

}  // namespace
}  // namespace morvane::bridges
