#pragma once

#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"

namespace morvane::cli {

struct BootCOptions {
  std::string In;
  std::string Out;
};

[[nodiscard]] BootCOptions ReadBootCOptions(OptionReader& given);

/// Writes the boot code as an array in C.
ExitStatus MakeBootC(Job& job, const BootCOptions& options);

extern const Command kBootCCommand;

}  // namespace morvane::cli
