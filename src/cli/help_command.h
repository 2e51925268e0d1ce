#pragma once

#include "cli/command.h"

namespace morvane::cli {

extern const Command kHelpCommand;

}  // namespace morvane::cli
