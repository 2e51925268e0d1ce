#pragma once

#include <optional>
#include <string>

#include "platform/runtime_error.h"

namespace morvane {

/// What would keep `WriteFile` from writing `path`, as far as that can be known before: a folder
/// that is not there or not to be written in, a file that may not be replaced. Nothing is left
/// behind; whether there is room for the bytes is seen when they are written.
[[nodiscard]] std::optional<RuntimeError> CheckWritable(const std::string& path);

/// Whether the system lets this program write what stands at `path`; `errno` says why not.
[[nodiscard]] bool MayWrite(const std::string& path);

}  // namespace morvane
