#include <filesystem>

#include "cli/cli_desk.h"

// Convert from and to formats that cannot hold all of a set.

namespace morvane::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const std::vector<std::string> kFormats{"bri", "dge", "dup", "all", "bre", "csv", "pbn"};

struct FormatDesk : CliDesk {
  explicit FormatDesk(bool yes = false, int first = 1, int last = 3, bool overwrite = false)
      : CliDesk(yes, AtSpeed(0), overwrite) {
    test::WriteContent(Folder / "set.pbn", SuitDeals(first, last));
  }
  ExitStatus Convert(const std::string& in, const std::string& out,
                     std::optional<std::string> first = std::nullopt) {
    ConvertOptions request;
    request.In = {Folder / in};
    request.Out = Folder / out;
    request.First = std::move(first);
    Screen.Errors.clear();
    return Run(request);
  }
  /// The set of the desk's boards as a file of another format.
  void Make(const std::string& name) {
    Store.Set(kSaveEvent, "0");
    Store.Set(kSaveNumbers, "0");
    ASSERT_EQ(Convert("set.pbn", name), kDone) << Screen.Errors;
    Store.Set(kSaveEvent, "1");
    Store.Set(kSaveNumbers, "1");
  }
  [[nodiscard]] bool Exists(const std::string& name) const {
    return std::filesystem::exists(Folder / name);
  }
  /// The numbers of the set that the last command loaded.
  [[nodiscard]] std::string Range() const {
    return std::to_string(Prog.Set.FirstBoard) + "-" + std::to_string(Prog.Set.LastBoard);
  }
};

constexpr const char* kRefused =
    ": Incorrect value for First Board number\n"
    "First Board numbers must be between 1 and 638\n\nPlease enter correct value.\n";

TEST(ConvertFormats, EachIntoEachAndBackKeepsTheCards) {
  FormatDesk desk(true, 1, 3, true);
  ASSERT_EQ(desk.Convert("set.pbn", "there.pbn"), kDone);
  const auto before = std::make_unique<BoardSet>(desk.Prog.Set);
  for (const std::string& from : kFormats) {
    ASSERT_EQ(desk.Convert("set.pbn", "from." + from), kDone) << desk.Screen.Errors;
    for (const std::string& to : kFormats) {
      ASSERT_EQ(desk.Convert("from." + from, "to." + to), kDone) << from << " " << to;
      ASSERT_EQ(desk.Convert("to." + to, "back.pbn"), kDone) << from << " " << to;
      EXPECT_EQ(desk.Range(), "1-3");
      for (int n = 1; n <= 3; ++n) EXPECT_EQ(desk.Prog.Set.At(n).Cards, before->At(n).Cards);
    }
  }
}

TEST(ConvertFirst, WithoutItTheNumbersOfferedAreTakenInSilence) {
  for (const char* name : {"set.bri", "set.dge", "set.all", "set.bre"}) {
    FormatDesk desk;
    desk.Make(name);
    desk.Screen.Person = true;
    EXPECT_EQ(desk.Convert(name, "out.pbn"), kDone) << name;
    EXPECT_EQ(desk.Range(), "1-3");
    EXPECT_EQ(desk.Screen.Errors, "");
  }
}

TEST(ConvertFirst, AnswersTheNumberingDialog) {
  for (const char* name : {"set.bri", "set.dge", "set.all", "set.bre"}) {
    FormatDesk desk;
    desk.Make(name);
    EXPECT_EQ(desk.Convert(name, "out.pbn", "33"), kDone) << desk.Screen.Errors;
    EXPECT_EQ(desk.Range(), "33-35");
    EXPECT_EQ(desk.Screen.Errors, "");
    const std::string out = test::Content(desk.Folder / "out.pbn");
    EXPECT_THAT(out, HasSubstr("[Board \"33\"]\r\n[Dealer \"N\"]\r\n[Vulnerable \"None\"]\r\n"));
    EXPECT_THAT(out, HasSubstr("[Board \"35\"]\r\n[Dealer \"S\"]\r\n[Vulnerable \"EW\"]\r\n"));
  }
}

TEST(ConvertFirst, ANumberWithoutRoomIsToldOnceAndTheCommandFails) {
  for (const char* first : {"639", "999", "0", "000"}) {
    FormatDesk desk;
    desk.Make("set.bri");
    desk.Screen.Person = true;  // who is not asked again
    EXPECT_EQ(desk.Convert("set.bri", "out.pbn", first), kFailed);
    EXPECT_EQ(desk.Screen.Errors,
              "Incorrect value entered: " + (desk.Folder / "set.bri") + kRefused)
        << first;
    EXPECT_FALSE(desk.Exists("out.pbn"));
    EXPECT_FALSE(desk.Prog.Set.Exists());
  }
}

TEST(ConvertFirst, TheHighestNumberWithRoomIsTaken) {
  FormatDesk desk;
  desk.Make("set.bri");
  EXPECT_EQ(desk.Convert("set.bri", "out.pbn", "638"), kDone);
  EXPECT_EQ(desk.Range(), "638-640");
}

