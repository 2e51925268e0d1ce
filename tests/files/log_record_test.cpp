// What a record is and what it says, apart from the questions.

#include <memory>

#include "files/log_reader.h"
#include "files/log_records.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using Result = LogReading::Result;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What became of one text whose every question was answered with yes.
struct Reading : LogReading {
  std::unique_ptr<BoardSet> Set = std::make_unique<BoardSet>();
  std::vector<int> Asked;  ///< the lines
};

Reading Read(const std::string& text) {
  Reading reading;
  reading.Set->Clear();
  static_cast<LogReading&>(reading) = ParseLog(text, *reading.Set, [&](int line) {
    reading.Asked.push_back(line);
    return kYes;
  });
  return reading;
}

bool IsRecord(const std::string& line) { return !Read(line).Asked.empty(); }

void ExpectEnding(const std::string& text, Result ending, int line) {
  const Reading reading = Read(text);
  EXPECT_EQ(reading.Ending, ending) << text;
  EXPECT_EQ(reading.Line, line) << text;
}

TEST(LogRecord, GivesTheNumberAndTheHands) {
  const Reading reading = Read(Record("003") + "\r\n" + Record("004", kRoundHands) + "\r\n");
  EXPECT_EQ(reading.Ending, Result::kRead);
  EXPECT_EQ(reading.Set->FirstBoard, 3);
  EXPECT_EQ(reading.Set->LastBoard, 4);
  EXPECT_EQ(reading.Set->CurrentBoard, 1);
  EXPECT_EQ(reading.Set->At(3), test::SuitBoard(3));
  EXPECT_EQ(reading.Set->At(4), test::RoundBoard(4));
}

TEST(LogRecord, OfTheLongFormGivesTheSameAndNoIdentity) {
  const Reading reading = Read(Record("003") + kIdentity + "\n" + Record("004"));
  EXPECT_THAT(reading.Asked, ElementsAre(1));
  EXPECT_EQ(reading.Set->At(3), test::SuitBoard(3));
  EXPECT_EQ(reading.Set->LastBoard, 4);
}

TEST(LogRecord, Has77Or112Characters) {
  EXPECT_TRUE(IsRecord(Record("001")));
  EXPECT_TRUE(IsRecord(Record("001") + kIdentity));
  EXPECT_FALSE(IsRecord(Record("001") + " "));
  EXPECT_FALSE(IsRecord(Record("001").substr(0, 76)));
  EXPECT_FALSE(IsRecord(Record("001") + kIdentity + " "));
  EXPECT_FALSE(IsRecord((Record("001") + kIdentity).substr(0, 111)));
  EXPECT_FALSE(IsRecord(""));
}

TEST(LogRecord, OfANumberOfFourDigitsIsNone) {
  EXPECT_FALSE(IsRecord(Record("1000")));
  // With the length made up for, the colon is out of place.
  EXPECT_FALSE(IsRecord(Record("1000").substr(0, 77)));
}

TEST(LogRecord, OfAnIncompleteBoardIsNone) {
  EXPECT_FALSE(IsRecord(Record("001",
                               "AKQJT9876543... .AKQJT98765432.. ..AKQJT98765432. "
                               "...AKQJT98765432 ")));
  EXPECT_FALSE(IsRecord(Record("001", "... ... ... ... ")));
}

TEST(LogRecord, OfAHandWith14CardsIsNoneAndEndsTheSet) {
  const std::string fourteen =
      "AKQJT98765432.A.. .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432 ";
  const Reading reading =
      Read(Record("001") + "\n" + Record("002", fourteen) + "\n" + Record("003") + "\n");
  EXPECT_EQ(reading.Ending, Result::kRead);
  EXPECT_EQ(reading.Set->LastBoard, 1);
  EXPECT_THAT(reading.Asked, ElementsAre(1));
}

TEST(LogRecord, LinesWrittenWhileDealingAreNone) {
  EXPECT_FALSE(IsRecord("  001 : 000 OK  " + kSuitHands));
  // Nor would one be that had the length.
  EXPECT_FALSE(IsRecord("  001 :  " + kSuitHands));
}

TEST(LogRecord, StandsInItsColumns) {
  const std::string record = Record("001");
  for (const std::size_t blank : {0U, 1U, 2U, 6U}) {
    std::string line = record;
    line[blank] = '0';
    EXPECT_FALSE(IsRecord(line)) << blank;
  }
  std::string line = record;
  line[7] = ';';
  EXPECT_FALSE(IsRecord(line));
  line = record;
  line[8] = 'x';  // the blank behind the colon is not looked at
  EXPECT_TRUE(IsRecord(line));
}

TEST(LogRecord, ANumberHasDigitsAndAColonCountsAsOne) {
  for (const std::size_t at : {3U, 4U, 5U}) {
    for (const char c : {'/', ';', ' ', 'a', '-'}) {
      std::string line = Record("111");
      line[at] = c;
      EXPECT_FALSE(IsRecord(line)) << at << c;
    }
    std::string line = Record("111");
    line[at] = ':';
    EXPECT_TRUE(IsRecord(line)) << at;
  }
}

