#pragma once

#include <string>

#include "cli/pages/program_line.h"

namespace morvane::pages {

/// Scripts by which shells complete a program's command line.
[[nodiscard]] std::string BashCompletion(const ProgramLine& program);
[[nodiscard]] std::string ZshCompletion(const ProgramLine& program);
[[nodiscard]] std::string FishCompletion(const ProgramLine& program);

}  // namespace morvane::pages
