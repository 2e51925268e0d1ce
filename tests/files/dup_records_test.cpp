#include "files/dup_records.h"

#include "files/fixed_records.h"
#include "files/record_desk.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;

const Messages kTexts = InitMessages();

struct Parsed {
  Board Dealt;
  FileNumbers Numbers;
  std::string Error;
};

Parsed Parse(const std::string& record) {
  Parsed parsed;
  parsed.Error = ParseDupRecord(record, parsed.Dealt, parsed.Numbers, kTexts);
  return parsed;
}

const std::string kMismatch = Told("Board does not match in both parts of DUP record: ###");

TEST(DupRecord, GivesTheBoardAndTheNumbersOfTheSet) {
  const Parsed parsed = Parse(DupRecord(kRoundBri, kRoundDge, "1  ", "32 "));
  EXPECT_EQ(parsed.Error, "");
  EXPECT_EQ(parsed.Dealt.Cards, test::RoundBoard(1).Cards);
  EXPECT_EQ(parsed.Numbers.First, 1);
  EXPECT_EQ(parsed.Numbers.Last, 32);
}

TEST(DupRecord, WhatStandsBeforeTheNumbersIsNotLookedAt) {
  const Parsed parsed = Parse(kRoundBri + kRoundDge + Zeros(2) + "638" + "99" + "640");
  EXPECT_EQ(parsed.Error, "");
  EXPECT_EQ(parsed.Numbers.First, 638);
  EXPECT_EQ(parsed.Numbers.Last, 640);
}

TEST(DupRecord, NumbersThatAreNoneCountAs0) {
  for (const std::string field : {"   ", "abc", "0  ", "-5 ", "   "}) {
    const Parsed parsed = Parse(DupRecord(kRoundBri, kRoundDge, field, field));
    EXPECT_EQ(parsed.Error, "");
    EXPECT_EQ(parsed.Numbers.First, 0) << field;
    EXPECT_EQ(parsed.Numbers.Last, 0) << field;
  }
  EXPECT_EQ(Parse(DupRecord(kRoundBri, kRoundDge, Zeros(3), " 12")).Numbers.Last, 12);
}

TEST(DupRecord, AFaultInTheFirstPartIsToldFirst) {
  const std::string faulty = "53" + kRoundBri.substr(2);
  EXPECT_EQ(Parse(DupRecord(faulty, "x" + kRoundDge.substr(1), "1  ", "2  ")).Error,
            Told("Incorrect card value: 53  in record: ###"));
}

TEST(DupRecord, AFaultInTheSecondPartHasItsPositionThere) {
  EXPECT_EQ(Parse(DupRecord(kRoundBri, "\006x" + kRoundDge.substr(2), "1  ", "2  ")).Error,
            Told("Illegal card code at position: 2  in record: ###"));
  EXPECT_EQ(Parse(DupRecord(kRoundBri, kRoundDge.substr(0, 67) + "3", "1  ", "2  ")).Error,
            Told("Duplicate card at position: 68  in record: ###"));
}

TEST(DupRecord, BothPartsHoldTheSameDeal) {
  EXPECT_EQ(Parse(DupRecord(kRoundBri, kSuitsDge, "1  ", "2  ")).Error, kMismatch);
  // The last cards of North and East in the other's place.
  EXPECT_EQ(Parse(DupRecord("0102030405060708091011121415161718192021222324251326"
                            "27282930313233343536373839",
                            kSuitsDge, "1  ", "2  "))
                .Error,
            kMismatch);
}

TEST(DupRecord, AFaultyRecordGivesItsNumbersToo) {
  const Parsed parsed = Parse(DupRecord(kRoundBri, kSuitsDge, "7  ", "8  "));
  EXPECT_EQ(parsed.Numbers.First, 7);
  EXPECT_EQ(parsed.Numbers.Last, 8);
}

TEST(DupRecord, AShortOneEndsInOneOfItsFields) {
  const std::string record = DupRecord(kSuitsBri, kSuitsDge, "12 ", "345");
  EXPECT_EQ(Parse(record.substr(0, 77)).Error,
            Told("Incorrect record length = 77  in record: ###"));
  // A second part without any card, and one without the Two of Clubs.
  EXPECT_EQ(Parse(record.substr(0, 78)).Error, kMismatch);
  EXPECT_EQ(Parse(record.substr(0, 145)).Error, kMismatch);

  const Parsed noNumbers = Parse(record.substr(0, 146));
  EXPECT_EQ(noNumbers.Error, "");
  EXPECT_EQ(noNumbers.Numbers.First, 0);
  const Parsed cutNumbers = Parse(record.substr(0, 154));
  EXPECT_EQ(cutNumbers.Error, "");
  EXPECT_EQ(cutNumbers.Numbers.First, 12);
  EXPECT_EQ(cutNumbers.Numbers.Last, 3);
}

