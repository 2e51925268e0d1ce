#include <filesystem>

#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// 3 March 2026: 18 years of 365 days and 5 leap days from 1 January 2008, then 31 + 28 + 2.
constexpr int kDays = 6636;

/// Board 3, in which each hand holds one suit, and board 4 without a card.
constexpr const char* kTwoBoards =
    "[Board \"3\"]\r\n[Deal \"N:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. "
    "...AKQJT98765432\"]\r\n[Board \"4\"]\r\n";

FakeUi::Box DataFolderBox(const ShellDesk& desk, const std::string& error,
                          const std::string& title) {
  return {
      "      Cannot access or create Morvane_Data directory     \r\n"
      "      Application Path: " +
          desk.Folder.Path() +
          "     \r\n"
          "      " +
          error +
          "\r\n"
          "      Application will continue but logging and history functions will be disabled     ",
      16, title};
}

std::string Quoted(const std::string& path) { return '"' + path + '"'; }

TEST(StartUp, ShowsTheWindowThenLetsItLiveThenLoadsTheHistoryAndOpensTheLog) {
  ShellDesk desk;
  std::filesystem::remove(desk.Prog.Paths.Data);
  int pumps = 0;
  desk.Desktop.OnMainMenu = [&] {
    EXPECT_EQ(pumps, 0);
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading..."));
    EXPECT_EQ(desk.Prog.VersionText, "1.0 with Sort 1.0  with Poker 1.5 ");
    EXPECT_EQ(desk.Bits(), 16);
  };
  desk.Loop.OnPump = [&] {
    if (++pumps > 1) return;
    EXPECT_EQ(desk.Desktop.MainMenus, 1);
    EXPECT_FALSE(std::filesystem::exists(desk.Prog.Paths.Data));
    EXPECT_FALSE(desk.Prog.Log.On());
  };
  desk.Main.StartUp("");
  EXPECT_EQ(pumps, 1);
  EXPECT_EQ(desk.Desktop.MainMenus, 1);
  EXPECT_TRUE(desk.Main.History().HistoryEnabled());
  EXPECT_TRUE(desk.Prog.Log.On());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading...", "Ready"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(StartUp, WritesItsLinesToTheLogByteForByte) {
  ShellDesk desk;
  desk.Ui.MouseNow = {3, 4};  // 3 x 256 + 4 = 772, made odd
  desk.Main.StartUp("");
  EXPECT_EQ(test::Content(desk.Prog.Paths.Data + "/Log_2026_3.txt"),
            "History records: 0\r\n"
            "---\r\n"
            "Start 2026-03-03 3:04:05 PM\r\n"
            "   Start up parameters: " +
                std::to_string(kDays) + ",773  1.0 with Sort 1.0  with Poker 1.5   \r\n");
}

TEST(StartUp, TheLogHasTheCommandLineAsItWasTyped) {
  ShellDesk desk;
  desk.Prog.ServiceLevel = 1;
  desk.Main.StartUp("/x no \"quote");
  EXPECT_EQ(desk.LastLine(), "   Start up parameters: " + std::to_string(kDays) +
                                 ",1  1.0 Service  with Sort 1.0  with Poker 1.5   /x no \"quote");
}

TEST(StartUp, AppendsToTheLogOfTheMonth) {
  ShellDesk desk;
  test::WriteContent(desk.Prog.Paths.Data + "/Log_2026_3.txt", "before\r\n");
  desk.Main.StartUp("");
  EXPECT_EQ(desk.LogLines().size(), 5U);
  EXPECT_EQ(desk.LogLines().front(), "before");
}

TEST(StartUp, TheStatisticsAreShownWhenTheSettingIsOne) {
  for (const auto& [stored, shown] : std::map<std::string, bool>{
           {"1", true}, {"0", false}, {"", false}, {"yes", false}, {"01", false}}) {
    ShellDesk desk;
    desk.Store.Set(kDealShow, stored);
    desk.Prog.ShowStatistics = !shown;
    desk.Main.StartUp("");
    EXPECT_EQ(desk.Prog.ShowStatistics, shown) << stored;
  }
}

TEST(StartUp, WithoutTheSettingTheStatisticsAreHidden) {
  ShellDesk desk;
  desk.Main.StartUp("");
  EXPECT_FALSE(desk.Prog.ShowStatistics);
}

TEST(StartUp, LoadsTheFileOfTheCommandLine) {
  ShellDesk desk;
  const std::string path = desk.Folder / "club night.pbn";
  test::WriteContent(path, kTwoBoards);
  desk.Main.StartUp(Quoted(path));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 3);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 4);
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, path);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading...", "Ready", "Loading", "Boards loaded: 2"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_THAT(
      desk.LogLines(),
      ElementsAre("History records: 0", "---", "Start 2026-03-03 3:04:05 PM",
                  "   Start up parameters: " + std::to_string(kDays) +
                      ",1  1.0 with Sort 1.0  with Poker 1.5   " + Quoted(path),
                  " File-Load: 3:04:05 PM", "  Load: " + path,
                  "   003 : AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432 ",
                  "   004 : ... ... ... ... "));
}

