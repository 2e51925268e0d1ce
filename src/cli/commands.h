#pragma once

#include "cli/workplace.h"

namespace morvane::cli {

/// Does what was asked for, as the desktop would; messages have been shown.
ExitStatus RunCommand(Workplace& place, const Request& request);

}  // namespace morvane::cli
