#pragma once

#include <QStringList>
#include <optional>
#include <string>

namespace morvane {

/// The command line as the system gives it to a program.
struct GivenWords {
  /// Of what is no text there is no name that a file could be opened or saved under.
  bool AreText = false;
  QStringList Words;  ///< the program's own name first
  /// What stands behind the program's name, as it was typed; nothing where the system gives words
  /// alone.
  std::optional<std::string> Typed;
};

[[nodiscard]] GivenWords GivenWordsOf(int argc, char** argv);

}  // namespace morvane
