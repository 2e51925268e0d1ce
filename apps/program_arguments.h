#pragma once

#include <QStringList>
#include <string>

#include "bridges/link_request.h"

class QCommandLineParser;

namespace morvane {

/// What every program of ours takes on the command line.
struct ProgramArguments : bridges::LinkRequest {
  std::string Data;      ///< empty: the user's own data folder
  std::string Settings;  ///< empty: the user's own store
  std::string Help;   ///< not empty: to be shown (usage or version), and nothing else is asked for
  std::string Error;  ///< not empty: wrong usage, and why
};

/// What a program says of itself.
struct ProgramTexts {
  std::string Name;
  std::string Usage;
};

/// Parses `arguments` with `parser`, which has the program's own options, and takes those that
/// every program has. False: there is nothing more to take, `result` has help or an error.
[[nodiscard]] bool TakeProgramArguments(QCommandLineParser& parser, const QStringList& arguments,
                                        const ProgramTexts& texts, ProgramArguments& result);

}  // namespace morvane
