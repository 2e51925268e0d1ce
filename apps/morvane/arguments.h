#pragma once

#include "program_arguments.h"

namespace morvane {

/// The command line of `morvane`.
struct Arguments : ProgramArguments {
  std::string CommandLine;  ///< as given, but the path first, absolute, in double quotes
  std::string Typed;        ///< for the log
};

[[nodiscard]] Arguments ParseArguments(const QStringList& arguments);

}  // namespace morvane
