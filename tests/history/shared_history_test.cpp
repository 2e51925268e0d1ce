#include <filesystem>

#include "history/history.h"
#include "support/fakes.h"

// Several programs on one data folder.

namespace morvane::history {
namespace {

using test::TestDesk;

TEST(SharedHistory, WhatAnotherProgramAddedIsComparedFromTheNextEntryOn) {
  TestDesk desk;
  History first;
  History second;
  ASSERT_TRUE(first.LoadHistory(desk.Prog));
  ASSERT_TRUE(second.LoadHistory(desk.Prog));
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.Set.At(1) = test::SuitBoard(1);
  first.AddToHistory(desk.Prog, "First");
  test::FillSet(desk.Prog.Set, 2, 2);
  second.AddToHistory(desk.Prog, "Second");
  EXPECT_EQ(second.Ring().HistoryCount(), 2);
  EXPECT_EQ(second.Ring().HistorySimilarity(test::SuitBoard(5)).File, "First");
  EXPECT_EQ(test::Content(desk.Prog.Paths.Data + "/history1.dat"), second.Ring().Bytes());
}

TEST(SharedHistory, AFileThatWasTakenAwayComesBackWhole) {
  TestDesk desk;
  ASSERT_TRUE(desk.History.LoadHistory(desk.Prog));
  test::FillSet(desk.Prog.Set, 1, 2);
  desk.History.AddToHistory(desk.Prog, "One");
  std::filesystem::remove(desk.Prog.Paths.Data + "/history1.dat");
  desk.History.AddToHistory(desk.Prog, "Two");
  EXPECT_EQ(test::Content(desk.Prog.Paths.Data + "/history1.dat"), desk.History.Ring().Bytes());
  History next;
  ASSERT_TRUE(next.LoadHistory(desk.Prog));
  EXPECT_EQ(next.Ring().HistoryCount(), 2);
}

TEST(SharedHistory, AFileThatTwoProgramsLoadAddsOneEntry) {
  TestDesk desk;
  History first;
  History second;
  ASSERT_TRUE(first.LoadHistory(desk.Prog));
  ASSERT_TRUE(second.LoadHistory(desk.Prog));
  test::FillSet(desk.Prog.Set, 1, 1);
  first.AddUnlessKnown(desk.Prog, "Evening");
  second.AddUnlessKnown(desk.Prog, "evening");
  EXPECT_EQ(second.Ring().HistoryCount(), 1);
  EXPECT_EQ(first.Ring().Bytes(), second.Ring().Bytes());
}

TEST(SharedHistory, WithoutTheFoldersLockNothingIsWrittenAndThatIsTold) {
  TestDesk desk;
  ASSERT_TRUE(desk.History.LoadHistory(desk.Prog));
  std::filesystem::remove(desk.Prog.Paths.Data + "/morvane.lock");
  std::filesystem::create_directory(desk.Prog.Paths.Data + "/morvane.lock");
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.History.AddToHistory(desk.Prog, "Evening");
  EXPECT_FALSE(desk.History.HistoryEnabled());
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_THAT(desk.Ui.Boxes[0].Text, ::testing::HasSubstr("      Is a directory\r\n"));
  EXPECT_FALSE(std::filesystem::exists(desk.Prog.Paths.Data + "/history1.dat"));
}

}  // namespace
}  // namespace morvane::history
