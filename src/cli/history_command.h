#pragma once

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct HistoryOptions {
  bool List = false;
};

[[nodiscard]] HistoryOptions ReadHistoryOptions(OptionReader& given);

/// Shows how full the history is and, when asked, its entries from the oldest to the newest.
ExitStatus ShowHistory(Job& job, const HistoryOptions& options);

extern const Command kHistoryCommand;

}  // namespace morvane::cli