FileNumbers NumbersOf(const std::string& bytes) {
  BoardSet set = EmptySet(1, 0);
  FileNumbers numbers;
  EXPECT_FALSE(ParseFixedRecords(bytes, "DUP", set, numbers, kTexts));
  EXPECT_EQ(set.FirstBoard, 1);
  EXPECT_EQ(set.LastBoard, 3);
  return numbers;
}

TEST(DupFile, TheFirstNumberOfAnyRecordThatIsNot0Counts) {
  const FileNumbers numbers = NumbersOf(DupRecord(kRoundBri, kRoundDge, "   ", "7  ") +
                                        DupRecord(kSuitsBri, kSuitsDge, "5  ", "8  ") +
                                        DupRecord(kRoundBri, kRoundDge, "6  ", "9  "));
  EXPECT_EQ(numbers.First, 5);
  EXPECT_EQ(numbers.Last, 7);
}

TEST(DupFile, WithoutNumbersThereAreNone) {
  const std::string record = DupRecord(kRoundBri, kRoundDge, "   ", "   ");
  const FileNumbers numbers = NumbersOf(record + record + record);
  EXPECT_EQ(numbers.First, 0);
  EXPECT_EQ(numbers.Last, 0);
}

TEST(DupFile, HoldsBothPartsAndTheNumbersOfTheSetInEachRecord) {
  RecordDesk desk;
  desk.TwoBoards(1);
  const std::string bytes = desk.Saved("set.dup");
  EXPECT_EQ(bytes.size(), 312U);
  EXPECT_EQ(bytes, kSuitsBri + kSuitsDge + "YN1  1 2  " + kRoundBri + kRoundDge + "YN1  1 2  ");
}

TEST(DupFile, BeginsWithTheFirstBoardWhateverItsNumber) {
  RecordDesk desk;
  desk.TwoBoards(9);
  EXPECT_EQ(desk.Saved("set.dup"), DupRecord(kSuitsBri, kSuitsDge, "9  ", "10 ") +
                                       DupRecord(kRoundBri, kRoundDge, "9  ", "10 "));
  desk.TwoBoards(639);
  EXPECT_EQ(desk.Saved("set.dup"), DupRecord(kSuitsBri, kSuitsDge, "639", "640") +
                                       DupRecord(kRoundBri, kRoundDge, "639", "640"));
}

TEST(DupFile, AReaderGetsTheBoardsFrom1OnAndTheNumbersAside) {
  RecordDesk desk;
  desk.TwoBoards(9);
  ASSERT_TRUE(SaveFile(desk.Prog, desk.History, desk.Folder / "set.dup"));
  desk.Prog.Set.Clear();
  FileNotes notes;
  EXPECT_TRUE(
      FindFormat("DUP")->Read(desk.Prog, *FindFormat("DUP"), desk.Folder / "set.dup", notes));
  EXPECT_EQ(notes.Numbers.First, 9);
  EXPECT_EQ(notes.Numbers.Last, 10);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 2);
  EXPECT_EQ(desk.Prog.Set.At(2), test::RoundBoard(2));
}

TEST(DupFile, ThirtyTwoRecordsNumbered1To32LoadAsThese) {
  std::string bytes;
  for (int i = 0; i < 32; ++i) bytes += DupRecord(kRoundBri, kRoundDge, "1  ", "32 ");
  RecordDesk desk;
  EXPECT_TRUE(desk.Load("set.dup", bytes));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 32);
  for (int n = 1; n <= 32; ++n) EXPECT_EQ(desk.Prog.Set.At(n), test::RoundBoard(n));
}

TEST(DupFile, OneRecordLessThanItsNumbersSayAsksForTheNumbers) {
  std::string bytes;
  for (int i = 0; i < 31; ++i) bytes += DupRecord(kRoundBri, kRoundDge, "1  ", "32 ");
  RecordDesk desk;
  ASSERT_TRUE(desk.Store.Set(kLoadAllocation, "1"));
  test::WriteContent(desk.Folder / "set.dup", bytes);
  FakeNumbers numbers;
  numbers.Answer = [](LoadNumber& dialog) {
    EXPECT_EQ(dialog.lblBoardLoaded, "31 Boards were loaded");
    EXPECT_EQ(dialog.txtLastBoard, "31");
    dialog.txtFirstBoard = "2";
    EXPECT_TRUE(dialog.Command1());
  };
  EXPECT_TRUE(LoadFile(desk.Prog, desk.History, numbers, desk.Folder / "set.dup"));
  EXPECT_EQ(numbers.Shown, 1);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 2);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 32);
}

TEST(DupFile, ADifferentDealInTheSecondPartIsToldForItsRecord) {
  RecordDesk desk;
  EXPECT_FALSE(desk.Load("set.dup", DupRecord(kSuitsBri, kSuitsDge, "1  ", "2  ") +
                                        DupRecord(kSuitsBri, kRoundDge, "1  ", "2  ")));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(LoadError(Told("Board does not match in both parts of DUP record: 2"))));
}

}  // namespace
}  // namespace morvane::files
