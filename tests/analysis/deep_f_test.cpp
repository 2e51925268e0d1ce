#include "analysis/deep_f_desk.h"
#include "support/program_in.h"

namespace morvane::analysis {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST_F(DeepFTest, AWholeSetIsAnalysedBoardByBoard) {
  solver.Script = {{.Result = "43210432104321043210"},
                   {.Result = "00000000000000000001"},
                   {.Result = "77777777777777777777"}};
  RunAll();
  EXPECT_EQ(run->Outcome(), DeepF::Status::kAllFinished);
  EXPECT_EQ(LevelsOfBoard(1), "43210432104321043210");
  EXPECT_EQ(LevelsOfBoard(2), "00000000000000000001");
  EXPECT_EQ(LevelsOfBoard(3), "77777777777777777777");
  EXPECT_EQ(desk.Prog.Set.At(1).Tricks[20], 0);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
  EXPECT_EQ(view->Closes, 1);
}

TEST_F(DeepFTest, TheLogTellsStartAndEndToTheLetter) {
  RunAll();
  const auto lines = desk.LogLines();
  EXPECT_EQ(lines[lines.size() - 2], " Analyze: 3:04:05 PM");
  // Started 107 ms from the opening, seen 1023 ms behind each start: 20 ticks of 50 ms a board.
  EXPECT_EQ(lines.back(), "    DDS: 1,3 ver: 9.9  3.0s");
}

TEST_F(DeepFTest, LessThanASecondHasNoNoughtInFrontOfThePoint) {
  solver.Script = {{.AfterMs = 510}};
  RunAll(Solver::kDeepFinesse, 2);
  // Seen 558 ms behind its start: 11 ticks of 50 ms, 0.55 s.
  EXPECT_EQ(LastLine(), "    Deep_Finesse: 2 ver: 9.9  .6s");
}

TEST_F(DeepFTest, ItsLabelNamesTheBoardAndTheRange) {
  RunAll();
  EXPECT_THAT(view->Labels,
              ElementsAre("Preparing for analize....", "Analyzing board: 1  out from: 1 to: 3",
                          "Analyzing board: 2  out from: 1 to: 3",
                          "Analyzing board: 3  out from: 1 to: 3"));
  EXPECT_EQ(run->Title(), "Bo Haglund DDS");
}

TEST_F(DeepFTest, ATargetBoardAloneIsAnalysed) {
  RunAll(Solver::kDeepFinesse, 2);
  EXPECT_THAT(solver.Orders, SizeIs(1));
  EXPECT_EQ(LevelsOfBoard(1), std::string(20, '0'));
  EXPECT_EQ(LevelsOfBoard(2), "43210432104321043210");
  EXPECT_THAT(view->Labels, ElementsAre("Preparing for analize....", "Analyzing board: 2"));
  EXPECT_EQ(run->Title(), "Deep Finesse");
}

TEST_F(DeepFTest, TheSolverGetsTheCardsTheStoreAndAnEmptyMailbox) {
  EXPECT_TRUE(desk.Store.Set(kSolverDone, "99"));
  EXPECT_TRUE(desk.Store.Set(kSolverBreak, "98"));
  RunAll(Solver::kDds, 1);
  ASSERT_THAT(solver.Orders, SizeIs(1));
  EXPECT_EQ(solver.Orders[0].Path, test::ProgramIn("/opt/morvane", "DDS_1"));
  EXPECT_THAT(solver.Orders[0].Arguments, SizeIs(52));
  EXPECT_THAT(solver.Orders[0].Variables, ElementsAre("MORVANE_SETTINGS=/home/me/settings.ini"));
  EXPECT_THAT(solver.DoneAtStart, ElementsAre("00"));
  EXPECT_THAT(solver.BreaksSeen, ElementsAre("00"));
  EXPECT_EQ(desk.Store.Get(kSolverAppPath), desk.Prog.Paths.Application);
  EXPECT_TRUE(
      std::filesystem::equivalent(std::filesystem::current_path(), desk.Prog.Paths.Application));
}

TEST_F(DeepFTest, DeepFinesseIsAnotherProgram) {
  RunAll(Solver::kDeepFinesse, 1);
  EXPECT_EQ(solver.Orders.at(0).Path, test::ProgramIn("/opt/morvane", "df1"));
}

TEST_F(DeepFTest, BoardsThatHaveResultsArePassedOver) {
  desk.Prog.Set.At(1).Tricks[19] = 1;
  desk.Prog.Set.At(3).Tricks[0] = 7;
  RunAll();
  EXPECT_THAT(solver.Orders, SizeIs(1));
  EXPECT_EQ(LevelsOfBoard(2), "43210432104321043210");
}

/// Nobody makes anything on board 1, so it never counts as analysed; the search goes on behind it.
TEST_F(DeepFTest, ABoardThatMakesNothingIsAnalysedOnce) {
  solver.Script = {{.Result = std::string(20, '0')}, {}, {}};
  RunAll();
  EXPECT_THAT(solver.Orders, SizeIs(3));
  EXPECT_EQ(run->Outcome(), DeepF::Status::kAllFinished);
}

TEST_F(DeepFTest, WhenAllHaveResultsNothingIsStarted) {
  for (int n = 1; n <= 3; ++n) desk.Prog.Set.At(n).Tricks[0] = 1;
  RunAll();
  EXPECT_THAT(solver.Orders, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{"      All boards have already been analyzed.      ",
                                            kOkInformation, "Bo Haglund DDS Error"}));
  EXPECT_EQ(view->Closes, 1);
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
}

