#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct ShowOptions {
  std::string In;
  std::optional<int> Board;  ///< otherwise all
  bool Import = false;
};

[[nodiscard]] ShowOptions ReadShowOptions(OptionReader& given);

/// Shows the boards of a file as diagrams.
ExitStatus Show(Job& job, const ShowOptions& options);

extern const Command kShowCommand;

}  // namespace morvane::cli
