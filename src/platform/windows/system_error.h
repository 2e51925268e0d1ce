#pragma once

#include "platform/runtime_error.h"

namespace morvane {

/// Leaves the error of the system's last call in `errno`, where `RuntimeError::Last` looks for it.
void KeepLastError();
/// The error of the system's last call.
[[nodiscard]] RuntimeError LastSystemError();

}  // namespace morvane
