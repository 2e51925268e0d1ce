#include <filesystem>

#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const FakeUi::Box kQuestion{
    "      Current Board Set has not been saved.      \r\n\r\n"
    "      Do you want to save the current Board Set?      ",
    51, "Exit"};

/// A running program with an unsaved board.
struct ExitDesk : ShellDesk {
  ExitDesk() {
    Start();
    test::FillSet(Prog.Set, 1, 1);
    Prog.Set.BoardSetChanged = "1";
  }
  void ExpectStillRunning() {
    EXPECT_FALSE(Loop.Quitting());
    EXPECT_FALSE(Main.FlowActive());
    for (const auto& line : LogLines()) EXPECT_FALSE(line.starts_with(" Exit: ")) << line;
    const int before = Bits();
    MoveMouse();
    EXPECT_EQ(Bits(), before + 8);
  }
};

TEST(Exit, WithNothingUnsavedEndsTheProgramWithoutAQuestion) {
  ShellDesk desk;
  desk.Start();
  EXPECT_TRUE(desk.Main.Exit());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_TRUE(desk.Loop.Quitting());
  EXPECT_EQ(desk.LastLine(), " Exit: 3:04:05 PM");
  EXPECT_EQ(desk.LogLines().size(), 5U);
}

TEST(Exit, ThePoolIsFedNoMoreAfterIt) {
  ShellDesk desk;
  desk.Start();
  ASSERT_TRUE(desk.Main.Exit());
  desk.Ui.MouseNow = {30, 50};
  desk.Clock.Spend(std::chrono::seconds(1));
  desk.Loop.Pump();
  EXPECT_EQ(desk.Bits(), 16);
}

TEST(Exit, AsksForAnUnsavedSetAndSavesIt) {
  ExitDesk desk;
  const std::string path = desk.Folder / "evening.pbn";
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {path};
  EXPECT_TRUE(desk.Main.Exit());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(kQuestion));
  EXPECT_TRUE(std::filesystem::exists(path));
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
  EXPECT_TRUE(desk.Loop.Quitting());
  const auto lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 4U + 3U);
  EXPECT_EQ(lines[4], " File-Save: 3:04:05: PM");
  EXPECT_EQ(lines[5], "  Save: " + path);
  EXPECT_EQ(lines[6], " Exit: 3:04:05 PM");
}

TEST(Exit, YesAndACancelledSaveKeepsTheProgram) {
  ExitDesk desk;
  desk.Ui.Answers = {kYes};
  EXPECT_FALSE(desk.Main.Exit());
  EXPECT_EQ(desk.Ui.FileRequests.size(), 1U);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  desk.ExpectStillRunning();
}

TEST(Exit, YesAndAFailedSaveKeepsTheProgram) {
  ExitDesk desk;
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {desk.Folder / "no/such/folder.pbn"};
  EXPECT_FALSE(desk.Main.Exit());
  EXPECT_THAT(
      desk.Ui.Boxes,
      ElementsAre(
          kQuestion,
          FakeUi::Box{"      Error: 2 during save operation - No such file or directory      \r\n"
                      "      Save operation aborted!      ",
                      16, "Save Error"}));
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  desk.ExpectStillRunning();
}

TEST(Exit, NoEndsTheProgramWithTheSetUnsaved) {
  ExitDesk desk;
  desk.Ui.Answers = {kNo};
  EXPECT_TRUE(desk.Main.Exit());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(kQuestion));
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  EXPECT_TRUE(desk.Loop.Quitting());
  EXPECT_EQ(desk.LastLine(), " Exit: 3:04:05 PM");
}

TEST(Exit, CancelKeepsTheProgram) {
  ExitDesk desk;
  desk.Ui.Answers = {kCancel};
  EXPECT_FALSE(desk.Main.Exit());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(kQuestion));
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  desk.ExpectStillRunning();
}

TEST(Exit, ACancelledExitCanBeRepeated) {
  ExitDesk desk;
  desk.Ui.Answers = {kCancel, kNo};
  EXPECT_FALSE(desk.Main.Exit());
  EXPECT_TRUE(desk.Main.Exit());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(kQuestion, kQuestion));
  EXPECT_TRUE(desk.Loop.Quitting());
}

TEST(Exit, ThePoolIsSavedBeforeTheQuestionAndStaysSavedWhenItIsCancelled) {
  ExitDesk desk;
  desk.MoveMouse();
  const std::string pool = desk.Main.Deals().Pool.HexText();
  ASSERT_NE(desk.Store.Get(kSeedm), pool);
  ASSERT_FALSE(desk.Store.Has(kSeedmCounter));
  desk.Ui.Answers = {kCancel};
  desk.Ui.OnBox = [&] {
    EXPECT_EQ(desk.Store.Get(kSeedm), pool);
    EXPECT_EQ(desk.Store.Get(kSeedmCounter), "24");
  };
  EXPECT_FALSE(desk.Main.Exit());
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Store.Get(kSeedm), pool);
  EXPECT_EQ(desk.Store.Get(kSeedmCounter), "24");
}

TEST(Exit, IsRefusedWhileAnalysisRunsWithThePoolSavedAllTheSame) {
  ExitDesk desk;
  desk.Prog.AnalysisRunning = true;
  EXPECT_FALSE(desk.Main.Exit());
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{
                  "      The program cannot exit while analysis is running      \r\n"
                  "      Please wait for analysis to finish or cancel it and try again      ",
                  16, "Exit Error"}));
  EXPECT_EQ(desk.LastLine(),
            "    Exit Error: The program cannot exit while analysis is running : "
            "Please wait for analysis to finish or cancel it and try again");
  EXPECT_EQ(desk.Store.Get(kSeedmCounter), "16");
  desk.ExpectStillRunning();
}

}  // namespace
}  // namespace morvane::shell
