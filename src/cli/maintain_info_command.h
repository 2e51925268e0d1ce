#pragma once

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `maintain info` takes.
struct MaintainInfoOptions {};

[[nodiscard]] MaintainInfoOptions ReadMaintainInfoOptions(OptionReader& given);

/// Shows what the service console shows after ten polls; of a machine without firmware what it says
/// of itself.
ExitStatus MaintainInfo(Job& job, const MaintainInfoOptions& options);

extern const Command kMaintainInfoCommand;

}  // namespace morvane::cli
