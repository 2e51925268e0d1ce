#include "history/history.h"

#include <sys/stat.h>

#include <cstdint>
#include <filesystem>

#include "support/fakes.h"
#include "support/file_size_limit.h"
#include "support/plain_user.h"

namespace morvane::history {
namespace {

using test::TestDesk;

TEST(History, AnEmptyRingResemblesNothing) {
  TestDesk desk;
  History history;
  EXPECT_TRUE(history.LoadHistory(desk.Prog));
  const HistoricSimilarity similarity = history.Ring().HistorySimilarity(test::RoundBoard(1));
  EXPECT_EQ(similarity.Cards, 0);
  EXPECT_EQ(similarity.Number, 0);
  EXPECT_EQ(similarity.File, "<none>");
  EXPECT_EQ(history.Ring().HistoryUsed(), 0);
  EXPECT_TRUE(desk.Ui.Boxes.empty());
}

TEST(History, MakesAMissingDataFolder) {
  TestDesk desk;
  std::filesystem::remove_all(desk.Prog.Paths.Data);
  History history;
  EXPECT_TRUE(history.LoadHistory(desk.Prog));
  EXPECT_TRUE(history.HistoryEnabled());
  EXPECT_TRUE(std::filesystem::is_directory(desk.Prog.Paths.Data));
  EXPECT_TRUE(desk.Ui.Boxes.empty());
}

/// A program whose log is not open yet, as when the history is loaded at start-up.
struct StartingDesk : TestDesk {
  explicit StartingDesk(const std::string& data)
      : Starting({Ui, Loop, Clock, Store, Random, Speaker, ThePrinter}, {"/opt/morvane", data}) {}
  Program Starting;
};

TEST(History, WithoutAFolderTellsTheOperatorAndStaysOff) {
  test::TempFolder folder;
  test::WriteContent(folder / "Morvane_Data", "a file in its place");
  StartingDesk desk(folder / "Morvane_Data");
  History history;
  EXPECT_FALSE(history.LoadHistory(desk.Starting));
  EXPECT_FALSE(history.HistoryEnabled());
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "      Cannot access or create Morvane_Data directory     \r\n"
            "      Application Path: " +
                folder.Path() +
                "     \r\n"
                "      Not a directory\r\n"
                "      Application will continue but logging and history functions will be "
                "disabled     ");
  EXPECT_EQ(desk.Ui.Boxes[0].Flags, kOkCritical);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "History Error");
  EXPECT_EQ(history.Ring().HistorySimilarity(test::RoundBoard(1)).Cards, 0);
}

#ifndef _WIN32  // no folder of processes
TEST(History, AFolderThatCannotBeMadeIsReportedWithTheSystemsWords) {
  StartingDesk desk("/proc/self/Morvane_Data");
  History history;
  EXPECT_FALSE(history.LoadHistory(desk.Starting));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_NE(desk.Ui.Boxes[0].Text.find("      No such file or directory\r\n"), std::string::npos);
}
#endif

/// A desk whose history is on, with boards 1 and 2 as its set.
struct HistoryDesk : TestDesk {
  HistoryDesk() {
    History.LoadHistory(Prog);
    test::FillSet(Prog.Set, 1, 2);
  }
  const std::string File = Prog.Paths.Data + "/history1.dat";
};

TEST(History, AnEntryIsInTheFileAtOnce) {
  HistoryDesk desk;
  desk.History.AddToHistory(desk.Prog, "Evening");
  EXPECT_EQ(test::Content(desk.File), desk.History.Ring().Bytes());
  EXPECT_EQ(test::Content(desk.File).size(), 6U * 16U);
  EXPECT_FALSE(std::filesystem::exists(desk.File + ".new"));
  History next;
  EXPECT_TRUE(next.LoadHistory(desk.Prog));
  EXPECT_EQ(next.Ring().HistoryUsed(), 6);
  EXPECT_EQ(next.Ring().IsInHistory("evening"), 1);
}

