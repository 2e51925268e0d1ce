#pragma once

#include <string>

#include "cli/parameter_changes.h"

namespace morvane::cli {

/// A machine's parameters as `maintain parameters` has printed them into a file.
struct ParameterFile {
  int CardIndex = 0;  ///< `CardSettings::Index`: whose record they are
  std::string param_ID;
  ParameterChanges Values;
};

/// Reads the file `path`. Not empty: what is wrong, with the file's name; it is then taken in no
/// part. Whether it has all that a machine has is seen when that is known.
[[nodiscard]] std::string ReadParameterFile(const std::string& path, ParameterFile& file);

/// Why the file is none of a machine that has printed these lines itself; empty: it may be.
[[nodiscard]] std::string WhyNotWhole(const ParameterFile& file,
                                      const maintenance::Maintenance& console);

}  // namespace morvane::cli