TEST(ConvertFirst, WhereTheFilesOwnNumbersStandItFails) {
  FormatDesk desk(false, 17, 19);
  desk.Make("set.dup");
  for (const char* name : {"set.pbn", "set.dup"}) {
    EXPECT_EQ(desk.Convert(name, "out.pbn", "33"), kFailed);
    EXPECT_EQ(desk.Screen.Errors,
              "--first 33 was not asked for: " + (desk.Folder / name) + " has boards 17 to 19.\n");
    EXPECT_FALSE(desk.Exists("out.pbn"));
    EXPECT_EQ(desk.Convert(name, "out.dup"), kFailed) << "nobody accepts the loss of the events";
    EXPECT_EQ(desk.Range(), "17-19");
  }
}

TEST(ConvertFirst, WhereTheDialogIsTurnedOffItFails) {
  FormatDesk desk;
  desk.Make("set.bri");
  desk.Store.Set(kLoadAllocation, "0");
  EXPECT_EQ(desk.Convert("set.bri", "out.pbn", "33"), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "--first 33 was not asked for: " + (desk.Folder / "set.bri") + " has boards 1 to 3.\n");
  EXPECT_FALSE(desk.Exists("out.pbn"));
}

TEST(ConvertFirst, ADupFileOfOneBoardTakesIt) {
  FormatDesk desk(false, 7, 7);
  desk.Make("set.dup");
  EXPECT_EQ(desk.Convert("set.dup", "out.pbn", "9"), kDone) << desk.Screen.Errors;
  EXPECT_EQ(desk.Range(), "9-9");
}

TEST(ConvertFormats, ALoadThatFailsWithoutABoxSaysSo) {
  FormatDesk desk;
  test::WriteContent(desk.Folder / "blank.bre", "Evening\r\nHall\r\nToday\r\n\r\n");
  EXPECT_EQ(desk.Convert("blank.bre", "out.pbn"), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Load Error: " + (desk.Folder / "blank.bre") + ": Load operation aborted!\n");
  EXPECT_FALSE(desk.Exists("out.pbn"));
}

TEST(ConvertFormats, WhatAFormatCannotHoldIsAskedAtTheTerminal) {
  FormatDesk desk(false, 3, 4);
  const std::string about = "Save Boards Set: " + (desk.Folder / "out.bri") + ": ";
  const std::string events =
      about +
      "BRI format does not support Event Name, Event Site and Event Date "
      "Information.\nThis information will not be saved.\nIf you need to save this information "
      "please use PBN or BRE formats.\n\nDo you want to save current Board Set in BRI format "
      "anyway?\n";
  const std::string numbers =
      about +
      "First Board for the current Board Set is not board number 1.\nBRI format "
      "does not support board numbers.\nIf you need to save board numbers please use PBN "
      "format.\n\nDo you want to save current Board Set in BRI format anyway?\n";
  const std::string prompt = "[y]es, [n]o? ";
  desk.Screen.Person = true;
  desk.Screen.Lines = {"y", "n"};
  EXPECT_EQ(desk.Convert("set.pbn", "out.bri"), kFailed);
  EXPECT_EQ(desk.Screen.Errors, events + prompt + numbers + prompt);
  EXPECT_FALSE(desk.Exists("out.bri"));
  desk.Screen.Lines = {"y", "y"};
  EXPECT_EQ(desk.Convert("set.pbn", "out.bri"), kDone);
  EXPECT_TRUE(desk.Exists("out.bri"));
  EXPECT_THAT(desk.Screen.Lines, IsEmpty());
}

TEST(ConvertFormats, WithYesEachLossIsAcceptedAndTold) {
  FormatDesk desk(true, 3, 4);
  EXPECT_EQ(desk.Convert("set.pbn", "out.dge"), kDone);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("DGE format does not support Event Name"));
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("DGE format does not support board numbers."));
  EXPECT_TRUE(desk.Exists("out.dge"));
}

TEST(ConvertFormats, WithoutAnybodyToAskNothingIsLost) {
  for (const char* name : {"out.bri", "out.dge", "out.all", "out.dup", "out.csv", "out.bre"}) {
    FormatDesk desk(false, 3, 4);
    EXPECT_EQ(desk.Convert("set.pbn", name), kFailed) << name;
    EXPECT_THAT(desk.Screen.Errors,
                EndsWith("anyway?\nThere is nobody to ask; --yes would answer Yes.\n"));
    EXPECT_FALSE(desk.Exists(name));
  }
}

TEST(ConvertFormats, WithYesAnIncompleteBoardIsAnErrorAllTheSame) {
  for (const char* name : {"out.bri", "out.dge", "out.all", "out.dup", "out.csv"}) {
    FormatDesk desk(true);
    test::WriteContent(desk.Folder / "set.pbn", SuitDeals(1, 1) + "[Board \"2\"]\r\n");
    EXPECT_EQ(desk.Convert("set.pbn", name), kFailed) << name;
    EXPECT_THAT(desk.Screen.Errors, StartsWith("Save Error: " + (desk.Folder / name) +
                                               ": Board number: 2 is incomplete.\n"));
    EXPECT_FALSE(desk.Exists(name));
  }
}

}  // namespace
}  // namespace morvane::cli
