#include "files/load_set.h"

#include <filesystem>

#include "files/load_desk.h"
#include "files/log_records.h"

namespace morvane::files {
namespace {

using test::FakeUi;
using test::TestDesk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kRecord4 = Record("004", "... K... Q... A... ");

const FakeUi::Box kSaveFirst{
    "      Current Board Set has not been saved.      \r\n\r\n      Do you want to save the "
    "current Board Set?      ",
    51, "Load New Board Set"};

void ExpectOldSet(const BoardSet& set) {
  EXPECT_EQ(set.Count(), 4);
  EXPECT_EQ(set.At(2), test::RoundBoard(2, 3));
  EXPECT_EQ(set.EventName, "Old");
  EXPECT_EQ(set.BoardSetFile, "/old.pbn");
}

TEST(Load, AsksForTheFileAndTakesItsSet) {
  LoadDesk desk;
  desk.Ui.Files = {desk.Good};
  desk.Load();
  const BoardSet& set = desk.Prog.Set;
  EXPECT_EQ(set.FirstBoard, 3);
  EXPECT_EQ(set.LastBoard, 4);
  EXPECT_EQ(set.CurrentBoard, 1);
  EXPECT_EQ(set.EventName, "Evening");
  EXPECT_EQ(set.EventSite, "Hall");
  EXPECT_EQ(set.EventDate, "2026.03.03");
  EXPECT_EQ(set.BoardSetFile, desk.Good);
  EXPECT_EQ(set.BoardSetChanged, "0");
  EXPECT_EQ(set.At(1), Board{});
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Boards loaded: 2"));
  EXPECT_THAT(desk.LogLines(), ElementsAre(" File-Load: 3:04:05 PM", "  Load: " + desk.Good,
                                           Record("003"), kRecord4));
  EXPECT_GT(desk.Ui.Refreshes, 0);
}

/// A main window that notes what it could show at each refresh.
struct Window final : Ui {
  int MessageBox(const std::string&, int, const std::string&) override { return kOk; }
  void Status(const std::string&) override {}
  std::optional<std::string> AskFile(const FileRequest&) override { return std::nullopt; }
  void RefreshSet() override {
    Shown.push_back(std::to_string(Prog->Set.Count()) + Prog->Set.EventName +
                    Prog->Set.BoardSetFile);
    Prog->Set.BoardSetChanged = "1";  // as event boxes that are filled anew do
  }
  void Busy(bool) override {}
  [[nodiscard]] Point Mouse() const override { return {}; }
  Program* Prog = nullptr;
  std::vector<std::string> Shown;
};

TEST(Load, TheWindowShowsTheEmptySetThenTheWholeNewOneWhichIsNotChanged) {
  LoadDesk desk;
  Window window;
  Program program(
      {window, desk.Loop, desk.Clock, desk.Store, desk.Random, desk.Speaker, desk.ThePrinter},
      desk.Prog.Paths);
  window.Prog = &program;
  program.Set.BoardSetFile = "/old.pbn";
  program.Set.LastBoard = 9;
  EXPECT_TRUE(LoadFile(program, desk.History, desk.Good));
  EXPECT_THAT(window.Shown, ElementsAre("0", "2Evening" + desk.Good));
  EXPECT_EQ(program.Set.BoardSetChanged, "0");
  EXPECT_FALSE(LoadFile(program, desk.History, desk.Folder / "none.pbn"));
  EXPECT_THAT(window.Shown, ElementsAre("0", "2Evening" + desk.Good, "0", "0"));
  EXPECT_EQ(program.Set.BoardSetChanged, "0");
}

TEST(Load, TheDialogOpensOnTheLastFormatAndFolder) {
  LoadDesk desk;
  desk.Store.Set(kInitFormat, "pbn");
  desk.Store.Set(kInitDirectory, "/events/");
  desk.Load();
  ASSERT_EQ(desk.Ui.FileRequests.size(), 1U);
  const FileRequest& request = desk.Ui.FileRequests[0];
  EXPECT_EQ(request.Title, "Open Board Set file");
  EXPECT_EQ(request.FilterIndex, 6);
  EXPECT_EQ(request.Directory, "/events/");
  EXPECT_FALSE(request.Saving);
  EXPECT_TRUE(request.Filter.starts_with("All files (*.*)|*.*|bri"));
  EXPECT_TRUE(request.Filter.ends_with("csv (*.csv)|*.csv"));
}

TEST(Load, LogsAreOfferedToTheServiceOnly) {
  LoadDesk desk;
  desk.Prog.ServiceLevel = 1;
  desk.Load();
  EXPECT_TRUE(desk.Ui.FileRequests.at(0).Filter.ends_with("|Log (*.txt)|*.txt"));
}

TEST(Load, FormatAndFolderAreKeptForTheNextTime) {
  LoadDesk desk;
  const std::string path = desk.Folder / "Two.PBN";
  test::WriteContent(path, kTwoBoards);
  desk.Ui.Files = {path};
  desk.Load();
  EXPECT_EQ(desk.Store.Get(kInitFormat), "pbn");
  EXPECT_EQ(desk.Store.Get(kInitDirectory), desk.Folder / "");
  EXPECT_EQ(desk.Prog.Set.Count(), 2);
}

TEST(Load, ACancelledDialogLeavesTheSetAsItWas) {
  LoadDesk desk;
  desk.Load();
  ExpectOldSet(desk.Prog.Set);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Ready"));
  EXPECT_THAT(desk.LogLines(), ElementsAre(" File-Load: 3:04:05 PM"));
  EXPECT_EQ(desk.Ui.Refreshes, 1);
  EXPECT_FALSE(desk.Store.Has(kInitFormat));
}

TEST(Load, TheStartFileIsTakenWithoutADialog) {
  LoadDesk desk;
  desk.StartFile = desk.Good;
  desk.Load();
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_EQ(desk.StartFile, "");
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, desk.Good);
  EXPECT_THAT(desk.LogLines(), ElementsAre(" File-Load: 3:04:05 PM", "  Load: " + desk.Good,
                                           Record("003"), kRecord4));
}

TEST(Load, EveryEndClearsTheStartFile) {
  LoadDesk analysing;
  analysing.StartFile = analysing.Good;
  analysing.Prog.AnalysisRunning = true;
  analysing.Load();
  EXPECT_EQ(analysing.StartFile, "");

  LoadDesk cancelling;
  cancelling.StartFile = cancelling.Good;
  cancelling.Prog.Set.BoardSetChanged = "1";
  cancelling.Ui.Answers = {kCancel};
  cancelling.Load();
  EXPECT_EQ(cancelling.StartFile, "");
  ExpectOldSet(cancelling.Prog.Set);
}

TEST(Load, IsRefusedWhileAnalysisIsRunning) {
  LoadDesk desk;
  desk.Prog.AnalysisRunning = true;
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{
                  "      This function cannot be used while analysis is running      \r\n      "
                  "Please wait for analysis to finish or cancel it and try again      ",
                  16, "Load Error"}));
  EXPECT_THAT(desk.Ui.Statuses, IsEmpty());
  EXPECT_THAT(desk.LogLines(),
              ElementsAre("    Load Error: This function cannot be used while analysis is running "
                          ": Please wait for analysis to finish or cancel it and try again"));
  ExpectOldSet(desk.Prog.Set);
}

