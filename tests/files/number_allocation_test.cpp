#include "files/number_allocation.h"

#include "files/load_desk.h"

namespace morvane::files {
namespace {

using test::TestDesk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Boards 1 to `count`, each with a counter of its own by which it is known again.
void MakeSet(BoardSet& set, int count) {
  test::FillSet(set, 1, count);
  for (int n = 1; n <= count; ++n) {
    set.At(n).DealCounter = {0, 0, static_cast<std::uint8_t>(n / 256),
                             static_cast<std::uint8_t>(n % 256)};
    set.At(n).Tricks[7] = static_cast<std::uint8_t>(n % 8);
  }
}

/// Which board of `MakeSet` stands at place `n`.
int Origin(const BoardSet& set, int n) {
  return set.At(n).DealCounter[2] * 256 + set.At(n).DealCounter[3];
}

TEST(MoveSet, TakesTheBoardsToTheNewNumbersInTheirOrder) {
  BoardSet set;
  MakeSet(set, 3);
  const BoardSet before = set;
  MoveSet(set, 17);
  EXPECT_EQ(set.FirstBoard, 17);
  EXPECT_EQ(set.LastBoard, 19);
  for (int n = 17; n <= 19; ++n) {
    EXPECT_EQ(set.At(n).Cards, before.At(n - 16).Cards) << n;
    EXPECT_EQ(set.At(n).Tricks, before.At(n - 16).Tricks) << n;
    EXPECT_EQ(set.At(n).Status, Board::kComplete) << n;
    EXPECT_EQ(Origin(set, n), n - 16);
    EXPECT_EQ(set.At(n).Number, n);
  }
}

TEST(MoveSet, DealerAndVulnerabilityFollowTheNewNumber) {
  BoardSet set;
  MakeSet(set, 4);
  for (int n = 1; n <= 4; ++n) {
    set.At(n).Dealer = kWest;  // wherever they came from
    set.At(n).Vul = 4;
  }
  MoveSet(set, 15);
  std::vector<int> dealers;
  std::vector<int> vuls;
  for (int n = 15; n <= 18; ++n) {
    dealers.push_back(set.At(n).Dealer);
    vuls.push_back(set.At(n).Vul);
  }
  EXPECT_THAT(dealers, ElementsAre(kSouth, kWest, kNorth, kEast));
  EXPECT_THAT(vuls, ElementsAre(2, 3, 1, 2));  // NS, EW, then the cycle starts anew: None, NS
}

TEST(MoveSet, PlacesThatOverlapLoseNoBoard) {
  BoardSet set;
  MakeSet(set, 32);
  MoveSet(set, 2);
  EXPECT_EQ(set.LastBoard, 33);
  for (int n = 2; n <= 33; ++n) EXPECT_EQ(Origin(set, n), n - 1);
}

TEST(MoveSet, WhatStoodBelowTheNewFirstBoardStaysOutsideTheSet) {
  BoardSet set;
  MakeSet(set, 5);
  const BoardSet before = set;
  MoveSet(set, 3);
  EXPECT_EQ(set.At(1), before.At(1));
  EXPECT_EQ(set.At(2), before.At(2));
  EXPECT_EQ(set.FirstBoard, 3);
}

TEST(MoveSet, ToBoard1ChangesNothing) {
  BoardSet set;
  MakeSet(set, 20);
  const BoardSet before = set;
  MoveSet(set, 1);
  EXPECT_TRUE(set.Boards == before.Boards);
  EXPECT_EQ(set.FirstBoard, 1);
  EXPECT_EQ(set.LastBoard, 20);
}

TEST(MoveSet, GoesUpToBoard640) {
  BoardSet set;
  MakeSet(set, 320);
  MoveSet(set, 321);
  EXPECT_EQ(set.LastBoard, 640);
  EXPECT_EQ(Origin(set, 640), 320);
  EXPECT_EQ(Origin(set, 321), 1);
}

/// A set of `Count` boards that has just been read into 1 to its count.
struct ReadDesk : TestDesk {
  explicit ReadDesk(int count) { MakeSet(Prog.Set, count); }
  bool Allocate(const char* extension, FileNumbers numbers = {}) {
    return AllocateNumbers(Prog, Numbers, *FindFormat(extension), numbers);
  }
  FakeNumbers Numbers;
};

TEST(NumberAllocation, FormatsWithoutNumbersShowTheDialog) {
  for (const char* extension : {"BRI", "DGE", "DUP", "ALL", "BRE"}) {
    ReadDesk desk(2);
    desk.Numbers.Answer = [](LoadNumber& dialog) {
      dialog.txtFirstBoard = "7";
      dialog.Command1();
    };
    EXPECT_TRUE(desk.Allocate(extension));
    EXPECT_EQ(desk.Numbers.Shown, 1) << extension;
    EXPECT_EQ(desk.Prog.Set.FirstBoard, 7) << extension;
    EXPECT_EQ(desk.Prog.Set.LastBoard, 8) << extension;
  }
}

TEST(NumberAllocation, CsvPbnAndLogFilesNeverShowTheDialog) {
  for (const char* extension : {"CSV", "PBN", "TXT"}) {
    ReadDesk desk(2);
    EXPECT_TRUE(desk.Allocate(extension, {5, 6}));
    EXPECT_EQ(desk.Numbers.Shown, 0) << extension;
    EXPECT_EQ(desk.Prog.Set.FirstBoard, 1) << extension;
  }
}

TEST(NumberAllocation, WithoutTheSettingTheBoardsCountFrom1) {
  for (const char* value : {"0", "", " 1", "2"}) {  // on is "1" and nothing else
    ReadDesk desk(2);
    desk.Store.Set(kLoadAllocation, value);
    for (const char* extension : {"BRI", "DGE", "DUP", "ALL", "BRE"}) {
      EXPECT_TRUE(desk.Allocate(extension));
    }
    EXPECT_EQ(desk.Numbers.Shown, 0) << value;
    EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
    EXPECT_EQ(desk.Prog.Set.LastBoard, 2);
  }
}

TEST(NumberAllocation, TheNumbersOfADupFileAreTakenWithoutTheDialog) {
  for (const char* setting : {"1", "0"}) {
    ReadDesk desk(32);
    desk.Store.Set(kLoadAllocation, setting);
    EXPECT_TRUE(desk.Allocate("DUP", {33, 64}));
    EXPECT_EQ(desk.Numbers.Shown, 0);
    EXPECT_EQ(desk.Prog.Set.FirstBoard, 33);
    EXPECT_EQ(desk.Prog.Set.LastBoard, 64);
    EXPECT_EQ(Origin(desk.Prog.Set, 64), 32);
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  }
}

TEST(NumberAllocation, ADupFileOfBoards1To32IsLeftAsItIs) {
  ReadDesk desk(32);
  EXPECT_TRUE(desk.Allocate("DUP", {1, 32}));
  EXPECT_EQ(desk.Numbers.Shown, 0);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 32);
}

TEST(NumberAllocation, ADupFileWhoseSpanIsNotItsCountAsks) {
  for (const FileNumbers numbers : {FileNumbers{1, 32}, {1, 30}, {33, 63 + 1}}) {
    ReadDesk desk(31);
    EXPECT_TRUE(desk.Allocate("DUP", numbers));
    EXPECT_EQ(desk.Numbers.Shown, 1) << numbers.First << " " << numbers.Last;
    EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
    EXPECT_EQ(desk.Prog.Set.LastBoard, 31);
  }
}

TEST(NumberAllocation, ADupFileWhoseSpanIsNotItsCountCountsFrom1WithoutTheSetting) {
  ReadDesk desk(31);
  desk.Store.Set(kLoadAllocation, "0");
  EXPECT_TRUE(desk.Allocate("DUP", {2, 33}));
  EXPECT_EQ(desk.Numbers.Shown, 0);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
}

TEST(NumberAllocation, ADupFileOfOneBoardAsksAlthoughItHoldsTheNumber) {
  ReadDesk desk(1);
  EXPECT_TRUE(desk.Allocate("DUP", {7, 7}));
  EXPECT_EQ(desk.Numbers.Shown, 1);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1) << "what the dialog offered";
}

