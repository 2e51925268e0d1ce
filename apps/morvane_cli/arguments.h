#pragma once

#include "cli/request.h"
#include "program_arguments.h"

namespace morvane {

/// The command line of `morvane-cli`.
struct Arguments : ProgramArguments {
  cli::Request What;
};

[[nodiscard]] Arguments ParseArguments(const QStringList& arguments);

}  // namespace morvane