TEST(LoadOverChanges, CancelStopsIt) {
  LoadDesk desk;
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kCancel};
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(kSaveFirst));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Ready"));
  EXPECT_THAT(desk.LogLines(), IsEmpty());
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  ExpectOldSet(desk.Prog.Set);
}

TEST(LoadOverChanges, YesSavesFirst) {
  LoadDesk desk;
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kYes};
  const std::string saved = desk.Folder / "saved.pbn";
  desk.Ui.Files = {saved, desk.Good};
  desk.Load();
  EXPECT_TRUE(std::filesystem::exists(saved));
  EXPECT_THAT(desk.Ui.Statuses,
              ElementsAre("Loading", "Saving", "Boards Saved: 4", "Boards loaded: 2"));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre(" File-Save: 3:04:05: PM", "  Save: " + saved, " File-Load: 3:04:05 PM",
                          "  Load: " + desk.Good, Record("003"), kRecord4));
}

TEST(LoadOverChanges, YesWithACancelledSaveDialogStopsItWithTheOldSetIntact) {
  LoadDesk desk;
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {std::nullopt, desk.Good};
  desk.Load();
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  ExpectOldSet(desk.Prog.Set);
  EXPECT_EQ(desk.Ui.FileRequests.size(), 1U);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Saving", "Ready", "Ready"));
}

TEST(LoadOverChanges, YesWithAFailedSaveStopsItWithTheOldSetIntact) {
  LoadDesk desk;
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {desk.Folder / "none/x.pbn", desk.Good};
  desk.Load();
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  ExpectOldSet(desk.Prog.Set);
  EXPECT_THAT(desk.Ui.Statuses,
              ElementsAre("Loading", "Saving", "Save operation aborted", "Ready", "Ready"));
}

TEST(LoadOverChanges, NoAndACancelledDialogLeaveTheOldSetMarkedAsSaved) {
  LoadDesk desk;
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kNo};
  desk.Load();
  ExpectOldSet(desk.Prog.Set);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
}

TEST(LoadOverChanges, TheMarkIsComparedByItsValue) {
  LoadDesk desk;
  desk.Prog.Set.BoardSetChanged = "1.0";
  desk.Ui.Answers = {kCancel};
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(kSaveFirst));
}

TEST(Load, WithoutALogItWorksAllTheSame) {
  TestDesk desk;
  Program silent(
      {desk.Ui, desk.Loop, desk.Clock, desk.Store, desk.Random, desk.Speaker, desk.ThePrinter},
      {desk.Folder.Path(), desk.Folder / "none"});
  RuntimeError error;
  EXPECT_FALSE(silent.Log.Start(silent.Paths.Data, error));
  test::WriteContent(desk.Folder / "two.pbn", kTwoBoards);
  EXPECT_TRUE(LoadFile(silent, desk.History, desk.Folder / "two.pbn"));
  EXPECT_EQ(silent.Set.Count(), 2);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(Load, ASettingsStoreThatCannotBeWrittenDoesNotStopIt) {
  LoadDesk desk;
  desk.Store.Writable = false;
  EXPECT_TRUE(LoadFile(desk.Prog, desk.History, desk.Good));
  EXPECT_EQ(desk.Prog.Set.Count(), 2);
}

TEST(Load, AccentedNamesAreReadFromEitherEncoding) {
  for (const std::string name : {"Caf\xE9", "Caf\xC3\xA9"}) {
    LoadDesk desk;
    const std::string path = desk.Folder / "caf\xC3\xA9.pbn";
    test::WriteContent(path, "[Event \"" + name + "\"]\n[Board \"1\"]\n");
    EXPECT_TRUE(LoadFile(desk.Prog, desk.History, path));
    EXPECT_EQ(desk.Prog.Set.EventName, "Caf\xC3\xA9");
    EXPECT_EQ(desk.Prog.Set.BoardSetFile, path);
  }
}

}  // namespace
}  // namespace morvane::files
