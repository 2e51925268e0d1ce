#include "shell/recent_files.h"

#include <filesystem>

#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

RecentFile Loaded(const std::string& path) { return {path, false}; }
RecentFile Imported(const std::string& path) { return {path, true}; }

/// A running desktop that remembers its files.
struct RecentDesk : ShellDesk {
  RecentDesk() {
    Main.KeepRecentFiles();
    Start();
  }
  std::string Write(const std::string& name) {
    test::WriteContent(Folder / name, "[Board \"7\"]\r\n");
    return Folder / name;
  }
  std::string Load(const std::string& path) {
    Ui.Files = {path};
    Main.MenuLoad();
    return path;
  }
  std::string Import(const std::string& path) {
    Ui.Files = {path};
    Main.MenuImport();
    return path;
  }
};

TEST(RecentFilesText, IsALetterAndAPathForEachFileWithANulBetween) {
  EXPECT_EQ(RecentFilesText({}), "");
  EXPECT_EQ(RecentFilesText({Loaded("/a.bri"), Imported("/b.pbn")}), "L/a.bri\0I/b.pbn"s);
}

TEST(RecentFilesText, AnyPathSurvives) {
  const std::vector<RecentFile> files{
      Loaded("/sets/with | bars; and, commas.pbn"), Imported("/two\nlines.pbn"), Loaded("/L/I.pbn"),
      Loaded("/ends in a blank "), Loaded("/\xC3\xA9t\xC3\xA9 \"50 %\"\\.pbn")};
  EXPECT_EQ(ReadRecentFiles(RecentFilesText(files)), files);
}

TEST(RecentFilesText, OfAForeignTextWhatIsNoFileIsPassedOver) {
  EXPECT_THAT(ReadRecentFiles(""), IsEmpty());
  EXPECT_THAT(ReadRecentFiles("/a.bri;/b.bri"), IsEmpty());
  EXPECT_THAT(ReadRecentFiles("L\0\0I\0X/a.bri\0L/b.bri\0"s), ElementsAre(Loaded("/b.bri")));
}

TEST(RecentFilesText, OfOneThatIsTooLongTheFirstEightCount) {
  std::string text;
  for (int n = 1; n <= 12; ++n) text += "L/" + std::to_string(n) + "\0"s;
  const auto files = ReadRecentFiles(text);
  ASSERT_EQ(files.size(), 8U);
  EXPECT_EQ(files.back(), Loaded("/8"));
}

TEST(RecentFilesText, APathThatStandsTwiceCountsOnce) {
  EXPECT_THAT(ReadRecentFiles("L/a\0I/b\0I/a"s), ElementsAre(Loaded("/a"), Imported("/b")));
}

TEST(RecentFiles, AreWhatWasLoadedImportedAndSavedTheNewestFirst) {
  RecentDesk desk;
  const std::string a = desk.Load(desk.Write("a.pbn"));
  const std::string b = desk.Import(desk.Write("b.pbn"));
  desk.Ui.Files = {desk.Folder / "c.bri"};
  desk.Ui.Answers = {kYes, kYes, kYes};
  test::FillSet(desk.Prog.Set, 1, 2);
  desk.Main.MenuSave();
  EXPECT_THAT(desk.Main.Recent(),
              ElementsAre(Loaded(desk.Folder / "c.bri"), Imported(b), Loaded(a)));
  EXPECT_EQ(desk.Store.Get(kRecentFiles), "L" + (desk.Folder / "c.bri") + "\0I"s + b + "\0L"s + a);
}

TEST(RecentFiles, AreEightAtMost) {
  RecentDesk desk;
  std::vector<RecentFile> expected;
  for (const char* name : {"1", "2", "3", "4", "5", "6", "7", "8", "9"}) {
    expected.insert(expected.begin(), Loaded(desk.Load(desk.Write(name + ".pbn"s))));
  }
  expected.pop_back();
  EXPECT_EQ(desk.Main.Recent(), expected);
}

TEST(RecentFiles, AFileUsedAgainComesToTheFrontInTheWayItWasOpenedLast) {
  RecentDesk desk;
  const std::string a = desk.Load(desk.Write("a.pbn"));
  const std::string b = desk.Load(desk.Write("b.pbn"));
  desk.Import(a);
  EXPECT_THAT(desk.Main.Recent(), ElementsAre(Imported(a), Loaded(b)));
}

#ifndef _WIN32  // links take rights that a user lacks
TEST(RecentFiles, TheSameFileUnderAnotherPathStandsThereOnceUnderTheNewOne) {
  RecentDesk desk;
  desk.Load(desk.Write("a.pbn"));
  std::filesystem::create_directory_symlink(desk.Folder.Path(), desk.Folder / "link");
  const std::string again = desk.Load(desk.Folder / "link/a.pbn");
  EXPECT_THAT(desk.Main.Recent(), ElementsAre(Loaded(again)));
}
#endif

TEST(RecentFiles, AFileThatIsSavedWithinAnotherFlowCountsToo) {
  RecentDesk desk;
  const std::string a = desk.Write("a.pbn");
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {desk.Folder / "unsaved.pbn", a};
  desk.Main.MenuLoad();
  EXPECT_THAT(desk.Main.Recent(), ElementsAre(Loaded(a), Loaded(desk.Folder / "unsaved.pbn")));
}

