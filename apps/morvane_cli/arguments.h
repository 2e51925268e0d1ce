#pragma once

#include <QStringList>
#include <string>

#include "cli/request.h"

namespace morvane {

/// The whole command line of `morvane-cli`.
struct Arguments {
  cli::Request What;
  std::string Data;      ///< empty: the user's own data folder
  std::string Settings;  ///< empty: the user's own store
  std::string Machine;
  std::string Help;   ///< not empty: to be shown, and nothing else is asked for
  std::string Error;  ///< not empty: wrong usage, and why
};

[[nodiscard]] Arguments ParseArguments(const QStringList& arguments);

}  // namespace morvane
