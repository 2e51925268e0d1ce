#include <filesystem>

#include "cli/generate_requests.h"

// What keeps a set from being saved or put on record, and when that is told.

namespace morvane::cli {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// What must be right before a set is made.
struct Refused {
  std::string Name;  ///< of the file to save
  std::string Errors;
  std::string Last = "8";
  bool Empty = false;
};

class RefusedBeforeTest : public ::testing::TestWithParam<Refused> {};

TEST_P(RefusedBeforeTest, NothingIsMadeOrLogged) {
  CliDesk desk;
  std::filesystem::create_directory(desk.Folder / "folder.pbn");
  test::WriteContent(desk.Folder / "there.pbn", "as it was");
  GenerateOptions request = Fresh(desk);
  request.Out = desk.Folder / GetParam().Name;
  request.Last = GetParam().Last;
  request.Empty = GetParam().Empty;
  EXPECT_EQ(desk.Run(request), kFailed);
  EXPECT_EQ(desk.Screen.Errors, Fill(GetParam().Errors, "OUT", request.Out));
  EXPECT_EQ(desk.Screen.Output, "");
  for (const std::string& line : desk.LogLines()) {
    for (const char* start : {" File-New", "  Seed", "  Generate", "  New random", " File-Save"}) {
      EXPECT_FALSE(line.starts_with(start)) << line;
    }
  }
  EXPECT_EQ(test::Content(desk.Folder / "there.pbn"), "as it was");
}

const std::string kNobody = "There is nobody to ask; --yes would answer Yes.\n";

INSTANTIATE_TEST_SUITE_P(
    Generate, RefusedBeforeTest,
    ::testing::Values(
        Refused{"set.doc", "Save Error: OUT: Unknow file format: DOC\nSave operation aborted!\n"},
        Refused{"set", "Save Error: OUT: Unknow file format:\nSave operation aborted!\n"},
        Refused{"none/set.pbn",
                "Save Error: OUT: Error: 2 during save operation - No such file or directory\n"
                "Save operation aborted!\n"},
        Refused{"there.pbn/set.pbn",
                "Save Error: OUT: Error: 20 during save operation - Not a directory\n"
                "Save operation aborted!\n"},
        Refused{"folder.pbn",
                "Save Error: OUT: Error: 21 during save operation - Is a directory\n"
                "Save operation aborted!\n"},
        Refused{"there.pbn",
                "Save Board Set: OUT exists already. Replace it?\n"
                "There is nobody to ask; --overwrite would replace it.\nNot replaced.\n"},
        Refused{
            "set.bri",
            "Save Boards Set: OUT: BRI format does not support Event Name, Event Site and Event "
            "Date Information.\nThis information will not be saved.\nIf you need to save this "
            "information please use PBN or BRE formats.\n\nDo you want to save current Board "
            "Set in BRI format anyway?\n" +
                kNobody},
        Refused{
            "set.bri",
            "Save Error: OUT: Board number: 1 is incomplete.\nThis Board Set cannot be saved in "
            "BRI format.\nIf you need to save this Board Set please use PBN or BRE format.\n",
            "1", true}));

#ifndef _WIN32  // no folder of processes
TEST(GenerateCommand, AFolderThatCannotBeWrittenInIsSeenBeforeTheSetIsMade) {
  CliDesk desk;
  GenerateOptions request = Fresh(desk);
  request.Out = "/proc/self/set.pbn";  // its rights would let the super-user in
  EXPECT_EQ(desk.Run(request), kFailed);
  EXPECT_THAT(desk.Screen.Errors, StartsWith("Save Error: /proc/self/set.pbn: Error: 2 "));
  EXPECT_EQ(Logged(desk, "  Generate: "), "");
}
#endif

TEST(GenerateCommand, WhatIsAskedBeforeTheSetIsMadeIsAskedOnce) {
  CliDesk desk;
  GenerateOptions request = Fresh(desk);
  request.First = "2";
  request.Out = desk.Folder / "set.bri";
  test::WriteContent(request.Out, "as it was");
  desk.Screen.Person = true;
  desk.Screen.Lines = {"y", "y", "y", "left"};  // texts of the event, numbers, replace
  EXPECT_EQ(desk.Run(request), kDone) << desk.Screen.Errors;
  EXPECT_EQ(desk.Screen.Lines.size(), 1U);
  EXPECT_NE(test::Content(request.Out), "as it was");
  EXPECT_NE(Logged(desk, "  Generate: "), "");
}

TEST(GenerateCommand, TheTestOfTheFolderLeavesNothingBehind) {
  CliDesk desk;
  GenerateOptions request = Fresh(desk);
  std::filesystem::create_directory(desk.Folder / "sets");
  request.Out = desk.Folder / "sets/set.pbn";
  request.First = "9";  // refused behind it
  EXPECT_EQ(desk.Run(request), kFailed);
  EXPECT_TRUE(std::filesystem::is_empty(desk.Folder / "sets"));
}

TEST(GenerateCommand, ASetWhoseLogFailsIsNotOnRecord) {
  CliDesk desk;
  // The log of the month is a folder: start-up cannot know.
  std::filesystem::create_directories(desk.Folder / "Morvane_Data/Log_2026_3.txt");
  EXPECT_EQ(desk.Run(Seeded(desk, kSeedr, kSeedo)), kPartly);
  EXPECT_EQ(desk.Screen.Output,
            "Boards 1 to 8: 8\nThis set is not on record: do not publish its SHA-256.\n");
}

TEST(GenerateCommand, ASetThatTheHistoryDidNotTakeIsDoneInPartAndOnRecord) {
  CliDesk desk;
  std::filesystem::create_directories(desk.Folder / "Morvane_Data/history1.dat");
  EXPECT_EQ(desk.Run(Seeded(desk, kSeedr, kSeedo)), kPartly);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nSHA-256: "));
  EXPECT_THAT(desk.Screen.Errors, StartsWith("History Error: "));
}

}  // namespace
}  // namespace morvane::cli
