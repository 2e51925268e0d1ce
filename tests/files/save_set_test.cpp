#include "files/save_set.h"

#include <filesystem>

#include "files/file_boxes.h"
#include "files/load_desk.h"
#include "support/file_size_limit.h"

namespace morvane::files {
namespace {

using test::FakeUi;
using test::TestDesk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kBoard1 =
    "% Morvane ver 1.0\r\n[Event \"\"]\r\n[Site \"\"]\r\n[Date \"\"]\r\n[Board \"1\"]\r\n[Dealer "
    "\"N\"]\r\n[Vulnerable \"None\"]\r\n" +
    kSuitDeal + "\r\n\r\n";

FakeUi::Box UnknownFormat(const std::string& extension) {
  return {
      "      Unknow file format: " + extension + "      \r\n      Save operation aborted!      ",
      16, "Save Error"};
}

/// A desk with one unsaved board, loaded from another file.
struct SaveDesk : TestDesk {
  SaveDesk() {
    Prog.VersionText = "1.0";
    Prog.Set = EmptySet(1, 1);
    Prog.Set.At(1) = test::SuitBoard(1);
    Prog.Set.BoardSetChanged = "1";
    Prog.Set.BoardSetFile = "/old.pbn";
  }
  void SaveTo(const std::string& path) {
    Ui.Files = {path};
    SaveBoardSet(Prog, History);
  }
  const std::string Path = Folder / "evening.pbn";
};

void ExpectNotSaved(const TestDesk& desk) {
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, "/old.pbn");
  EXPECT_EQ(desk.Prog.Set.Count(), 1);
  EXPECT_FALSE(desk.Store.Has(kInitFormat));
  EXPECT_FALSE(desk.Store.Has(kInitDirectory));
}

TEST(Save, WritesTheFileAndMarksTheSetAsSaved) {
  SaveDesk desk;
  desk.SaveTo(desk.Path);
  EXPECT_EQ(test::Content(desk.Path), kBoard1);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, desk.Path);
  EXPECT_EQ(desk.Store.Get(kInitFormat), "pbn");
  EXPECT_EQ(desk.Store.Get(kInitDirectory), desk.Folder / "");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Saving", "Boards Saved: 1"));
  EXPECT_THAT(desk.LogLines(), ElementsAre(" File-Save: 3:04:05: PM", "  Save: " + desk.Path));
  EXPECT_EQ(desk.Ui.Refreshes, 1);
}

TEST(Save, WithoutASetIsRefused) {
  SaveDesk desk;
  desk.Prog.Set.LastBoard = 0;
  SaveBoardSet(desk.Prog, desk.History);
  const std::string text = "      Board Set does not exist. Request ignored!      ";
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{text, 16, "Save Error"}));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Saving", text));
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_THAT(desk.LogLines(),
              ElementsAre("    Save Error: Board Set does not exist. Request ignored!"));
}

TEST(Save, TheDialogOpensOnTheLastFormatAndFolder) {
  SaveDesk desk;
  desk.Store.Set(kInitFormat, "csv");
  desk.Store.Set(kInitDirectory, "/events/");
  SaveBoardSet(desk.Prog, desk.History);
  ASSERT_EQ(desk.Ui.FileRequests.size(), 1U);
  const FileRequest& request = desk.Ui.FileRequests[0];
  EXPECT_EQ(request.Title, "Save Board Set");
  EXPECT_EQ(request.FilterIndex, 7);
  EXPECT_EQ(request.Directory, "/events/");
  EXPECT_TRUE(request.Saving);
  EXPECT_TRUE(request.Filter.starts_with("bri (*.bri)|*.bri|dge"));
}

TEST(Save, ACancelledDialogLeavesEverythingAsItWas) {
  SaveDesk desk;
  SaveBoardSet(desk.Prog, desk.History);
  ExpectNotSaved(desk);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Saving", "Ready"));
  EXPECT_THAT(desk.LogLines(), ElementsAre(" File-Save: 3:04:05: PM"));
  EXPECT_EQ(desk.Ui.Refreshes, 1);
}