TEST(History, WithoutASetOrANameNothingIsAdded) {
  HistoryDesk desk;
  desk.History.AddToHistory(desk.Prog, "");
  desk.History.AddToHistory(desk.Prog, "   ");
  desk.Prog.Set.LastBoard = 0;
  desk.History.AddToHistory(desk.Prog, "Evening");
  EXPECT_EQ(desk.History.Ring().HistoryCount(), 0);
  EXPECT_FALSE(std::filesystem::exists(desk.File));
}

TEST(History, AFileThatCannotBeReadTurnsItOff) {
  TestDesk desk;
  std::filesystem::create_directory(desk.Prog.Paths.Data + "/history1.dat");
  History history;
  EXPECT_FALSE(history.LoadHistory(desk.Prog));
  EXPECT_FALSE(history.HistoryEnabled());
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "      Error during reading history file    \r\n"
            "      Application Path: " +
                desk.Prog.Paths.Application +
                "     \r\n"
                "      Is a directory\r\n"
                "      Application will continue but logging and history functions will be "
                "disabled     ");
  EXPECT_EQ(desk.Ui.Boxes[0].Flags, kOkCritical);
  test::FillSet(desk.Prog.Set, 1, 2);
  history.AddToHistory(desk.Prog, "Evening");
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U) << "no further attempt";
}

/// The box that a history file of this kind brings.
std::string BoxOf(const std::string& doing, const TestDesk& desk, const std::string& error) {
  return "      Error during " + doing +
         " history file    \r\n      Application Path: " + desk.Prog.Paths.Application +
         "     \r\n      " + error +
         "\r\n      Application will continue but logging and history functions will be "
         "disabled     ";
}

