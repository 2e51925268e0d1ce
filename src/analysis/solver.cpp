#include "analysis/solver.h"

#include "program/setting_keys.h"

namespace morvane::analysis {

Solver ChosenSolver(const Settings& store) {
  return store.Get(kAnalyzer) == "0" ? Solver::kDds : Solver::kDeepFinesse;
}

const std::string& QuestionOf(Solver solver, const Messages& texts) {
  return solver == Solver::kDds ? texts.Msg081 : texts.Msg080;
}

}  // namespace morvane::analysis
