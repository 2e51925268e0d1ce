#pragma once

#include "cli/workplace.h"

namespace morvane::cli {

/// Deals the sets of a log again from their seeds and shows what is not the same. Done only when
/// the log has a set of the number generator and every one is the same.
ExitStatus Audit(Workplace& place, const Request& request);

}  // namespace morvane::cli
