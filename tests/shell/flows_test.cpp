#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A request for every flow at once; none may do anything.
void PressEverything(ShellDesk& desk) {
  EXPECT_TRUE(desk.Main.FlowActive());
  const bool statistics = desk.Prog.ShowStatistics;
  desk.Main.ShowStat();
  EXPECT_EQ(desk.Prog.ShowStatistics, statistics);
  desk.Main.CmdPref();
  EXPECT_EQ(desk.Desktop.PreferencesShown, 0);
  desk.Main.MenuRecent({desk.Folder / "recent.pbn", false});
  desk.Main.MenuRecent({desk.Folder / "recent.pbn", true});
  desk.Main.MenuNew();
  desk.Main.MenuLoad();
  desk.Main.MenuImport();
  desk.Main.MenuSave();
  desk.Main.MenuDeal();
  desk.Main.MenuEdit();
  EXPECT_FALSE(desk.Main.Exit());
}

TEST(Timer2mm, FeedsThePoolWithTheLowBitsOfTheMouse) {
  ShellDesk desk;
  desk.Start();
  desk.Ui.MouseNow = {0x2A, 0x14};
  desk.Loop.WaitMs(99);
  EXPECT_EQ(desk.Bits(), 16);
  desk.Loop.WaitMs(1);
  EXPECT_EQ(desk.Bits(), 24);
  EXPECT_EQ(desk.Main.Deals().Pool.Seedm[64], 0xA4);
}

TEST(Timer2mm, FeedsNothingUnlessBothCoordinatesHaveMoved) {
  ShellDesk desk;
  desk.Start();
  desk.Ui.MouseNow = {40, 20};
  desk.Loop.WaitMs(100);
  ASSERT_EQ(desk.Bits(), 24);
  for (const Point mouse : {Point{40, 20}, Point{77, 20}, Point{40, 9}}) {
    desk.Ui.MouseNow = mouse;
    desk.Loop.WaitMs(500);
    EXPECT_EQ(desk.Bits(), 24);
  }
  desk.Ui.MouseNow = {41, 21};
  desk.Loop.WaitMs(100);
  EXPECT_EQ(desk.Bits(), 32);
}

TEST(Timer2mm, StandsStillWhileAFlowAsksAndGoesOnAfterIt) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kCancel};
  desk.Ui.OnBox = [&] {
    EXPECT_TRUE(desk.Main.FlowActive());
    desk.MoveMouse();
    EXPECT_EQ(desk.Bits(), 16);
  };
  desk.Main.MenuLoad();
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_FALSE(desk.Main.FlowActive());
  desk.MoveMouse();
  EXPECT_EQ(desk.Bits(), 24);
}

TEST(Timer2mm, StandsStillInASaveInsideAnExitAndGoesOnWhenTheExitFails) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {desk.Folder / "evening.doc"};
  desk.Ui.OnBox = [&] {
    desk.MoveMouse();
    EXPECT_EQ(desk.Bits(), 16);
  };
  EXPECT_FALSE(desk.Main.Exit());
  ASSERT_EQ(desk.Ui.Boxes.size(), 2U);  // the question and the save's refusal
  EXPECT_EQ(desk.Ui.Boxes[1].Title, "Save Error");
  desk.MoveMouse();
  EXPECT_EQ(desk.Bits(), 24);
}

TEST(Timer2mm, StandsStillInASaveInsideALoad) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kYes};
  desk.Ui.Files = {desk.Folder / "evening.doc"};
  desk.Ui.OnBox = [&] {
    desk.MoveMouse();
    EXPECT_EQ(desk.Bits(), 16);
  };
  desk.Main.MenuLoad();
  ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
  desk.MoveMouse();
  EXPECT_EQ(desk.Bits(), 24);
}

TEST(Flow, AnotherOneInsideAQuestionDoesNothing) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.OnBox = [&] { PressEverything(desk); };
  desk.Ui.Answers = {kCancel, kCancel};
  desk.Main.MenuLoad();
  EXPECT_FALSE(desk.Main.Exit());
  EXPECT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Ready"));
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_THAT(desk.Bridge.Calls, IsEmpty());
  EXPECT_FALSE(desk.Loop.Quitting());
  EXPECT_EQ(desk.Prog.Set.LastBoard, 1);
}

TEST(Flow, AnotherOneInsideASavesQuestionDoesNothing) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 2);
  desk.Prog.Set.At(2) = NumberedBoard(2);
  desk.Ui.Files = {desk.Folder / "evening.pbn"};
  desk.Ui.Answers = {kNo};  // board 2 is incomplete
  desk.Ui.OnBox = [&] { PressEverything(desk); };
  desk.Main.MenuSave();
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Saving", "Save operation aborted", "Ready"));
}

