#pragma once

#include <string>

#include "program/program.h"

namespace morvane::files {

/// The folder in which a file dialog opens.
[[nodiscard]] std::string InitialDirectory(const Settings& store);

/// Keeps the format and the folder of a file that was loaded or saved for the next dialog.
void RememberFile(Program& program, const std::string& path);

}  // namespace morvane::files
