#include <filesystem>

#include "files/load_desk.h"
#include "files/save_set.h"

// What loading and saving leave in the history.

namespace morvane::files {
namespace {

using ::testing::ElementsAre;

struct FileHistoryDesk : LoadDesk {
  FileHistoryDesk() { History.LoadHistory(Prog); }
  bool LoadAs(const std::string& name) {
    test::WriteContent(Folder / name, kTwoBoards);
    return LoadFile(Prog, History, Folder / name);
  }
  bool SaveAs(const std::string& name) { return SaveFile(Prog, History, Folder / name); }
  [[nodiscard]] int Entries() const { return History.Ring().HistoryCount(); }
};

TEST(FileHistory, LoadingAFileTwiceAddsOneEntry) {
  FileHistoryDesk desk;
  ASSERT_TRUE(desk.LoadAs("evening.pbn"));
  ASSERT_TRUE(desk.LoadAs("evening.pbn"));
  EXPECT_EQ(desk.Entries(), 1);
  EXPECT_EQ(desk.History.Ring().HistoryName(1), "evening");
}

TEST(FileHistory, TheNameAloneIsComparedWithoutFolderExtensionAndCase) {
  FileHistoryDesk desk;
  ASSERT_TRUE(desk.LoadAs("evening.pbn"));
  std::filesystem::create_directory(desk.Folder / "other");
  ASSERT_TRUE(desk.LoadAs("other/EVENING.PBN"));
  EXPECT_EQ(desk.Entries(), 1);
}

TEST(FileHistory, SavingASetTwiceAddsTwoEntries) {
  FileHistoryDesk desk;
  ASSERT_TRUE(desk.SaveAs("evening.pbn"));
  ASSERT_TRUE(desk.SaveAs("evening.pbn"));
  EXPECT_EQ(desk.Entries(), 2);
}

TEST(FileHistory, ASavedFileIsKnownWhenItIsLoaded) {
  FileHistoryDesk desk;
  const std::string name(50, 'n');
  ASSERT_TRUE(desk.SaveAs(name + ".pbn"));
  ASSERT_TRUE(desk.LoadAs(name + ".pbn"));
  EXPECT_EQ(desk.Entries(), 1);
  EXPECT_EQ(desk.History.Ring().HistoryName(1), std::string(43, 'n'));
}

TEST(FileHistory, TheExtensionIsWhatStandsBehindTheLastDot) {
  FileHistoryDesk desk;
  ASSERT_TRUE(desk.LoadAs("evening.2026.pbn"));
  EXPECT_EQ(desk.History.Ring().HistoryName(1), "evening.2026");
}

TEST(FileHistory, ASavedFileIsNamedWithoutFolderAndExtensionToo) {
  FileHistoryDesk desk;
  ASSERT_TRUE(desk.SaveAs("evening.2026.pbn"));
  EXPECT_EQ(desk.History.Ring().HistoryName(1), "evening.2026");
}

TEST(FileHistory, ComesBehindTheSettingsWhenLoadingAndBeforeThemWhenSaving) {
  const auto titles = [](const FileHistoryDesk& desk) {
    std::vector<std::string> all;
    for (const test::FakeUi::Box& box : desk.Ui.Boxes) all.push_back(box.Title);
    return all;
  };
  for (const bool saving : {false, true}) {
    FileHistoryDesk desk;
    std::filesystem::create_directory(desk.Prog.Paths.Data + "/history1.dat");
    desk.Store.Writable = false;
    EXPECT_TRUE(saving ? desk.SaveAs("evening.pbn") : desk.LoadAs("evening.pbn"));
    EXPECT_THAT(titles(desk), saving ? ElementsAre("History Error", "Settings Error")
                                     : ElementsAre("Settings Error", "History Error"));
  }
}

TEST(FileHistory, WhatFailedOrWasNotSavedIsNotInIt) {
  FileHistoryDesk desk;
  test::WriteContent(desk.Folder / "bad.pbn", "[Board \"x\"]\n");
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, desk.Folder / "bad.pbn"));
  ASSERT_TRUE(desk.LoadAs("good.pbn"));  // board 4 is incomplete
  desk.Ui.Answers = {kNo};
  EXPECT_FALSE(desk.SaveAs("unsaved.pbn"));
  EXPECT_FALSE(desk.SaveAs("none/unsaved.pbn"));
  EXPECT_EQ(desk.Entries(), 1);
}

TEST(FileHistory, OnlyTheCompleteBoardsOfALoadedFileAreStored) {
  FileHistoryDesk desk;
  ASSERT_TRUE(desk.LoadAs("two.pbn"));
  EXPECT_EQ(desk.History.Ring().Bytes().size(), 5U * 16U);
  EXPECT_EQ(desk.History.Ring().HistorySimilarity(test::SuitBoard(1)).Number, 3);
}

TEST(FileHistory, WithoutAHistoryFilesAreLoadedAndSavedAllTheSame) {
  FileHistoryDesk desk;
  history::History off;
  EXPECT_TRUE(LoadFile(desk.Prog, off, desk.Good));
  EXPECT_EQ(off.Ring().HistoryCount(), 0);
}

}  // namespace
}  // namespace morvane::files
