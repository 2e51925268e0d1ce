#include "shell/analyze_flow.h"

#include "program/has_set.h"

namespace morvane::shell {
namespace {

using analysis::DeepF;

constexpr const char* kError = "Analize Error";  // that word: required

/// Null: the operator has been told.
std::unique_ptr<OpenAnalysis> Open(Program& program, analysis::SolverProcess& solver,
                                   analysis::DeepFDialog& windows, analysis::Solver which,
                                   int targetBoard) {
  auto open = std::make_unique<OpenAnalysis>(program, solver, which, targetBoard);
  open->Window = windows.OpenDeepF(open->Run);
  if (!open->Window) {
    program.ShowMessage("      This program has no window for an analysis.      ", kOkCritical,
                        kError);
    return nullptr;
  }
  open->Run.Open(*open->Window);
  return open;
}

/// Whether there is something to analyse, and the operator wants it.
bool MayStart(Program& program, analysis::Solver which) {
  if (program.AnalysisRunning) {
    program.ShowMessage(program.Texts.Msg104, kOkCritical, kError);
    return false;
  }
  if (!HasSet(program, kError)) return false;
  const std::string title(analysis::WordsOf(which).Title);
  const bool yes = program.Ask(QuestionOf(which, program.Texts), kYesNoExclamation, title) == kYes;
  return yes && !program.Loop.Quitting();
}

}  // namespace

std::unique_ptr<OpenAnalysis> AnalyzeFlow(Program& program, analysis::SolverProcess& solver,
                                          analysis::DeepFDialog& windows) {
  const analysis::Solver which = analysis::ChosenSolver(program.Store);
  if (!MayStart(program, which)) return nullptr;
  if (which == analysis::Solver::kDeepFinesse) return Open(program, solver, windows, which, 0);
  RunAnalysis(program, solver, windows, which, 0);
  return nullptr;
}

DeepF::Status RunAnalysis(Program& program, analysis::SolverProcess& solver,
                          analysis::DeepFDialog& windows, analysis::Solver which, int targetBoard) {
  const auto open = Open(program, solver, windows, which, targetBoard);
  if (!open) return DeepF::Status::kError;
  program.Loop.RunUntil([&] { return open->Run.Closed(); });
  open->Run.BreakOff();  // the program may be quitting
  program.Operator.RefreshSet();
  return open->Run.Outcome();
}

}  // namespace morvane::shell
