#pragma once

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `maintain service-file` takes.
struct MaintainServiceFileOptions {
  bool Yes = false;
};

[[nodiscard]] MaintainServiceFileOptions ReadMaintainServiceFileOptions(OptionReader& given);

/// Done only when the file is written.
ExitStatus MaintainServiceFile(Job& job, const MaintainServiceFileOptions& options);

extern const Command kMaintainServiceFileCommand;

}  // namespace morvane::cli
