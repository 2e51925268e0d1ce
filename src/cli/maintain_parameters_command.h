#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"
#include "cli/parameter_changes.h"

namespace morvane::cli {

/// What `maintain parameters` takes.
struct MaintainParametersOptions {
  std::optional<int> Index{};  ///< `CardSettings::Index`; empty: the stored one, or the file's
  ParameterChanges Set{};
  std::string From{};  ///< a file that an earlier call has printed; empty: none
};

[[nodiscard]] MaintainParametersOptions ReadMaintainParametersOptions(OptionReader& given);

/// Shows the parameters that the machine holds; with changes, or a file of them, writes these
/// before. Done only when the machine holds what was asked for.
ExitStatus MaintainParameters(Job& job, const MaintainParametersOptions& options);

extern const Command kMaintainParametersCommand;

}  // namespace morvane::cli
