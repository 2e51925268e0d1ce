#include "files/import_set.h"

#include <filesystem>

#include "files/load_desk.h"
#include "files/log_records.h"

namespace morvane::files {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kTitle = "Import PBN";

/// A desk on which boards 1 to 4 of an older file lie, and a file that Load refuses.
struct ImportDesk : LoadDesk {
  ImportDesk() {
    test::WriteContent(Loose, "[Event\n\"Evening\"]\n[Board \"3\"]\n[Deal\n\"N:" +
                                  std::string(kSuitsPbn) + "\"]\n");
    test::WriteContent(Hopeless, "[Board \"0\"]\n[Deal \"N:A... - - -\"]\n");
  }
  bool Import() { return ImportBoardSet(Prog, History).has_value(); }
  void ExpectOldSet() const {
    EXPECT_EQ(Prog.Set.Count(), 4);
    EXPECT_EQ(Prog.Set.At(2), test::RoundBoard(2, 3));
    EXPECT_EQ(Prog.Set.EventName, "Old");
    EXPECT_EQ(Prog.Set.BoardSetFile, "/old.pbn");
    EXPECT_EQ(Prog.Set.CurrentBoard, 2);
  }

  const std::string Loose = Folder / "loose.pbn";
  const std::string Hopeless = Folder / "hopeless.pbn";
};

TEST(Import, AsksForTheFileAndTakesItsSet) {
  ImportDesk desk;
  desk.Ui.Files = {desk.Loose};
  EXPECT_TRUE(desk.Import());
  const BoardSet& set = desk.Prog.Set;
  EXPECT_EQ(set.FirstBoard, 3);
  EXPECT_EQ(set.LastBoard, 3);
  EXPECT_EQ(set.CurrentBoard, 1);
  EXPECT_EQ(set.EventName, "Evening");
  EXPECT_EQ(set.EventSite, "");
  EXPECT_EQ(set.EventDate, "");
  EXPECT_EQ(set.BoardSetFile, desk.Loose);
  EXPECT_EQ(set.BoardSetChanged, "0");
  EXPECT_EQ(set.At(2), Board{});
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Importing", "Boards imported: 1"));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      Boards imported: 1      ", 64, kTitle}));
  EXPECT_THAT(desk.LogLines(), ElementsAre(" File-Import: 3:04:05 PM", "  Import: " + desk.Loose,
                                           Record("003"), "    Import PBN: Boards imported: 1"));
  EXPECT_GT(desk.Ui.Refreshes, 0);
  EXPECT_EQ(desk.Store.Get(kInitFormat), "pbn");
  EXPECT_EQ(desk.Store.Get(kInitDirectory), desk.Folder / "");
}

TEST(Import, TheDialogShowsPbnFilesFirst) {
  ImportDesk desk;
  desk.Store.Set(kInitFormat, "csv");
  desk.Store.Set(kInitDirectory, "/events/");
  EXPECT_FALSE(desk.Import());
  ASSERT_EQ(desk.Ui.FileRequests.size(), 1U);
  const FileRequest& request = desk.Ui.FileRequests[0];
  EXPECT_EQ(request.Title, "Import PBN file");
  EXPECT_EQ(request.Filter, "PBN files (*.pbn)|*.pbn|All files (*.*)|*.*");
  EXPECT_EQ(request.FilterIndex, 1);
  EXPECT_EQ(request.Directory, "/events/");
  EXPECT_FALSE(request.Saving);
}

TEST(Import, ACancelledDialogLeavesTheSetAsItWas) {
  ImportDesk desk;
  EXPECT_FALSE(desk.Import());
  desk.ExpectOldSet();
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Importing", "Ready"));
  EXPECT_THAT(desk.LogLines(), ElementsAre(" File-Import: 3:04:05 PM"));
}

TEST(Import, IsRefusedWhileAnalysisIsRunning) {
  ImportDesk desk;
  desk.Prog.AnalysisRunning = true;
  EXPECT_FALSE(desk.Import());
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg103);
  EXPECT_EQ(desk.Ui.Boxes[0].Flags, 16);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, kTitle);
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  desk.ExpectOldSet();
}

TEST(Import, AsksWhetherToSaveFirst) {
  ImportDesk desk;
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kCancel};
  EXPECT_FALSE(desk.Import());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{desk.Prog.Texts.Msg062, 51, kTitle}));
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  desk.ExpectOldSet();

  const std::string saved = desk.Folder / "saved.pbn";
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {saved, desk.Loose};
  EXPECT_TRUE(desk.Import());
  EXPECT_TRUE(std::filesystem::exists(saved));
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, desk.Loose);
}

