#pragma once

#include <string>

#include "platform/files.h"

namespace morvane {

/// `open` of the system with `flags`, not passed on to child programs. -1 and `errno` when it
/// fails. A file made or opened as private is this user's alone then, unless it belongs to another.
[[nodiscard]] int OpenWithRights(const std::string& path, int flags, NewFile access);

}  // namespace morvane
