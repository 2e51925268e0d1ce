#pragma once

#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct AuditOptions {
  std::string Log;
  std::optional<std::string> Sha256;  ///< that a set must have
};

[[nodiscard]] AuditOptions ReadAuditOptions(OptionReader& given);

/// Deals the sets of a log again from their seeds and shows what is not the same. Done only when
/// the log has a set of the number generator and every one is the same.
ExitStatus Audit(Job& job, const AuditOptions& options);

extern const Command kAuditCommand;

}  // namespace morvane::cli
