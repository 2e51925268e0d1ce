#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>

#include "platform/runtime_error.h"

namespace morvane {

/// Gives the file whose handle `file` may remove it the name `to`, a whole path, on the disk before
/// this comes back. What `to` was is replaced at once, whoever reads it and lets others remove it,
/// and its attributes stay; until then it is as it was. Somebody who keeps it to himself for a
/// moment (whoever looks for viruses) is waited for, half a second at most: the windows stand still
/// meanwhile.
[[nodiscard]] std::optional<RuntimeError> PutInPlace(HANDLE file, const std::filesystem::path& to);

}  // namespace morvane