TEST(LogRecord, AColonEndsTheNumberThatItStandsIn) {
  const Reading reading = Read(Record("1:2") + "\n" + Record("02:") + "\n");
  EXPECT_EQ(reading.Ending, Result::kRead);
  EXPECT_EQ(reading.Set->FirstBoard, 1);
  EXPECT_EQ(reading.Set->LastBoard, 2);
  ExpectEnding(Record(":12"), Result::kOutOfRange, 1);
}

TEST(LogRecord, FourDotsInAHandAreASyntaxError) {
  ExpectEnding(Record("001") + "\n" +
                   Record("002",
                          "AKQJT9876543.... .AKQJT98765432.. ..AKQJT98765432. "
                          "...AKQJT98765432 "),
               Result::kSyntaxError, 2);
}

TEST(LogRecord, WhatIsNoRankInAHandIsASyntaxError) {
  for (const char c : {'a', 'k', '1', 'X', ' ', ':', '\0', '\r', '\xC3'}) {
    std::string line = Record("001");
    line[9] = c;  // the Ace of Spades
    ExpectEnding("\n" + line, Result::kSyntaxError, 2);
  }
}

TEST(LogRecord, TheLastColumnOfEachHandIsReadAndTheBlankBehindItIsNot) {
  for (const std::size_t hand : {0U, 17U, 34U, 51U}) {
    std::string line = Record("001");
    line[24 + hand] = 'x';
    ExpectEnding(line, Result::kSyntaxError, 1);
    line = Record("001");
    line[25 + hand] = 'x';
    ExpectEnding(line, Result::kRead, 1);
  }
}

TEST(LogRecord, ACardThatAHandHoldsAlreadyIsASyntaxError) {
  ExpectEnding(Record("001",
                      "AAQJT98765432... .AKQJT98765432.. ..AKQJT98765432. "
                      "...AKQJT98765432 "),
               Result::kSyntaxError, 1);
  // Both North and East have the spades.
  ExpectEnding(Record("001",
                      "AKQJT98765432... AKQJT98765432... ..AKQJT98765432. "
                      "...AKQJT98765432 "),
               Result::kSyntaxError, 1);
}

TEST(LogRecord, ANumberAbove640IsOutOfRange) {
  for (const char* number : {"641", "700", "999"}) {
    ExpectEnding(Record("640") + "\n" + Record(number), Result::kOutOfRange, 2);
  }
  EXPECT_EQ(Read(Record("640")).Set->At(640), test::SuitBoard(640));
}

TEST(LogRecord, ASyntaxErrorComesBeforeANumberOutOfRange) {
  std::string line = Record("641");
  line[9] = 'x';
  ExpectEnding(line, Result::kSyntaxError, 1);
}

TEST(LogRecord, NumberZeroIsOutOfRange) { ExpectEnding(Record("000"), Result::kOutOfRange, 1); }

TEST(LogRecords, TheFirstAndTheLastOneGiveTheLimitsOfTheSet) {
  const Reading reading =
      Read(Record("005") + "\n" + Record("003") + "\n" + Record("009") + "\n" + Record("007"));
  EXPECT_EQ(reading.Ending, Result::kRead);
  EXPECT_EQ(reading.Set->FirstBoard, 5);
  EXPECT_EQ(reading.Set->LastBoard, 7);
  EXPECT_EQ(reading.Set->At(3), test::SuitBoard(3));
  EXPECT_EQ(reading.Set->At(6), Board{});
  EXPECT_EQ(reading.Set->At(9), test::SuitBoard(9));
}

TEST(LogRecords, ThatEndBeforeTheyBeginAreOutOfRange) {
  ExpectEnding("\n" + Record("002") + "\n" + Record("001") + "\n\n", Result::kOutOfRange, 3);
  ExpectEnding(Record("002") + "\n" + Record("002"), Result::kRead, 2);
}

TEST(LogRecords, ALaterOneOfTheSameNumberReplacesTheEarlier) {
  const Reading reading = Read(Record("001") + "\n" + Record("001", kRoundHands));
  EXPECT_EQ(reading.Set->LastBoard, 1);
  EXPECT_EQ(reading.Set->At(1), test::RoundBoard(1));
}

TEST(LogRecords, LinesEndAsEverywhere) {
  const Reading reading = Read(Record("001") + "\n" + Record("002") + "\r\n" + Record("003"));
  EXPECT_EQ(reading.Set->LastBoard, 3);
  // A lone CR joins two lines to one that is no record.
  EXPECT_THAT(Read(Record("001") + "\r" + Record("002")).Asked, IsEmpty());
}

TEST(LogRecords, InATextWithoutAnyNothingIsAskedAndTheSetStaysEmpty) {
  for (const char* text : {"", "---Start 3/3/2026\r\n Exit: 3:04:05 PM\r\n"}) {
    const Reading reading = Read(text);
    EXPECT_EQ(reading.Ending, Result::kRead);
    EXPECT_EQ(reading.Line, 0);
    EXPECT_THAT(reading.Asked, IsEmpty());
    EXPECT_EQ(reading.Set->FirstBoard, 1);
    EXPECT_EQ(reading.Set->LastBoard, 0);
  }
}

}  // namespace
}  // namespace morvane::files
