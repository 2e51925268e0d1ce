#include <filesystem>

#include "shell/shell_desk.h"

// One running program, and what a second start does.

namespace morvane::shell {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const FakeUi::Box kAlreadyRunning{
    "      Morvane application is already running      \r\n"
    "      It is not possible to run multiple instances of this application      ",
    16, "Application Start Error"};

constexpr const char* kOneBoard = "[Board \"7\"]\r\n";

/// A desk on which another program runs and whose data folder is not made yet.
struct SecondDesk : ShellDesk {
  SecondDesk() {
    std::filesystem::remove(Prog.Paths.Data);
    Programs.AnotherRuns = true;
    Ui.MouseNow = {40, 20};
  }
  /// Start-up has come no further than the question who runs.
  void ExpectNothingElse() {
    EXPECT_FALSE(std::filesystem::exists(Prog.Paths.Data));
    EXPECT_FALSE(Prog.Log.On());
    EXPECT_FALSE(Main.History().HistoryEnabled());
    EXPECT_EQ(Desktop.MainMenus, 0);
    EXPECT_THAT(Ui.Statuses, IsEmpty());
    EXPECT_EQ(Prog.VersionText, "");
    EXPECT_FALSE(Store.Has(kSeedm));
    EXPECT_FALSE(Store.Has(kSeedmCounter));
    EXPECT_FALSE(Prog.Set.Exists());
    EXPECT_FALSE(Programs.Call) << "it listens";
    MoveMouse();
    EXPECT_EQ(Bits(), 0) << "Timer2mm feeds the pool";
  }
};

TEST(SingleInstance, TheFirstStartGoesOnAndListens) {
  ShellDesk desk;
  EXPECT_EQ(desk.Main.StartUp(""), StartOutcome::kGoesOn);
  EXPECT_EQ(desk.Programs.Claims, 1);
  EXPECT_THAT(desk.Programs.HandedOver, IsEmpty());
  EXPECT_TRUE(desk.Programs.Call);
  EXPECT_EQ(desk.Desktop.MainMenus, 1);
}

TEST(SingleInstance, ASecondStartHandsItsBoardFileOverAndEndsSilently) {
  SecondDesk desk;
  EXPECT_EQ(desk.Main.StartUp("\"/sets/club night.pbn\""), StartOutcome::kHandedOver);
  EXPECT_THAT(desk.Programs.HandedOver, ElementsAre("1/sets/club night.pbn"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  desk.ExpectNothingElse();
}

TEST(SingleInstance, ASecondStartHandsItsFirmwareFileOverInAnyCase) {
  for (const std::string path : {"/f/new.adc", "/f/NEW.ADC", "/f/New.aDc"}) {
    SecondDesk desk;
    EXPECT_EQ(desk.Main.StartUp('"' + path + '"'), StartOutcome::kHandedOver);
    EXPECT_THAT(desk.Programs.HandedOver, ElementsAre("2" + path));
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    desk.ExpectNothingElse();
  }
}

TEST(SingleInstance, ASecondStartWithoutAFileIsRefused) {
  for (const std::string commandLine : {"", "/sets/club.pbn", "\"/sets/club.pbn", "\"\""}) {
    SecondDesk desk;
    EXPECT_EQ(desk.Main.StartUp(commandLine), StartOutcome::kRefused) << commandLine;
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(kAlreadyRunning)) << commandLine;
    EXPECT_THAT(desk.Programs.HandedOver, IsEmpty()) << commandLine;
    desk.ExpectNothingElse();
  }
}

TEST(SingleInstance, ARunningProgramThatDoesNotTakeTheFileIsTold) {
  SecondDesk desk;
  desk.Programs.Takes = false;
  EXPECT_EQ(desk.Main.StartUp("\"/sets/club.pbn\""), StartOutcome::kRefused);
  EXPECT_THAT(desk.Programs.HandedOver, ElementsAre("1/sets/club.pbn"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(kAlreadyRunning));
  desk.ExpectNothingElse();
}

TEST(SingleInstance, WhenTheOtherHasEndedMeanwhileTheSecondTakesItsPlace) {
  ShellDesk desk;
  desk.Programs.AnotherRuns = true;
  desk.Programs.Takes = false;
  desk.Programs.OnHandOver = [&] { desk.Programs.AnotherRuns = false; };
  const std::string path = desk.Folder / "set.pbn";
  test::WriteContent(path, kOneBoard);
  EXPECT_EQ(desk.Main.StartUp('"' + path + '"'), StartOutcome::kGoesOn);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 7);
  EXPECT_TRUE(desk.Programs.Call);
}

TEST(SingleInstance, WhileItCallsNoFlowCanBegin) {
  SecondDesk desk;
  desk.Programs.OnHandOver = [&] { EXPECT_TRUE(desk.Main.FlowActive()); };
  desk.Main.StartUp("\"/sets/club.pbn\"");
  EXPECT_EQ(desk.Programs.HandedOver.size(), 1U);
}

TEST(Link, ABoardFileIsLoadedAtTheNextTickAndTheWindowIsInFrontAtOnce) {
  ShellDesk desk;
  desk.Start();
  const std::string path = desk.Folder / "set.pbn";
  test::WriteContent(path, kOneBoard);
  desk.Programs.Call("1" + path);
  EXPECT_EQ(desk.Desktop.ToFront, 1);
  EXPECT_FALSE(desk.Prog.Set.Exists()) << "not in the call itself";
  desk.Loop.WaitMs(Shell::kTimer2Ms);
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, path);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 7);
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
}

