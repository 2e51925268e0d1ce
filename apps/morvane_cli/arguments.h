#pragma once

#include "cli/request.h"
#include "program_arguments.h"

namespace morvane {

/// The command line of `morvane-cli`.
struct Arguments : ProgramArguments {
  bool Yes = false;        ///< every question is answered so
  bool Overwrite = false;  ///< a file is replaced without being asked about
  cli::CommandWords Given;
  cli::Request Request;  ///< what is wrong with it, or its text, stands above too
};

[[nodiscard]] Arguments ParseArguments(const QStringList& arguments);

}  // namespace morvane
