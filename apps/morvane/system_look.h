#pragma once

#include <string>
#include <vector>

namespace morvane {

/// The words by which an application has its windows look as the system says, where Qt does not by
/// itself.
[[nodiscard]] std::vector<std::string> SystemLook();

}  // namespace morvane