TEST_F(DeepFTest, ATargetBoardThatHasResultsIsNotAnalysedAgain) {
  desk.Prog.Set.At(2).Tricks[0] = 1;
  RunAll(Solver::kDeepFinesse, 2);
  EXPECT_THAT(solver.Orders, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{"      This board has already been analyzed.      ",
                                            kOkInformation, "Deep Finesse Error"}));
}

TEST_F(DeepFTest, AnIncompleteTargetBoardEndsTheRun) {
  desk.Prog.Set.At(2).Cards[1] = 0;
  RunAll(Solver::kDds, 2);
  EXPECT_THAT(solver.Orders, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{"      Incomplete or incorrect board      ",
                                            kOkCritical, "Bo Haglund DDS Error"}));
  EXPECT_EQ(LastLine(), "    DDS: 2 .0s Error Board: 2");
  EXPECT_EQ(run->Outcome(), DeepF::Status::kError);
}

TEST_F(DeepFTest, AnIncompleteBoardFurtherOnKeepsTheResultsBefore) {
  desk.Prog.Set.At(2).Cards[1] = 0;
  RunAll();
  EXPECT_EQ(LevelsOfBoard(1), "43210432104321043210");
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(LastLine(), "    DDS: 1,3 ver: 9.9  1.0s Error Board: 2");
}

TEST_F(DeepFTest, AProgramThatIsNotThereIsTold) {
  solver.Failure = RuntimeError{2, "No such file or directory"};
  RunAll();
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_THAT(desk.Ui.Boxes[0].Text, ::testing::StartsWith("      Error 2      \r\n      No such "
                                                           "file or directory      \r\n"));
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Bo Haglund DDS Error");
  EXPECT_EQ(LastLine(), "    DDS: 1,3 .0s Error Board: 1");
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
}

TEST_F(DeepFTest, AFolderThatCannotBeEnteredIsToldAndTheRunGoesOn) {
  test::TestDesk other;
  test::FillSet(other.Prog.Set, 1, 1);
  Program program({other.Ui, other.Loop, other.Clock, other.Store, other.Random, other.Speaker,
                   other.ThePrinter},
                  {other.Folder / "nowhere", other.Prog.Paths.Data});
  test::FillSet(program.Set, 1, 1);
  ScriptedSolver scripted(other);
  SolverProcess started(scripted, "/opt/morvane", "");
  DeepF deepF(program, started, Solver::kDds, 0);
  RecordingView shown(deepF);
  deepF.Open(shown);
  other.Loop.RunUntil([&] { return deepF.Closed(); });
  // For both solvers with that title: required.
  EXPECT_THAT(other.Ui.Boxes, ElementsAre(test::FakeUi::Box{"    Directory Error      ",
                                                            kOkCritical, "Deep Finesse Error"}));
  EXPECT_EQ(deepF.Outcome(), DeepF::Status::kAllFinished);
}

/// "Done" is the last board's yet, and so is "Result".
TEST_F(DeepFTest, AMailboxThatCannotBeWrittenEndsTheRun) {
  EXPECT_TRUE(desk.Store.Set(kSolverDone, "99"));
  EXPECT_TRUE(desk.Store.Set(kSolverResult, "43210432104321043210"));
  desk.Store.Writable = false;
  RunAll();
  EXPECT_THAT(solver.Orders, IsEmpty());
  EXPECT_EQ(LevelsOfBoard(1), std::string(20, '0'));
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Settings Error");
  EXPECT_EQ(
      desk.Ui.Boxes[1],
      (test::FakeUi::Box{"      Settings cannot be saved      \r\n      No solver can answer      ",
                         kOkCritical, "Bo Haglund DDS Error"}));
  EXPECT_EQ(LastLine(), "    DDS: 1,3 .0s Error Board: 1");
}

