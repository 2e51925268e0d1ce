#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/solver.h"
#include "platform/process_starter.h"

namespace morvane::analysis {

/// The solver that was started last. It outlives the run that has started it, so that the next one
/// can wait for it to go: a late answer would land on another board.
class SolverProcess {
 public:
  /// Solvers stand in `folder`, and answer in the settings store `settingsFile`.
  SolverProcess(ProcessStarter& starter, std::string folder, std::string settingsFile);

  [[nodiscard]] bool Lives() { return child_ && child_->Lives(); }
  /// Why it could not be started.
  [[nodiscard]] std::optional<RuntimeError> Start(Solver solver, std::vector<std::string> tokens);

 private:
  ProcessStarter& starter_;
  std::string folder_;
  std::string settingsFile_;
  std::unique_ptr<ChildProcess> child_;
};

}  // namespace morvane::analysis
