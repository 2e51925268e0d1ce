#pragma once

#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct StatsOptions {
  std::string In;
  bool Import = false;
};

[[nodiscard]] StatsOptions ReadStatsOptions(OptionReader& given);

/// Prints the statistics of the main window for a file.
ExitStatus Stats(Job& job, const StatsOptions& options);

extern const Command kStatsCommand;

}  // namespace morvane::cli
