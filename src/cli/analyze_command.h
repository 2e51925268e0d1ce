#pragma once

#include <optional>
#include <string>

#include "analysis/solver.h"
#include "cli/command.h"
#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct AnalyzeOptions {
  std::string In;
  std::string Out;
  std::optional<analysis::Solver> With{};  ///< otherwise the one that the settings name
  std::optional<int> Board{};              ///< this one alone
  bool Import = false;
};

[[nodiscard]] AnalyzeOptions ReadAnalyzeOptions(OptionReader& given);
ExitStatus Analyze(Job& job, const AnalyzeOptions& options);
extern const Command kAnalyzeCommand;

}  // namespace morvane::cli
