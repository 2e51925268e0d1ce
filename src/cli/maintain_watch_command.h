#pragma once

#include <optional>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `maintain watch` takes. Without a number it goes on until it is interrupted.
struct MaintainWatchOptions {
  std::optional<int> Polls;
};

[[nodiscard]] MaintainWatchOptions ReadMaintainWatchOptions(OptionReader& given);

/// Polls the machine and shows its sensors: on a terminal over and over in the same place,
/// elsewhere once, and then those that changed. Done unless the link was not opened or was lost.
ExitStatus MaintainWatch(Job& job, const MaintainWatchOptions& options);

extern const Command kMaintainWatchCommand;

}  // namespace morvane::cli