TEST(Link, OfTwoQuickCommandsTheSecondIsDropped) {
  ShellDesk desk;
  desk.Start();
  const std::string path = desk.Folder / "set.pbn";
  test::WriteContent(path, kOneBoard);
  desk.Programs.Call("1" + path);
  desk.Programs.Call("1/sets/other.pbn");
  desk.Programs.Call("2/f/new.adc");
  desk.Loop.WaitMs(5 * Shell::kTimer2Ms);
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, path);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kNone);
}

TEST(Link, WhatIsNoCommandDoesNothing) {
  ShellDesk desk;
  desk.Start();
  for (const char* text : {"", "3/sets/club.pbn", "/sets/club.pbn", " 1/sets/club.pbn", "\xFF"}) {
    desk.Programs.Call(text);
    EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kNone) << text;
  }
  desk.Loop.WaitMs(Shell::kTimer2Ms);
  EXPECT_EQ(desk.Desktop.ToFront, 0);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.Ui.Statuses, IsEmpty());
}

TEST(Link, ACommandDuringStartUpIsTakenUpAfterIt) {
  ShellDesk desk;
  const std::string path = desk.Folder / "set.pbn";
  test::WriteContent(path, kOneBoard);
  desk.Desktop.OnMainMenu = [&] { desk.Programs.Call("1" + path); };
  desk.Main.StartUp("");
  EXPECT_FALSE(desk.Prog.Set.Exists());
  desk.Loop.WaitMs(Shell::kTimer2Ms);
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, path);
}

TEST(Link, ACommandDuringAFlowIsTakenUpAfterIt) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.Set.BoardSetChanged = "1";
  const std::string path = desk.Folder / "set.pbn";
  test::WriteContent(path, kOneBoard);
  desk.Ui.Answers = {kCancel, kNo};
  desk.Ui.OnBox = [&] {
    if (desk.Ui.Boxes.size() > 1) return;
    desk.Programs.Call("1" + path);
    EXPECT_EQ(desk.Desktop.ToFront, 1);
    desk.Loop.WaitMs(5 * Shell::kTimer2Ms);
    EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  };
  EXPECT_FALSE(desk.Main.Exit());  // cancelled
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  desk.Loop.WaitMs(Shell::kTimer2Ms);
  EXPECT_EQ(desk.Ui.Boxes.size(), 2U) << "the load asks for the unsaved set, too";
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, path);
}

}  // namespace
}  // namespace morvane::shell