TEST(Save, AnExtensionInMixedCaseWorks) {
  SaveDesk desk;
  desk.SaveTo(desk.Folder / "evening.PbN");
  EXPECT_EQ(test::Content(desk.Folder / "evening.PbN"), kBoard1);
  EXPECT_EQ(desk.Store.Get(kInitFormat), "pbn");
}

TEST(Save, AnUnknownExtensionIsNamed) {
  SaveDesk desk;
  desk.SaveTo(desk.Folder / "evening.doc");
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(UnknownFormat("DOC")));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Saving", "Save operation aborted"));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre(" File-Save: 3:04:05: PM", "  Save: " + (desk.Folder / "evening.doc"),
                          "    Save Error: Unknow file format: DOC : Save operation aborted!"));
  ExpectNotSaved(desk);
  EXPECT_FALSE(std::filesystem::exists(desk.Folder / "evening.doc"));
}

TEST(Save, ANameWithoutADotHasNothingInItsPlace) {
  SaveDesk desk;
  desk.SaveTo(desk.Folder / "evening");
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(UnknownFormat("")));
  ExpectNotSaved(desk);
}

TEST(Save, ALogCannotBeSavedAtAnyServiceLevel) {
  SaveDesk desk;
  desk.Prog.ServiceLevel = 2;
  desk.SaveTo(desk.Folder / "Log.txt");
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(UnknownFormat("TXT")));
  ExpectNotSaved(desk);
}

TEST(Save, IncompleteBoardsAreAskedAboutBeforeTheFileIsTouched) {
  SaveDesk desk;
  desk.Prog.Set.LastBoard = 3;  // boards 2 and 3 are empty
  test::WriteContent(desk.Path, "old");
  desk.Ui.Answers = {kNo};
  desk.SaveTo(desk.Path);
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(IncompleteQuestion("Boards number: 2, 3 are", "PBN")));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Saving", "Save operation aborted", "Ready"));
  EXPECT_EQ(test::Content(desk.Path), "old");
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");

  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(SaveFile(desk.Prog, desk.History, desk.Path));
  EXPECT_EQ(desk.Ui.Statuses.back(), "Boards Saved: 3");
}

TEST(Save, ForbiddenCharactersLeaveTheFileAlone) {
  SaveDesk desk;
  test::WriteContent(desk.Path, "old");
  desk.Prog.Set.EventName = "50% off";
  desk.SaveTo(desk.Path);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Saving", "Save operation aborted", "Ready"));
  EXPECT_THAT(
      desk.LogLines(),
      ElementsAre(" File-Save: 3:04:05: PM", "  Save: " + desk.Path,
                  "    Save Error: In PBN format characters []{};\"% are not allowed in the Event "
                  "Name, Event Site and Event Date fields"));
  EXPECT_EQ(test::Content(desk.Path), "old");
  ExpectNotSaved(desk);
}

TEST(FailedSave, AFolderThatIsMissingIsTheSystemsError) {
  SaveDesk desk;
  desk.SaveTo(desk.Folder / "none/x.pbn");
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(SaveFailure("2", "No such file or directory")));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Saving", "Save operation aborted", "Ready"));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre(" File-Save: 3:04:05: PM", "  Save: " + (desk.Folder / "none/x.pbn"),
                          "    Save Error: Error: 2 during save operation - No such file or "
                          "directory : Save operation aborted!"));
  ExpectNotSaved(desk);
}

#ifndef _WIN32  // no folder of processes
TEST(FailedSave, AFolderThatCannotBeWrittenIsTheSystemsError) {
  SaveDesk desk;
  desk.SaveTo("/proc/self/x.pbn");
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(SaveFailure("2", "No such file or directory")));
  ExpectNotSaved(desk);
}
#endif

TEST(FailedSave, ADirectoryIsTheSystemsError) {
  SaveDesk desk;
  std::filesystem::create_directory(desk.Path);
  desk.SaveTo(desk.Path);
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(SaveFailure("21", "Is a directory")));
  ExpectNotSaved(desk);
  EXPECT_TRUE(std::filesystem::is_directory(desk.Path));
}

