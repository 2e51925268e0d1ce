#pragma once

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `sort` takes.
struct SortOptions {
  bool Auto = false;
  bool Yes = false;
};

[[nodiscard]] SortOptions ReadSortOptions(OptionReader& given);

/// Sorts once. Done only when the sort came to its end.
ExitStatus Sort(Job& job, const SortOptions& options);

extern const Command kSortCommand;

}  // namespace morvane::cli