TEST(Flow, AnotherOneInsideAPumpDoesNothing) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 1);
  int presses = 0;
  desk.Desktop.OnRun = [&](machine::BoardRun& run) {
    desk.Loop.OnPump = [&] {
      ++presses;
      PressEverything(desk);
    };
    desk.Loop.After(2500, [&run] { run.Exit(); });
  };
  desk.Main.MenuDeal();
  desk.Loop.OnPump = nullptr;
  EXPECT_GT(presses, 0);
  EXPECT_EQ(desk.Desktop.Run.Opened, 1);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Dealing", "Ready"));
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
  EXPECT_FALSE(desk.Loop.Quitting());
}

TEST(MenuLoad, AsksForAFileAndLoadsIt) {
  ShellDesk desk;
  desk.Start();
  const std::string path = desk.Folder / "one.pbn";
  test::WriteContent(path, "[Board \"7\"]\r\n");
  desk.Ui.Files = {path};
  desk.Main.MenuLoad();
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 7);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Boards loaded: 1"));
}

TEST(MenuLoad, IsRefusedWhileAnalysisRuns) {
  ShellDesk desk;
  desk.Start();
  desk.Prog.AnalysisRunning = true;
  desk.Main.MenuLoad();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{
                  "      This function cannot be used while analysis is running      \r\n"
                  "      Please wait for analysis to finish or cancel it and try again      ",
                  16, "Load Error"}));
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
}

TEST(MenuImport, AsksForAFileAndImportsIt) {
  ShellDesk desk;
  desk.Start();
  const std::string path = desk.Folder / "one.pbn";
  test::WriteContent(path, "[Board\r\n\"7\"]\r\n[Deal \"N:A... - - -\"]");
  desk.Ui.Files = {path};
  desk.Main.MenuImport();
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 7);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Importing", "Boards imported: 1"));
  EXPECT_FALSE(desk.Main.FlowActive());
}

TEST(MenuImport, IsAFlowLikeTheOthers) {
  ShellDesk desk;
  desk.Start();
  test::FillSet(desk.Prog.Set, 1, 1);
  desk.Prog.Set.BoardSetChanged = "1";
  desk.Ui.Answers = {kCancel};
  desk.Ui.OnBox = [&] { PressEverything(desk); };
  desk.Main.MenuImport();
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Importing", "Ready"));
  EXPECT_FALSE(desk.Main.FlowActive());
}

TEST(MenuImport, IsRefusedWhileAnalysisRuns) {
  ShellDesk desk;
  desk.Start();
  desk.Prog.AnalysisRunning = true;
  desk.Main.MenuImport();
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg103);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Import PBN");
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
}

/// Two boards of the format that is nothing but cards, all 13 rounds from North.
std::string TwoDeals() {
  std::string record;
  for (int round = 1; round <= 13; ++round) record += "0123";
  return record + "\r\n" + record + "\r\n";
}

/// A desk with a file that has no board numbers, whose operator enters 17.
struct NumbersDesk : ShellDesk {
  NumbersDesk() {
    test::WriteContent(Path, TwoDeals());
    Desktop.OnLoadNumber = [this](files::LoadNumber& dialog) {
      Statuses = Ui.Statuses;
      EXPECT_TRUE(Main.FlowActive());
      EXPECT_EQ(dialog.lblBoardLoaded, "2 Boards were loaded");
      dialog.ChangeFirstBoard({"17", 2});
      dialog.Command1();
    };
  }
  void ExpectBoards17And18() {
    EXPECT_EQ(Desktop.LoadNumbers, 1);
    EXPECT_EQ(Prog.Set.FirstBoard, 17);
    EXPECT_EQ(Prog.Set.LastBoard, 18);
    EXPECT_EQ(Prog.Set.BoardSetFile, Path);
    EXPECT_EQ(Prog.Set.BoardSetChanged, "0");
    EXPECT_EQ(Ui.Statuses.back(), "Boards loaded: 2");
  }
  const std::string Path = Folder / "two.all";
  std::vector<std::string> Statuses;  ///< when the dialog came up
};

TEST(MenuLoad, ThoseOfAFileWithoutBoardNumbersAreAskedFor) {
  NumbersDesk desk;
  desk.Start();
  desk.Ui.Files = {desk.Path};
  desk.Main.MenuLoad();
  desk.ExpectBoards17And18();
  EXPECT_THAT(desk.Statuses, ElementsAre("Loading"));
  const auto lines = desk.LogLines();
  ASSERT_GE(lines.size(), 2U);
  EXPECT_TRUE(lines[lines.size() - 2].starts_with("   017 : ")) << "logged by their new numbers";
  EXPECT_TRUE(lines.back().starts_with("   018 : "));
}