#ifndef _WIN32  // no limit for files, no device that is full
TEST(FailedSave, AFullDiskIsTheSystemsErrorAndLeavesTheOldFile) {
  SaveDesk desk;
  std::filesystem::create_symlink("/dev/full", desk.Folder / "x.pbn");
  desk.SaveTo(desk.Folder / "x.pbn");
  test::WriteContent(desk.Path, "old");
  desk.Prog.Set.EventName = std::string(5000, 'x');  // the log has a few hundred characters
  {
    const test::FileSizeLimit limit(4000);
    desk.SaveTo(desk.Path);
  }
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(SaveFailure("28", "No space left on device"),
                                         SaveFailure("27", "File too large")));
  EXPECT_EQ(test::Content(desk.Path), "old");
  ExpectNotSaved(desk);
}
#endif

TEST(FailedSave, EachOneShowsItsOwnWords) {
  SaveDesk desk;
  std::filesystem::create_directory(desk.Path);
  EXPECT_FALSE(SaveFile(desk.Prog, desk.History, desk.Folder / "none/x.pbn"));
  EXPECT_FALSE(SaveFile(desk.Prog, desk.History, desk.Path));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(SaveFailure("2", "No such file or directory"),
                                         SaveFailure("21", "Is a directory")));
}

TEST(SavedFile, KeepsTheAnalysisOnlyWithItsSetting) {
  SaveDesk desk;
  desk.Prog.Set.At(1).Tricks[0] = 3;
  EXPECT_TRUE(SaveFile(desk.Prog, desk.History, desk.Path));
  EXPECT_NE(test::Content(desk.Path).find("[DoubleDummyTricks \"91111111111111111111\"]"),
            std::string::npos);
  desk.Store.Set(kSaveAnalyze, "0");
  EXPECT_TRUE(SaveFile(desk.Prog, desk.History, desk.Path));
  EXPECT_EQ(test::Content(desk.Path), kBoard1);
}

TEST(SavedFile, IsWindows1252WherePossibleAndElseUtf8) {
  SaveDesk desk;
  desk.Prog.Set.EventName = "Caf\xC3\xA9";
  EXPECT_TRUE(SaveFile(desk.Prog, desk.History, desk.Path));
  EXPECT_NE(test::Content(desk.Path).find("[Event \"Caf\xE9\"]"), std::string::npos);
  desk.Prog.Set.EventSite =
      "\xC5\x81\xC3\xB3"
      "d\xC5\xBA";
  EXPECT_TRUE(SaveFile(desk.Prog, desk.History, desk.Path));
  EXPECT_NE(test::Content(desk.Path).find("[Event \"Caf\xC3\xA9\"]"), std::string::npos);
}

TEST(SavedFile, LoadsAsTheSameSet) {
  SaveDesk desk;
  test::FillSet(desk.Prog.Set, 5, 12);
  desk.Prog.Set.EventName = "Caf\xC3\x83\xC2\xA9";  // reads as UTF-8 in both encodings
  desk.Prog.Set.EventSite = "\xE2\x82\xAC 5";
  desk.Prog.Set.At(7).Tricks[4] = 7;
  desk.SaveTo(desk.Path);
  const auto before = std::make_unique<BoardSet>(desk.Prog.Set);
  EXPECT_TRUE(LoadFile(desk.Prog, desk.History, desk.Path));
  EXPECT_TRUE(desk.Prog.Set.Boards == before->Boards);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 5);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 12);
  EXPECT_EQ(desk.Prog.Set.EventName, before->EventName);
  EXPECT_EQ(desk.Prog.Set.EventSite, before->EventSite);
}

TEST(SavedFile, EmptyBoardsInBetweenCountAsIncomplete) {
  SaveDesk desk;
  test::WriteContent(desk.Folder / "two.pbn",
                     "[Board \"3\"]\n" + kSuitDeal + "\n[Board \"7\"]\n" + kSuitDeal);
  ASSERT_TRUE(LoadFile(desk.Prog, desk.History, desk.Folder / "two.pbn"));
  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(SaveFile(desk.Prog, desk.History, desk.Path));
  EXPECT_TRUE(desk.Ui.Boxes.at(0).Text.starts_with(
      "      Boards number: 4, 5, 6 are incomplete.      \r\n"));
  EXPECT_EQ(desk.Ui.Statuses.back(), "Boards Saved: 5");
}

}  // namespace
}  // namespace morvane::files