/// Beside the flows each box is one that waits for nobody.
TEST_F(DeepFTest, AMailboxThatCannotBeWrittenHoldsUpNoFlow) {
  desk.Store.Writable = false;
  RunAll(Solver::kDeepFinesse);
  EXPECT_THAT(solver.Orders, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Beside, 1);
}

TEST_F(DeepFTest, ACancelThatCannotBeWrittenEndsTheRunBehindTheBoard) {
  Open(Solver::kDeepFinesse);
  desk.Loop.WaitMs(300);
  desk.Store.Writable = false;
  run->DF_Cancel();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  desk.Store.Writable = true;  // for the solver
  desk.Loop.RunUntil([&] { return run->Closed(); });
  EXPECT_EQ(run->Outcome(), DeepF::Status::kCancelled);
  EXPECT_THAT(solver.Orders, SizeIs(1));
}

// The codes.

struct Code {
  const char* Done;
  const char* Error;
  const char* Text;
};

class DeepFCode : public DeepFTest, public ::testing::WithParamInterface<Code> {};

TEST_P(DeepFCode, HasItsMessageAndEndsTheRun) {
  solver.Script = {{}, {.Code = GetParam().Done, .Error = GetParam().Error, .Path = "/lang"}};
  RunAll();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{GetParam().Text, kOkCritical, "Bo Haglund DDS Error"}));
  EXPECT_EQ(run->Outcome(), DeepF::Status::kError);
  EXPECT_EQ(LevelsOfBoard(1), "43210432104321043210");
  EXPECT_EQ(LevelsOfBoard(2), std::string(20, '0'));
  EXPECT_EQ(LastLine(), "    DDS: 1,3 ver: 9.9  2.0s Error Board: 2");
}

INSTANTIATE_TEST_SUITE_P(
    Every, DeepFCode,
    ::testing::Values(Code{"91", "", "      Incomplete or incorrect board      "},
                      Code{"92", "", "      DLL not found      "},
                      Code{"93", "", "      DLL function error      "},
                      Code{"94", "/opt/x",
                           "      DLL function path error    \r\n      Path: /opt/x     "},
                      Code{"94", "Language not found",
                           "      DLL function path error    \r\n      Path: /lang     "},
                      Code{"95", "/opt/x", "      Analyzer Error    \r\n      Path: /opt/x     "},
                      Code{"96", "too many", "      Analysis Error.      \r\n      too many      "},
                      Code{"97", "14", "      Incorrect number of tricks.    \r\n      14      "}));

class WrongResult : public DeepFTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(WrongResult, CountsAsWrongTricks) {
  solver.Script = {{.Result = GetParam(), .Error = "e"}};
  RunAll();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(test::FakeUi::Box{
                                 "      Incorrect number of tricks.    \r\n      e      ",
                                 kOkCritical, "Bo Haglund DDS Error"}));
  EXPECT_EQ(LevelsOfBoard(1), std::string(20, '0'));
}

INSTANTIATE_TEST_SUITE_P(Every, WrongResult,
                         ::testing::Values("", "4321043210432104321", "432104321043210432101",
                                           "4321043210432104321x", "83210432104321043210"));

// The bar.

TEST_F(DeepFTest, TheBarOfDdsStartsWithAnEstimateOfFiveSeconds) {
  solver.Script = {{.AfterMs = 3000}, {.AfterMs = 3000}};
  Open();
  desk.Loop.WaitMs(107 + 1023);  // 20 ticks of 100
  EXPECT_DOUBLE_EQ(run->Progress(), 20);
  desk.Loop.WaitMs(2050);
  EXPECT_EQ(run->CurrentBoard(), 2);
  // Board 1 has taken 61 ticks; the first of board 2 behind its start at 3176 ms.
  desk.Loop.WaitMs(3176 + 93 * 11 - 3180);
  EXPECT_DOUBLE_EQ(run->Progress(), 100.0 * 20 / 61);
}

TEST_F(DeepFTest, TheBarOfDeepFinesseFollowsItsSteps) {
  solver.Script = {{.AfterMs = 3000}};
  Open(Solver::kDeepFinesse);
  desk.Loop.WaitMs(200);
  for (const auto& [done, percent] :
       {std::pair{"12", 35.0}, {"34", 95.0}, {"35", 95.0}, {"4x", 95.0}, {"", 95.0}, {"01", 5.0}}) {
    EXPECT_TRUE(desk.Store.Set(kSolverDone, done));
    desk.Loop.WaitMs(93);
    EXPECT_DOUBLE_EQ(run->Progress(), percent) << done;
  }
}

}  // namespace
}  // namespace morvane::analysis
