#pragma once

#include <memory>

#include "analysis/deep_f.h"
#include "analysis/solver_process.h"
#include "program/program.h"

namespace morvane::shell {

/// An analysis with its window, both for as long as it lives.
class OpenAnalysis {
 public:
  OpenAnalysis(Program& program, analysis::SolverProcess& solver, analysis::Solver which,
               int targetBoard)
      : Run(program, solver, which, targetBoard) {}

  analysis::DeepF Run;
  std::unique_ptr<analysis::DeepFView> Window;
};

/// The Analyze flow: the whole set, by the solver that the settings name, once the operator has
/// said Yes. An analysis that goes on beside the flows is given away; it may be let go of once it
/// is closed, or to break it off.
[[nodiscard]] std::unique_ptr<OpenAnalysis> AnalyzeFlow(Program& program,
                                                        analysis::SolverProcess& solver,
                                                        analysis::DeepFDialog& windows);

/// An analysis in a modal window, to its end. `targetBoard` 0: the whole set.
analysis::DeepF::Status RunAnalysis(Program& program, analysis::SolverProcess& solver,
                                    analysis::DeepFDialog& windows, analysis::Solver which,
                                    int targetBoard);

}  // namespace morvane::shell