TEST(StartUp, TheFileOfTheCommandLineIsLoadedOnce) {
  ShellDesk desk;
  const std::string path = desk.Folder / "two.pbn";
  test::WriteContent(path, kTwoBoards);
  desk.Start(Quoted(path));
  desk.Main.MenuLoad();
  EXPECT_EQ(desk.Ui.FileRequests.size(), 1U);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 4);  // the dialog was cancelled
}

TEST(StartUp, AMissingFileIsToldAndTheProgramGoesOn) {
  ShellDesk desk;
  desk.Main.StartUp(Quoted(desk.Folder / "missing.pbn"));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{
                  "      Error: 2 during load operation - No such file or directory      \r\n"
                  "      Load operation aborted!      ",
                  16, "Load Error"}));
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading...", "Ready", "Loading", "Ready"));
  desk.MoveMouse();
  EXPECT_EQ(desk.Bits(), 24);
}

TEST(StartUp, AFileOfUnknownFormatIsTold) {
  ShellDesk desk;
  desk.Main.StartUp(Quoted(desk.Folder / "letter.doc"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{"      Unknow file format: DOC      \r\n"
                                                     "      Load operation aborted!      ",
                                                     16, "Load Error"}));
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_THAT(desk.Ui.Statuses,
              ElementsAre("Loading...", "Ready", "Loading", "Load operation aborted", "Ready"));
}

TEST(StartUp, WithoutQuotesTheTextIsNoFileName) {
  ShellDesk desk;
  const std::string path = desk.Folder / "two.pbn";
  test::WriteContent(path, kTwoBoards);
  desk.Main.StartUp(path);
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading...", "Ready"));
  EXPECT_EQ(desk.LogLines().size(), 4U);
}

TEST(StartUp, WithoutADataFolderHistoryAndLogTellItAndTheProgramGoesOn) {
  ShellDesk desk;
  std::filesystem::remove(desk.Prog.Paths.Data);
  test::WriteContent(desk.Prog.Paths.Data, "a file in its place");
  const std::string path = desk.Folder / "two.pbn";
  test::WriteContent(path, kTwoBoards);
  desk.Main.StartUp(Quoted(path));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(DataFolderBox(desk, "Not a directory", "History Error"),
                          DataFolderBox(desk, "Error: 20, Not a directory", "Log Error")));
  EXPECT_FALSE(desk.Main.History().HistoryEnabled());
  EXPECT_FALSE(desk.Prog.Log.On());
  EXPECT_EQ(desk.Prog.Set.LastBoard, 4);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading...", "Ready", "Loading", "Boards loaded: 2"));
  EXPECT_EQ(test::Content(desk.Prog.Paths.Data), "a file in its place");
  desk.MoveMouse();
  EXPECT_EQ(desk.Bits(), 24);
}

TEST(StartUp, TheMouseFeedsThePoolOnlyOnceStartUpHasEnded) {
  ShellDesk desk;
  desk.Ui.OnBox = [&] {
    desk.MoveMouse();
    EXPECT_EQ(desk.Bits(), 16);
  };
  desk.Main.StartUp("\"new.adc\"");
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  desk.Ui.OnBox = nullptr;
  desk.MoveMouse();
  EXPECT_EQ(desk.Bits(), 24);
}

TEST(StartUp, NothingElseCanBeginWhileItRuns) {
  ShellDesk desk;
  desk.Desktop.OnMainMenu = [&] {
    EXPECT_TRUE(desk.Main.FlowActive());
    desk.Loop.Post([&] {
      desk.Main.MenuLoad();
      desk.Main.MenuSave();
      desk.Main.MenuDeal();
      EXPECT_FALSE(desk.Main.Exit());
    });
  };
  desk.Main.StartUp("");
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading...", "Ready"));
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_FALSE(desk.Loop.Quitting());
  EXPECT_FALSE(desk.Main.FlowActive());
}

TEST(CommandLine, InTheLogStandsAsItWasTyped) {
  ShellDesk desk;
  desk.Main.StartUp("", "\"d:\\none.pbn\"  -x");
  EXPECT_THAT(desk.LogLines(), ::testing::Contains(::testing::EndsWith("  \"d:\\none.pbn\"  -x")));
  EXPECT_TRUE(desk.Ui.Boxes.empty()) << "it names no file to be loaded";
}

}  // namespace
}  // namespace morvane::shell
