#pragma once

#include <optional>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

/// What `maintain auto-setup` takes.
struct MaintainAutoSetupOptions {
  std::optional<int> Index{};  ///< `CardSettings::Index`; empty: the stored one
  bool Yes = false;
};

[[nodiscard]] MaintainAutoSetupOptions ReadMaintainAutoSetupOptions(OptionReader& given);

/// Auto Setup, with its questions on the terminal. Done only when the machine holds what was found.
ExitStatus MaintainAutoSetup(Job& job, const MaintainAutoSetupOptions& options);

extern const Command kMaintainAutoSetupCommand;

}  // namespace morvane::cli
