#include "analysis/deep_f_desk.h"

namespace morvane::analysis {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

using SolverOfARun = DeepFTest;

TEST_F(SolverOfARun, ABreakThatTheSolverAnswersCancels) {
  solver.AnswersBreaks = true;
  Open();
  desk.Loop.WaitMs(300);
  run->DF_Cancel();
  EXPECT_EQ(run->Label(), "Canceling... Please wait");
  EXPECT_EQ(desk.Store.Get(kSolverBreak), "98");
  desk.Loop.RunUntil([&] { return run->Closed(); });
  EXPECT_EQ(run->Outcome(), DeepF::Status::kCancelled);
  EXPECT_EQ(LevelsOfBoard(1), std::string(20, '0'));
  EXPECT_EQ(LastLine(), "    DDS: 1,3 ver: 9.9  1.0s Cancel Board: 1");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(SolverOfARun, AnAnswerThatComesFirstIsKeptAndTheRunIsCancelled) {
  Open();
  desk.Loop.WaitMs(300);
  run->DF_Cancel();
  desk.Loop.RunUntil([&] { return run->Closed(); });
  EXPECT_EQ(run->Outcome(), DeepF::Status::kCancelled);
  EXPECT_EQ(LevelsOfBoard(1), "43210432104321043210");
  EXPECT_THAT(solver.Orders, SizeIs(1));
  // The search for the next board comes first, so the next one is named: required.
  EXPECT_EQ(LastLine(), "    DDS: 1,3 ver: 9.9  1.0s Cancel Board: 2");
}

TEST_F(SolverOfARun, TheNextRunTakesTheBreakBack) {
  solver.AnswersBreaks = true;
  Open();
  desk.Loop.WaitMs(300);
  run->DF_Cancel();
  desk.Loop.RunUntil([&] { return run->Closed(); });
  RunAll();
  EXPECT_EQ(run->Outcome(), DeepF::Status::kAllFinished);
}

TEST_F(SolverOfARun, ASolverThatHasDiedIsTold) {
  solver.Script = {{.AfterMs = -1, .DiesAfterMs = 500}};
  Open();
  desk.Loop.WaitMs(500);
  EXPECT_FALSE(run->IsSolverGone());
  desk.Loop.WaitMs(500);
  EXPECT_TRUE(run->IsSolverGone());
  EXPECT_EQ(run->Label(), "The solver has ended without an answer");
  EXPECT_FALSE(run->Closed());
  run->DF_Cancel();
  desk.Loop.RunUntil([&] { return run->Closed(); });
  EXPECT_EQ(run->Outcome(), DeepF::Status::kCancelled);
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
}

/// It answers and goes between the two looks of a tick.
TEST_F(SolverOfARun, AnAnswerOfASolverThatHasGoneCounts) {
  solver.Script = {{.AfterMs = 1022, .DiesAfterMs = 900}};
  RunAll(Solver::kDds, 1);
  EXPECT_EQ(run->Outcome(), DeepF::Status::kAllFinished);
}

TEST_F(SolverOfARun, NoSolverIsStartedWhileAnEarlierOneLives) {
  solver.Script = {{.LingersMs = 5000}, {}, {}};
  Open();
  desk.Loop.WaitMs(4000);
  EXPECT_THAT(solver.Orders, SizeIs(1));
  EXPECT_EQ(desk.Store.Get(kSolverDone), "99");  // not touched before it has gone
  EXPECT_EQ(run->Label(), "Analyzing board: 2  out from: 1 to: 3");
  desk.Loop.RunUntil([&] { return run->Closed(); });
  EXPECT_THAT(solver.Orders, SizeIs(3));
  EXPECT_EQ(run->Outcome(), DeepF::Status::kAllFinished);
}

TEST_F(SolverOfARun, ACancelWhileAnEarlierSolverLingersStartsNoOther) {
  solver.Script = {{.LingersMs = 60'000}};
  Open();
  desk.Loop.WaitMs(2000);
  run->DF_Cancel();
  desk.Loop.RunUntil([&] { return run->Closed(); });
  EXPECT_THAT(solver.Orders, SizeIs(1));
  EXPECT_EQ(run->Outcome(), DeepF::Status::kCancelled);
}

TEST_F(SolverOfARun, ARunThatGoesBreaksItsSolver) {
  Open();
  desk.Loop.WaitMs(300);
  EXPECT_TRUE(desk.Prog.AnalysisRunning);
  run.reset();
  EXPECT_EQ(desk.Store.Get(kSolverBreak), "98");
  EXPECT_FALSE(desk.Prog.AnalysisRunning);
}

}  // namespace
}  // namespace morvane::analysis