TEST(MenuLoad, AFileOfTheCommandLineOrOfTheLinkIsAskedAboutToo) {
  NumbersDesk started;
  started.Main.StartUp('"' + started.Path + '"');
  started.ExpectBoards17And18();
  NumbersDesk linked;
  linked.Start();
  linked.Main.LinkExecute("1" + linked.Path);
  linked.Loop.WaitMs(Shell::kTimer2Ms);
  linked.ExpectBoards17And18();
}

TEST(MenuLoad, WithoutAnAnswerNothingIsLoaded) {
  NumbersDesk desk;
  desk.Start();
  desk.Desktop.OnLoadNumber = [&](files::LoadNumber&) { desk.Loop.Quit(); };
  desk.Ui.Files = {desk.Path};
  desk.Main.MenuLoad();
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, "");
  EXPECT_FALSE(desk.Store.Has(kInitFormat));
  EXPECT_EQ(desk.LastLine(), "  Load: " + desk.Path);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Ready"));
}

TEST(MenuSave, WithoutASetIsRefused) {
  ShellDesk desk;
  desk.Start();
  desk.Main.MenuSave();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      Board Set does not exist. Request ignored!      ", 16,
                                      "Save Error"}));
  EXPECT_FALSE(desk.Main.FlowActive());
}

using EventText = Shell::EventText;

const std::string& TextOf(const BoardSet& set, EventText which) {
  return which == EventText::kName   ? set.EventName
         : which == EventText::kSite ? set.EventSite
                                     : set.EventDate;
}

class EventBoxTest : public ::testing::TestWithParam<EventText> {};

INSTANTIATE_TEST_SUITE_P(Each, EventBoxTest,
                         ::testing::Values(EventText::kName, EventText::kSite, EventText::kDate));

TEST_P(EventBoxTest, TwoHundredCharactersBecomeTheTextOfThisBoxAlone) {
  ShellDesk desk;
  std::string text;
  for (int i = 0; i < 200; ++i) text += "\xC3\xA9";  // characters, not bytes
  const FilteredBox box = desk.Main.ChangeEvent(GetParam(), {text, 200});
  EXPECT_EQ(box.Text, text);
  EXPECT_EQ(box.Caret, 200);
  const BoardSet& set = desk.Prog.Set;
  EXPECT_EQ(TextOf(set, GetParam()), text);
  EXPECT_EQ((set.EventName + set.EventSite + set.EventDate), text);
  EXPECT_EQ(set.BoardSetChanged, "1");
}

TEST_P(EventBoxTest, TheCharacter201IsRefusedTheCaretStaysBeforeItAndTheSetCountsAsChanged) {
  ShellDesk desk;
  const std::string before(200, 'a');
  desk.Main.ChangeEvent(GetParam(), {before, 200});
  desk.Prog.Set.BoardSetChanged = "0";
  const FilteredBox box =
      desk.Main.ChangeEvent(GetParam(), {before.substr(0, 90) + "b" + before.substr(90), 91});
  EXPECT_EQ(box.Text, before);
  EXPECT_EQ(box.Caret, 90);
  EXPECT_EQ(TextOf(desk.Prog.Set, GetParam()), before);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
}

TEST_P(EventBoxTest, ACaretAtTheStartStaysThere) {
  ShellDesk desk;
  desk.Main.ChangeEvent(GetParam(), {"Cup", 3});
  const FilteredBox box = desk.Main.ChangeEvent(GetParam(), {std::string(201, 'x'), 0});
  EXPECT_EQ(box.Text, "Cup");
  EXPECT_EQ(box.Caret, 0);
}

TEST_P(EventBoxTest, CanBeEmptied) {
  ShellDesk desk;
  desk.Main.ChangeEvent(GetParam(), {"Cup", 3});
  desk.Main.ChangeEvent(GetParam(), {"", 0});
  EXPECT_EQ(TextOf(desk.Prog.Set, GetParam()), "");
}

TEST(ShowStat, ShowsAndHidesAndHasTheWindowShowItself) {
  ShellDesk desk;
  desk.Start();
  const int before = desk.Ui.Refreshes;
  desk.Main.ShowStat();
  EXPECT_TRUE(desk.Prog.ShowStatistics);
  EXPECT_EQ(desk.Ui.Refreshes, before + 1);
  desk.Main.ShowStat();
  EXPECT_FALSE(desk.Prog.ShowStatistics);
  EXPECT_EQ(desk.Ui.Refreshes, before + 2);
  EXPECT_EQ(desk.Store.Get(kDealShow), "0");
}

TEST(Activated, TheFirstActivationIsTheReferenceOfTheTimeEntropy) {
  ShellDesk desk;
  desk.Start();
  desk.Main.Activated();
  EXPECT_EQ(desk.Prog.ActivateTime, 54'245'000);  // 15:04:05 in milliseconds
  desk.Loop.WaitMs(3000);
  desk.Main.Activated();
  EXPECT_EQ(desk.Prog.ActivateTime, 54'245'000);
}

}  // namespace
}  // namespace morvane::shell
