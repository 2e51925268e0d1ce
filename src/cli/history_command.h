#pragma once

#include "cli/workplace.h"

namespace morvane::cli {

/// Shows how full the history is and, when asked, its entries from the oldest to the newest.
ExitStatus ShowHistory(Workplace& place, const Request& request, const shell::Shell& shell);

}  // namespace morvane::cli