TEST(NumberAllocation, ADupFileWithOneNumberOnlyAsks) {
  for (const FileNumbers numbers : {FileNumbers{0, 0}, {0, 1}, {5, 0}}) {
    ReadDesk desk(2);
    EXPECT_TRUE(desk.Allocate("DUP", numbers));
    EXPECT_EQ(desk.Numbers.Shown, 1) << numbers.First << " " << numbers.Last;
  }
}

TEST(NumberAllocation, ADupFilesLastNumberMayBe640AndNoMore) {
  ReadDesk fits(2);
  EXPECT_TRUE(fits.Allocate("DUP", {639, 640}));
  EXPECT_EQ(fits.Numbers.Shown, 0);
  EXPECT_EQ(fits.Prog.Set.LastBoard, 640);
  ReadDesk over(2);
  EXPECT_TRUE(over.Allocate("DUP", {640, 641}));
  EXPECT_EQ(over.Numbers.Shown, 1);
  EXPECT_EQ(over.Prog.Set.LastBoard, 2);
}

TEST(NumberAllocation, NumbersOfOtherFormatsAreNoNumbers) {
  ReadDesk desk(2);
  EXPECT_TRUE(desk.Allocate("BRI", {5, 6}));
  EXPECT_EQ(desk.Numbers.Shown, 1);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
}

