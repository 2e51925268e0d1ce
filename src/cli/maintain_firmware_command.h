#pragma once

#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `maintain firmware` takes.
struct MaintainFirmwareOptions {
  std::string File;
};

[[nodiscard]] MaintainFirmwareOptions ReadMaintainFirmwareOptions(OptionReader& given);

/// Loads the machine. Done only when it has started and says that it holds the file's version.
ExitStatus MaintainFirmware(Job& job, const MaintainFirmwareOptions& options);

extern const Command kMaintainFirmwareCommand;

}  // namespace morvane::cli
