#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `read` takes. What was not given is empty, and means what the settings say.
struct ReadOptions {
  std::string Out;
  std::optional<std::string> First;
  std::optional<std::string> Last;
  std::optional<std::string> Mode;  ///< "1" or "2"
  bool Auto = false;
  bool Yes = false;
};

[[nodiscard]] ReadOptions ReadReadOptions(OptionReader& given);

/// Reads packs into an empty set and saves it, also what a run that ended early has read. Done only
/// when all boards were read, partly when cards of some were not recognised.
ExitStatus Read(Job& job, const ReadOptions& options);

extern const Command kReadCommand;

}  // namespace morvane::cli
