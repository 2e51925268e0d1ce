#pragma once

#include <QStringList>
#include <string>

namespace morvane {

/// The command line of `morvane`.
struct Arguments {
  std::string Data;      ///< empty: the user's own data folder
  std::string Settings;  ///< empty: the user's own store
  std::string Machine;
  std::string CommandLine;  ///< as start-up parses it: the path first, absolute, in double quotes
  std::string Help;         ///< not empty: to be shown, and nothing else is asked for
  std::string Error;        ///< not empty: wrong usage, and why
};

[[nodiscard]] Arguments ParseArguments(const QStringList& arguments);

}  // namespace morvane
