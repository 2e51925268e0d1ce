#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `deal` takes. A number that was not given is empty, and means what the set says.
struct DealOptions {
  std::string In;
  std::optional<int> From;
  std::optional<int> To;
  std::optional<int> Copies;
  bool Auto = false;
  bool Yes = false;
  bool Import = false;
};

[[nodiscard]] DealOptions ReadDealOptions(OptionReader& given);

/// Deals the boards of a file. Done only when all that were asked for lie right.
ExitStatus Deal(Job& job, const DealOptions& options);

extern const Command kDealCommand;

}  // namespace morvane::cli
