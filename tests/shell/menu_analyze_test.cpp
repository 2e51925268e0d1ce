#include "analysis/scripted_solver.h"
#include "machine/board_run.h"
#include "shell/shell_desk.h"

namespace morvane::shell {
namespace {

using analysis::DeepF;
using test::FakeUi;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kLevels = "43210432104321043210";

/// A running program with boards 1 to 3, whose operator says Yes, and a solver that takes a second.
struct AnalyzeDesk : ShellDesk {
  explicit AnalyzeDesk(const char* analyzer = "0") {
    Start();
    test::FillSet(Prog.Set, 1, 3);
    EXPECT_TRUE(Store.Set(kAnalyzer, analyzer));
    Ui.Answers = {kYes};
    Processes.OnStart = [this](const ProcessOrder& order) { return Solver.Start(order); };
  }
  void WaitForTheEnd() {
    Loop.RunUntil([this] { return !Prog.AnalysisRunning; });
  }
  [[nodiscard]] std::string Levels(int n) {
    analysis::Levels levels{};
    std::copy_n(Prog.Set.At(n).Tricks.begin(), levels.size(), levels.begin());
    return analysis::ResultOf(levels);
  }
  analysis::ScriptedSolver Solver{*this};
};

TEST(MenuAnalyze, DdsIsAskedAboutAndAnalysesTheSetBeforeTheFlowEnds) {
  AnalyzeDesk desk;
  desk.Desktop.OnDeepF = [&](DeepF& run) {
    EXPECT_TRUE(desk.Main.FlowActive());
    EXPECT_TRUE(run.IsModal());
    desk.Main.MenuAnalyze();
    EXPECT_FALSE(desk.Main.Exit());
  };
  desk.Main.MenuAnalyze();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{
                  "      Bo Haglund DDS analysis usually takes few seconds per board.      \r\n"
                  "      Do you want to continue?     ",
                  52, "Bo Haglund DDS"}));
  EXPECT_THAT(desk.Desktop.Analyses, ElementsAre("Bo Haglund DDS"));
  EXPECT_FALSE(desk.Main.FlowActive());
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
  for (int n = 1; n <= 3; ++n) EXPECT_EQ(desk.Levels(n), kLevels);
  EXPECT_EQ(desk.LastLine(), "    DDS: 1,3 ver: 9.9  3.0s");
  EXPECT_FALSE(desk.Prog.Set.Changed());
}

TEST(MenuAnalyze, DeepFinesseIsAskedAboutAndGoesOnBesideTheFlows) {
  AnalyzeDesk desk("1");
  desk.Desktop.OnDeepF = [](DeepF& run) { EXPECT_FALSE(run.IsModal()); };
  desk.Main.MenuAnalyze();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{
                  "      Deep Finesse analysis can take up to a few minutes per board.      \r\n"
                  "      Do you want to continue?     ",
                  52, "Deep Finesse"}));
  EXPECT_FALSE(desk.Main.FlowActive());
  EXPECT_TRUE(desk.Prog.AnalysisRunning);
  EXPECT_EQ(desk.Levels(1), std::string(20, '0'));
  desk.WaitForTheEnd();
  for (int n = 1; n <= 3; ++n) EXPECT_EQ(desk.Levels(n), kLevels);
  EXPECT_EQ(desk.LastLine(), "    Deep_Finesse: 1,3 ver: 9.9  3.0s");
}

TEST(MenuAnalyze, AnyOtherValueOfTheSettingIsDeepFinesse) {
  for (const char* value : {"2", "", "00", "DDS"}) {
    AnalyzeDesk desk(value);
    desk.Main.MenuAnalyze();
    EXPECT_THAT(desk.Desktop.Analyses, ElementsAre("Deep Finesse")) << value;
  }
}

TEST(MenuAnalyze, NoStartsNothing) {
  for (const char* analyzer : {"0", "1"}) {
    AnalyzeDesk desk(analyzer);
    desk.Ui.Answers = {kNo};
    const auto lines = desk.LogLines().size();
    desk.Main.MenuAnalyze();
    EXPECT_THAT(desk.Desktop.Analyses, IsEmpty());
    EXPECT_THAT(desk.Solver.Orders, IsEmpty());
    EXPECT_FALSE(desk.Prog.AnalysisRunning);
    EXPECT_FALSE(desk.Main.FlowActive());
    for (std::size_t i = lines; i < desk.LogLines().size(); ++i) {
      EXPECT_FALSE(desk.LogLines()[i].starts_with(" Analyze: "));
    }
  }
}

TEST(MenuAnalyze, WithoutASetIsRefused) {
  AnalyzeDesk desk;
  desk.Prog.Set.Clear();
  desk.Main.MenuAnalyze();
  const std::string text = "      Board Set does not exist. Request ignored!      ";
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{text, 16, "Analize Error"}));
  EXPECT_THAT(desk.Solver.Orders, IsEmpty());
}

