#pragma once

#include <vector>

#include "shell/help.h"

namespace morvane {

/// The libraries that the program stands on, each with the version that runs, or else, where the
/// library does not tell, with the one that it was built with.
[[nodiscard]] std::vector<shell::Library> LibraryVersions();

}  // namespace morvane