TEST(RecentFiles, AFileOfTheCommandLineCountsToo) {
  ShellDesk desk;
  const std::string path = desk.Folder / "one.pbn";
  test::WriteContent(path, "[Board \"7\"]\r\n");
  desk.Main.KeepRecentFiles();
  desk.Start("\"" + path + "\"");
  EXPECT_THAT(desk.Main.Recent(), ElementsAre(Loaded(path)));
}

TEST(RecentFiles, AFaultyFileDoesNotComeInAndOneThatIsThereStays) {
  RecentDesk desk;
  const std::string a = desk.Load(desk.Write("a.pbn"));
  test::WriteContent(desk.Folder / "bad.pbn", "[Board \"641\"]");
  desk.Load(desk.Folder / "bad.pbn");
  test::WriteContent(a, "[Board \"641\"]");
  desk.Load(a);
  EXPECT_THAT(desk.Main.Recent(), ElementsAre(Loaded(a)));
}

TEST(RecentFiles, AProgramThatKeepsNoListWritesNone) {
  ShellDesk desk;
  desk.Start();
  test::WriteContent(desk.Folder / "one.pbn", "[Board \"7\"]\r\n");
  desk.Ui.Files = {desk.Folder / "one.pbn"};
  desk.Main.MenuLoad();
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 7);
  EXPECT_FALSE(desk.Store.Has(kRecentFiles));
  EXPECT_THAT(desk.Main.Recent(), IsEmpty());
}

TEST(RecentFiles, AreReadAfreshFromTheStore) {
  RecentDesk desk;
  desk.Load(desk.Write("a.pbn"));
  desk.Store.Set(kRecentFiles, "I/of/another/program.pbn");
  const std::string b = desk.Load(desk.Write("b.pbn"));
  EXPECT_THAT(desk.Main.Recent(), ElementsAre(Loaded(b), Imported("/of/another/program.pbn")));
}

TEST(MenuRecent, LoadsTheFileWithoutADialog) {
  RecentDesk desk;
  const std::string a = desk.Write("a.pbn");
  desk.Main.MenuRecent(Loaded(a));
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, a);
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Boards loaded: 1"));
}

TEST(MenuRecent, ImportsAFileThatWasImported) {
  RecentDesk desk;
  test::WriteContent(desk.Folder / "loose.pbn", "[Board\r\n\"9\"]");  // Load refuses it
  desk.Main.MenuRecent(Imported(desk.Folder / "loose.pbn"));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 9);
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Importing", "Boards imported: 1"));
  EXPECT_FALSE(desk.Main.FlowActive());
}

TEST(MenuRecent, AsksForAnUnsavedSetAndCancelKeepsIt) {
  for (const bool imported : {false, true}) {
    RecentDesk desk;
    test::FillSet(desk.Prog.Set, 1, 1);
    desk.Prog.Set.BoardSetChanged = "1";
    desk.Ui.Answers = {kCancel};
    desk.Main.MenuRecent({desk.Write("a.pbn"), imported});
    EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
    EXPECT_EQ(desk.Prog.Set.LastBoard, 1);
    EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  }
}

TEST(MenuRecent, DoesNothingWhileAFlowIsOpen) {
  RecentDesk desk;
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kCancel};
  desk.Ui.OnBox = [&] {
    desk.Main.MenuRecent(Loaded(desk.Write("a.pbn")));
    desk.Main.MenuRecent(Imported(desk.Write("b.pbn")));
  };
  desk.Main.MenuLoad();
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  desk.Ui.OnBox = nullptr;
  desk.Ui.Answers = {kNo};
  desk.Main.MenuLoad();
  EXPECT_EQ(desk.Ui.FileRequests.size(), 1U) << "nothing was left to be loaded later";
}

TEST(MenuRecent, AFileThatIsGoneIsToldByTheLoadAndLeavesTheList) {
  RecentDesk desk;
  const std::string a = desk.Load(desk.Write("a.pbn"));
  const std::string b = desk.Import(desk.Write("b.pbn"));
  desk.Ui.Boxes.clear();
  std::filesystem::remove(a);
  std::filesystem::remove(b);
  desk.Main.MenuRecent(Loaded(a));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Load Error");
  EXPECT_THAT(desk.Main.Recent(), ElementsAre(Imported(b)));
  desk.Main.MenuRecent(Imported(b));
  ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_EQ(desk.Ui.Boxes[1].Title, "Import PBN");
  EXPECT_THAT(desk.Main.Recent(), IsEmpty());
}

TEST(MenuRecent, AFileThatIsGoneStaysInTheListWhenItsLoadIsCancelled) {
  RecentDesk desk;
  const std::string a = desk.Load(desk.Write("a.pbn"));
  std::filesystem::remove(a);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kCancel};
  desk.Main.MenuRecent(Loaded(a));
  EXPECT_THAT(desk.Main.Recent(), ElementsAre(Loaded(a)));
}

TEST(MenuRecent, EndsInTheStatisticsOfWhatIsThereNow) {
  for (const bool imported : {false, true}) {
    RecentDesk desk;
    const std::string path = desk.Write("a.pbn");
    desk.Desktop.Pages.clear();
    desk.Main.MenuRecent({path, imported});
    ASSERT_FALSE(desk.Desktop.Pages.empty()) << imported;
    EXPECT_EQ(desk.Desktop.Pages.back().FirstBoard, "7") << imported;
    EXPECT_EQ(desk.Desktop.Pages.back().Count, "1") << imported;
  }
}

}  // namespace
}  // namespace morvane::shell