TEST(MenuAnalyze, OneThatRunsIsEnough) {
  AnalyzeDesk desk("1");
  desk.Main.MenuAnalyze();
  desk.Loop.WaitMs(500);
  desk.Ui.Boxes.clear();
  desk.Main.MenuAnalyze();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{"      Analysis is already running.      \r\n",
                                                     16, "Analize Error"}));
  EXPECT_THAT(desk.Desktop.Analyses, SizeIs(1));
  desk.WaitForTheEnd();
  EXPECT_THAT(desk.Solver.Orders, SizeIs(3));
}

TEST(MenuAnalyze, AProgramWithoutTheWindowSaysSo) {
  for (const char* analyzer : {"0", "1"}) {
    AnalyzeDesk desk(analyzer);
    desk.Desktop.HasWindows = false;
    desk.Main.MenuAnalyze();
    EXPECT_EQ(desk.Ui.Boxes.back().Title, "Analize Error");
    EXPECT_FALSE(desk.Prog.AnalysisRunning);
    EXPECT_FALSE(desk.Main.FlowActive());
  }
}

TEST(MenuAnalyze, AProgramThatQuitsFromTheQuestionStartsNothing) {
  AnalyzeDesk desk;
  desk.Ui.OnBox = [&] { desk.Loop.Quit(); };
  desk.Main.MenuAnalyze();
  EXPECT_THAT(desk.Desktop.Analyses, IsEmpty());
}

// Beside the flows.

TEST(MenuAnalyzeBeside, WhatWouldChangeTheSetIsRefused) {
  AnalyzeDesk desk("1");
  desk.Main.MenuAnalyze();
  const std::string text =
      "      This function cannot be used while analysis is running      \r\n"
      "      Please wait for analysis to finish or cancel it and try again      ";
  const auto refused = [&](const char* title, const std::function<void()>& act,
                           const std::string& why) {
    desk.Ui.Boxes.clear();
    act();
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{why, 16, title}));
    EXPECT_TRUE(desk.Prog.AnalysisRunning);
  };
  refused(
      "New Error", [&] { desk.Main.MenuNew(); }, text);
  refused(
      "Load Error", [&] { desk.Main.MenuLoad(); }, text);
  refused(
      "Import PBN", [&] { desk.Main.MenuImport(); }, text);
  refused(
      "Read Error", [&] { desk.Main.MenuRead(); }, text);
  desk.Desktop.OnEdit = [](edit::Editor& editor) { editor.Do(edit::Editor::Command::kDelete); };
  refused(
      "Edit Error", [&] { desk.Main.MenuEdit(); }, text);
  desk.Desktop.OnEdit = [](edit::Editor& editor) { editor.Analyze(); };
  refused(
      "Analyze Error", [&] { desk.Main.MenuEdit(); },
      "      Analysis is already running.      \r\n");
  refused(
      "Exit Error", [&] { desk.Main.Exit(); },
      "      The program cannot exit while analysis is running      \r\n"
      "      Please wait for analysis to finish or cancel it and try again      ");
  EXPECT_FALSE(desk.Loop.Quitting());
  EXPECT_EQ(desk.Prog.Set.Count(), 3);
}

