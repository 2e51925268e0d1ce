#pragma once

#include <string>

#include "platform/runtime_error.h"

namespace morvane {

/// Leaves the error of the system's last call in `errno`, where `RuntimeError::Last` looks for it.
void KeepLastError();
/// The error of the system's last call.
[[nodiscard]] RuntimeError LastSystemError();

/// What the system itself says of its error `number`, in the user's language; the number where it
/// says nothing.
[[nodiscard]] std::string WordsOfSystem(unsigned long number);

}  // namespace morvane
