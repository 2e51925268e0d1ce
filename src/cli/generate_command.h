#pragma once

#include "cli/workplace.h"

namespace morvane::cli {

/// Makes a set by the options of `request`, or by the settings where it has none, and saves it.
ExitStatus Generate(Workplace& place, const Request& request, shell::Shell& shell);

}  // namespace morvane::cli
