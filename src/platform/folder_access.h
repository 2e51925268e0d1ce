#pragma once

#include <optional>
#include <string>

#include "platform/runtime_error.h"

namespace morvane {

/// Why this user cannot use the folder; none where he can. The system is asked by entering it: who
/// is not let in may still see that it is there.
[[nodiscard]] std::optional<RuntimeError> WhyNotEntered(const std::string& folder);

/// Why the folder, where it stands already, may not be given what is its user's alone. On Windows
/// anybody may make the default data folder at the top of a drive before the user comes, and would
/// read tonight's boards in it: there it must be the user's own or the system's. A folder that the
/// user names is his choice.
[[nodiscard]] std::optional<RuntimeError> WhyNotTrusted(const std::string& folder);

}  // namespace morvane