TEST(NumberAllocation, WithoutAnAnswerTheSetIsNotToBeKept) {
  ReadDesk desk(2);
  desk.Numbers.Answer = [](LoadNumber&) {};
  EXPECT_FALSE(desk.Allocate("BRI"));
}

/// A reader of a made-up file: two boards, with numbers of their own.
bool ReadTwo(Program& program, const Format& format, const std::string& path, FileNotes& notes) {
  MakeSet(program.Set, 2);
  program.Set.EventName = std::string(format.Name) + " " + path;
  notes.Numbers = {21, 22};
  return true;
}

bool ReadNothing(Program&, const Format&, const std::string&, FileNotes&) { return false; }

constexpr Format Row(Format::Numbers numbers, Reader read) {
  return {.Extension = "X", .Name = "Made up", .BoardNumbers = numbers, .Read = read};
}

TEST(ReadSet, HandsTheFormatToItsReaderAndTakesTheNumbersFromIt) {
  TestDesk desk;
  FakeNumbers dialog;
  FileNotes notes;
  EXPECT_TRUE(ReadSet(desk.Prog, dialog, Row(Format::Numbers::kFirstAndLast, ReadTwo),
                      "/sets/two.x", notes));
  EXPECT_EQ(desk.Prog.Set.EventName, "Made up /sets/two.x");
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 21);
  EXPECT_EQ(dialog.Shown, 0);
}

TEST(ReadSet, AsksForTheNumbersOfAFormatThatHasNone) {
  TestDesk desk;
  FakeNumbers dialog;
  FileNotes notes;
  dialog.Answer = [](LoadNumber& question) {
    EXPECT_EQ(question.lblFormat,
              "Made up format does not support board numbers. Loaded boards are allocated as "
              "follows:");
    question.Command1();
  };
  EXPECT_TRUE(
      ReadSet(desk.Prog, dialog, Row(Format::Numbers::kNone, ReadTwo), "/sets/two.x", notes));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(dialog.Shown, 1);
}

TEST(ReadSet, AFileThatCannotBeReadHasNoNumbersToAskFor) {
  TestDesk desk;
  FakeNumbers dialog;
  FileNotes notes;
  EXPECT_FALSE(
      ReadSet(desk.Prog, dialog, Row(Format::Numbers::kNone, ReadNothing), "/none.x", notes));
  EXPECT_EQ(dialog.Shown, 0);
}

}  // namespace
}  // namespace morvane::files