TEST(History, AFileLargerThanAFullRingIsNone) {
  TestDesk desk;
  const std::string file = desk.Prog.Paths.Data + "/history1.dat";
  test::WriteContent(file, std::string(320'000, '\0'));  // 20,000 records of 16 bytes
  History full;
  EXPECT_TRUE(full.LoadHistory(desk.Prog));
  EXPECT_EQ(full.Ring().HistoryUsed(), 20'000);
  std::filesystem::resize_file(file, std::uintmax_t{1} << 30U);
  History history;
  EXPECT_FALSE(history.LoadHistory(desk.Prog));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text, BoxOf("reading", desk, "File too large"));
  std::filesystem::resize_file(file, 320'001);
  EXPECT_FALSE(history.LoadHistory(desk.Prog));
  EXPECT_EQ(std::filesystem::file_size(file), 320'001U) << "it stays as it is";
}

#ifndef _WIN32  // no pipes among files
TEST(History, APipeInItsPlaceIsAnErrorAndNotWaitedFor) {
  TestDesk desk;
  ASSERT_EQ(mkfifo((desk.Prog.Paths.Data + "/history1.dat").c_str(), 0600), 0);
  History history;
  EXPECT_FALSE(history.LoadHistory(desk.Prog));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text, BoxOf("reading", desk, "Operation not supported"));
}

TEST(History, AFolderThatTakesNoFileIsToldAsThat) {
  HistoryDesk desk;
  std::filesystem::remove(desk.Prog.Paths.Data + "/morvane.lock");
  std::filesystem::permissions(desk.Folder.Path(), std::filesystem::perms(0755));
  std::filesystem::permissions(desk.Prog.Paths.Data, std::filesystem::perms(0555));
  {
    const test::PlainUser user;
    ASSERT_TRUE(user.Ok());
    desk.History.AddToHistory(desk.Prog, "Evening");
  }
  ASSERT_FALSE(desk.Ui.Boxes.empty());
  EXPECT_EQ(desk.Ui.Boxes[0].Text, BoxOf("saving", desk, "Permission denied"));
  std::filesystem::permissions(desk.Prog.Paths.Data, std::filesystem::perms(0755));
}

TEST(History, AFailedWriteTurnsItOffAndEmptiesTheRing) {
  HistoryDesk desk;
  desk.History.AddToHistory(desk.Prog, "Evening");
  const std::string before = test::Content(desk.File);
  {
    const test::FileSizeLimit full(100);  // the disk takes six records and no more
    desk.History.AddToHistory(desk.Prog, "Night");
  }
  ASSERT_FALSE(desk.Ui.Boxes.empty());
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "      Error during saving history file    \r\n"
            "      Application Path: " +
                desk.Prog.Paths.Application +
                "     \r\n"
                "      File too large\r\n"
                "      Application will continue but logging and history functions will be "
                "disabled     ");
  EXPECT_FALSE(desk.History.HistoryEnabled());
  EXPECT_EQ(desk.History.Ring().HistorySimilarity(test::RoundBoard(1)).Cards, 0);
  EXPECT_EQ(test::Content(desk.File), before) << "every earlier entry is still there";
}
#endif

TEST(History, TheBoxOfAFailureLeavesItsLineInTheLogAlsoWhileTheFolderIsShared) {
  HistoryDesk desk;
  RuntimeError error;
  ASSERT_TRUE(desk.Prog.Log.Start(desk.Prog.Paths.Data, error));
  std::filesystem::create_directory(desk.File);
  desk.History.AddToHistory(desk.Prog, "Evening");
  ASSERT_FALSE(desk.LogLines().empty());
  EXPECT_THAT(desk.LogLines().back(),
              ::testing::StartsWith("    History Error: Error during reading history file"));
}

TEST(History, AnOldFileBesideTheProgramIsTakenOverOnce) {
  TestDesk desk;
  test::TempFolder application;
  Program program(
      {desk.Ui, desk.Loop, desk.Clock, desk.Store, desk.Random, desk.Speaker, desk.ThePrinter},
      {application.Path(), desk.Prog.Paths.Data});
  const std::string end = "\xFF===============";
  test::WriteContent(application / "history.dat", std::string("\xFE\x01\x00"
                                                              "Club evening ",
                                                              16) +
                                                      std::string("\x00\x07\x00", 3) +
                                                      std::string(13, '\x1B') + end);
  History history;
  EXPECT_TRUE(history.LoadHistory(program));
  EXPECT_THAT(desk.Ui.Statuses,
              ::testing::ElementsAre("Copy old history file...", "Old history file copied    "));
  EXPECT_EQ(history.Ring().IsInHistory("club evening"), 1);
  EXPECT_EQ(history.Ring().HistorySimilarity(test::RoundBoard(1)).Number, 7);
  const std::string converted = test::Content(desk.Prog.Paths.Data + "/history1.dat");
  EXPECT_EQ(converted.size(), 5U * 16U);
  EXPECT_EQ(converted, history.Ring().Bytes());

  desk.Ui.Statuses.clear();
  History next;
  EXPECT_TRUE(next.LoadHistory(program));
  EXPECT_TRUE(desk.Ui.Statuses.empty());
  EXPECT_EQ(next.Ring().HistoryUsed(), 5);
}

TEST(History, AnEmptyOldFileIsNotTakenOver) {
  TestDesk desk;
  test::TempFolder application;
  Program program(
      {desk.Ui, desk.Loop, desk.Clock, desk.Store, desk.Random, desk.Speaker, desk.ThePrinter},
      {application.Path(), desk.Prog.Paths.Data});
  test::WriteContent(application / "history.dat", "");
  History history;
  EXPECT_TRUE(history.LoadHistory(program));
  EXPECT_TRUE(desk.Ui.Statuses.empty());
  EXPECT_FALSE(std::filesystem::exists(desk.Prog.Paths.Data + "/history1.dat"));
}

TEST(History, AnOldFileThatCannotBeCopiedTurnsItOff) {
  TestDesk desk;
  test::TempFolder application;
  Program program(
      {desk.Ui, desk.Loop, desk.Clock, desk.Store, desk.Random, desk.Speaker, desk.ThePrinter},
      {application.Path(), desk.Prog.Paths.Data});
  test::WriteContent(application / "history.dat", std::string(64, '\xFE'));
  std::filesystem::create_directory(desk.Prog.Paths.Data + "/history1.dat.new");
  History history;
  EXPECT_FALSE(history.LoadHistory(program));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_THAT(desk.Ui.Boxes[0].Text,
              ::testing::StartsWith("      Error during saving history file"));
}

}  // namespace
}  // namespace morvane::history