TEST(Import, ChangesThatWereGivenUpAreStillUnsavedWhenNothingIsImported) {
  ImportDesk desk;
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kNo, kNo};
  desk.Ui.Files = {desk.Hopeless};
  EXPECT_FALSE(desk.Import());
  EXPECT_FALSE(desk.Import());  // cancelled
  EXPECT_EQ(desk.Ui.FileRequests.size(), 2U);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  desk.ExpectOldSet();
}

TEST(Import, BoardsPassedOverAreAWarning) {
  ImportDesk desk;
  test::WriteContent(desk.Loose, "[Board \"9\"][Board \"0\"]\n");
  EXPECT_TRUE(ImportFile(desk.Prog, desk.History, desk.Loose));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Flags, 48);
  EXPECT_EQ(WithoutPadding(desk.Ui.Boxes[0].Text),
            "Boards imported: 1\n\nBoards passed over: 1\n"
            "Line 1: board number \"0\" is not a number from 1 to 640\n\nNotes: 1\n"
            "Line 1: board 9 is incomplete: no hand is given");
  EXPECT_EQ(desk.Ui.Hourglasses, 1);
}

TEST(Import, WithoutABoardTheOldSetStays) {
  ImportDesk desk;
  desk.Ui.Files = {desk.Hopeless};
  EXPECT_FALSE(desk.Import());
  desk.ExpectOldSet();
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Importing", "Import operation aborted", "Ready"));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Flags, 16);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, kTitle);
  EXPECT_EQ(WithoutPadding(desk.Ui.Boxes[0].Text),
            "No board of this file can be imported\n\nBoards passed over: 1\n"
            "Line 1: board number \"0\" is not a number from 1 to 640");
  EXPECT_FALSE(desk.Store.Has(kInitFormat));
}

TEST(Import, AFileWithoutAnyTagIsNoPbn) {
  for (const char* content : {"", "\xEF\xBB\xBF", "\xFF\xFE", "PK\x03\x04"}) {
    ImportDesk desk;
    test::WriteContent(desk.Loose, content);
    EXPECT_FALSE(ImportFile(desk.Prog, desk.History, desk.Loose));
    EXPECT_THAT(desk.Ui.Boxes,
                ElementsAre(FakeUi::Box{"      This is no PBN file      ", 16, kTitle}));
    desk.ExpectOldSet();
  }
}

TEST(Import, AFileThatCannotBeReadIsToldEachTimeInItsOwnWords) {
  ImportDesk desk;
  EXPECT_FALSE(ImportFile(desk.Prog, desk.History, desk.Folder / "none.pbn"));
  EXPECT_FALSE(ImportFile(desk.Prog, desk.History, desk.Folder.Path()));
  EXPECT_THAT(
      desk.Ui.Boxes,
      ElementsAre(
          FakeUi::Box{"      The file cannot be read: No such file or directory      ", 16, kTitle},
          FakeUi::Box{"      The file cannot be read: Is a directory      ", 16, kTitle}));
  desk.ExpectOldSet();
}

TEST(Import, TheNameOfTheFileDoesNotMatter) {
  ImportDesk desk;
  const std::string path = desk.Folder / "deals.txt";
  test::WriteContent(path, "[Deal \"N:A... - - -\"]");
  EXPECT_TRUE(ImportFile(desk.Prog, desk.History, path));
  EXPECT_EQ(desk.Prog.Set.Count(), 1);
}

constexpr const char* kHint = "Load operation aborted. File - Import PBN may take this file";

TEST(AfterAFailedLoad, TheStatusPointsToImportLastInsteadOfReady) {
  ImportDesk desk;
  desk.StartFile = desk.Loose;
  desk.Load();
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Load operation aborted", kHint));
  desk.Ui.Files = {desk.Loose};
  EXPECT_TRUE(desk.Import());
}

TEST(AfterAFailedLoad, TheExtensionMayHaveAnyCase) {
  ImportDesk desk;
  const std::string path = desk.Folder / "loose.PbN";
  test::WriteContent(path, test::Content(desk.Loose));
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, path));
  EXPECT_EQ(desk.Ui.Statuses.back(), kHint);
}

TEST(AfterAFailedLoad, ImportIsNoHelpForAFileThatCannotBeReadOrHasNoBracket) {
  ImportDesk desk;
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, desk.Folder / "none.pbn"));
  EXPECT_EQ(desk.Ui.Statuses.back(), "Ready");
  test::WriteContent(desk.Loose, "% PBN 2.1\n");
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, desk.Loose));
  EXPECT_EQ(desk.Ui.Statuses.back(), "Ready");
}

TEST(AfterAFailedLoad, ImportIsNoHelpForAnotherFormat) {
  ImportDesk desk;
  const std::string path = desk.Folder / "set.xyz";
  test::WriteContent(path, "[Board\n\"1\"]");
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, path));
  EXPECT_EQ(desk.Ui.Statuses.back(), "Ready");
}

}  // namespace
}  // namespace morvane::files