TEST(MenuAnalyzeBeside, SavingAndPrintingGoOn) {
  AnalyzeDesk desk("1");
  desk.Main.MenuAnalyze();
  desk.Ui.Boxes.clear();
  desk.Main.MenuPrint();
  EXPECT_EQ(desk.Desktop.HandRecords, 1);
  desk.Ui.Files = {desk.Folder / "evening.pbn"};
  desk.Main.MenuSave();
  EXPECT_TRUE(std::filesystem::exists(desk.Folder / "evening.pbn"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_TRUE(desk.Prog.AnalysisRunning);
}

/// The boards come in while the machine deals, and a solver's error is told beside the run, which
/// never waits for it.
TEST(MenuAnalyzeBeside, ADealingRunGoesOnThroughItsErrors) {
  AnalyzeDesk desk("1");
  desk.Solver.Script = {{.AfterMs = 6000}, {.Code = "92", .AfterMs = 6000}};
  desk.Main.MenuAnalyze();
  desk.Ui.Boxes.clear();
  desk.Desktop.OnRun = [&](machine::BoardRun& run) {
    desk.Loop.After(20'000, [&run] { run.Exit(); });
  };
  desk.Main.MenuDeal();
  EXPECT_EQ(desk.Desktop.Run.Closed, 1);
  EXPECT_EQ(desk.Levels(1), kLevels) << "as it came in";
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      DLL not found      ", 16, "Deep Finesse Error"}));
  EXPECT_EQ(desk.Ui.Beside, 1) << "it waits for nobody";
  EXPECT_THAT(desk.LogLines(), Contains("    Deep_Finesse: 1,3 ver: 9.9  12.0s Error Board: 2"));
}

TEST(MenuAnalyzeBeside, TheProgramsEndBreaksItOff) {
  AnalyzeDesk desk("1");
  desk.Solver.AnswersBreaks = true;
  desk.Main.MenuAnalyze();
  desk.Loop.WaitMs(400);
  desk.Loop.Quit();
  desk.Main.End();
  EXPECT_EQ(desk.Store.Get(kSolverBreak), "98");
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
  const auto lines = desk.LogLines();
  EXPECT_THAT(lines.end()[-2], ::testing::EndsWith(" Cancel Board: 1"));
  EXPECT_TRUE(lines.back().starts_with(" Exit: "));
  EXPECT_EQ(desk.Levels(1), std::string(20, '0'));
}

TEST(MenuAnalyzeBeside, TheProgramsEndBeforeTheFirstStartNamesTheFirstBoard) {
  AnalyzeDesk desk("1");
  desk.Main.MenuAnalyze();
  desk.Loop.Quit();
  desk.Main.End();
  EXPECT_THAT(desk.LogLines().end()[-2], ::testing::EndsWith(" ver: xx.xx  .0s Cancel Board: 1"));
}

TEST(MenuAnalyzeBeside, TheProgramsEndWaitsASecondForASolverAtMost) {
  AnalyzeDesk desk("1");
  desk.Solver.Script = {{.AfterMs = -1}};
  desk.Main.MenuAnalyze();
  desk.Loop.WaitMs(400);
  desk.Loop.Quit();
  const auto before = desk.Clock.Elapsed();
  desk.Main.End();
  EXPECT_LT(desk.Clock.Elapsed() - before, std::chrono::milliseconds(1200));
  EXPECT_THAT(desk.LogLines().end()[-2], ::testing::EndsWith(" Cancel Board: 1"));
}

TEST(MenuAnalyzeBeside, BehindItAnotherOneCanBeStarted) {
  AnalyzeDesk desk("1");
  desk.Main.MenuAnalyze();
  desk.WaitForTheEnd();
  desk.Prog.Set.At(2).Tricks = {};
  desk.Ui.Answers = {kYes};
  desk.Main.MenuAnalyze();
  EXPECT_TRUE(desk.Prog.AnalysisRunning);
  desk.WaitForTheEnd();
  EXPECT_THAT(desk.Solver.Orders, SizeIs(4));
  EXPECT_EQ(desk.Levels(2), kLevels);
}

TEST(MenuAnalyzeBeside, ASolverThatLingersFromTheRunBeforeIsWaitedFor) {
  AnalyzeDesk desk("1");
  desk.Solver.Script = {{.Code = "92", .LingersMs = 8000}, {}};
  desk.Main.MenuAnalyze();
  desk.WaitForTheEnd();
  desk.Ui.Answers = {kYes};
  desk.Main.MenuAnalyze();
  desk.Loop.WaitMs(5000);
  EXPECT_THAT(desk.Solver.Orders, SizeIs(1));
  EXPECT_EQ(desk.Store.Get(kSolverDone), "92") << "not touched before it has gone";
  desk.WaitForTheEnd();
  EXPECT_THAT(desk.Solver.Orders, SizeIs(4));
  EXPECT_THAT(desk.Solver.DoneAtStart, ::testing::Each("00"));
}

// From the editor.

TEST(EditorAnalyze, OneBoardIsAnalysedModallyAndWithoutAQuestionByEitherSolver) {
  for (const char* analyzer : {"0", "1"}) {
    AnalyzeDesk desk(analyzer);
    desk.Prog.Set.CurrentBoard = 2;
    desk.Desktop.OnDeepF = [](DeepF& run) { EXPECT_TRUE(run.IsModal()); };
    desk.Desktop.OnEdit = [&](edit::Editor& editor) {
      editor.Analyze();
      EXPECT_TRUE(editor.Analyzed());
      EXPECT_FALSE(desk.Prog.AnalysisRunning);
    };
    desk.Main.MenuEdit();
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    EXPECT_THAT(desk.Solver.Orders, SizeIs(1));
    EXPECT_EQ(desk.Levels(2), kLevels);
    EXPECT_EQ(desk.Levels(1), std::string(20, '0'));
  }
}

TEST(EditorAnalyze, TheProgramsEndEndsIt) {
  AnalyzeDesk desk;
  desk.Solver.Script = {{.AfterMs = -1}};
  desk.Desktop.OnDeepF = [&](DeepF&) { desk.Loop.After(400, [&] { desk.Loop.Quit(); }); };
  desk.Desktop.OnEdit = [&](edit::Editor& editor) { editor.Analyze(); };
  desk.Main.MenuEdit();
  EXPECT_EQ(desk.Store.Get(kSolverBreak), "98");
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
}

}  // namespace
}  // namespace morvane::shell
