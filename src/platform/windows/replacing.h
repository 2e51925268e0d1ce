#pragma once

#include <filesystem>
#include <optional>

#include "platform/runtime_error.h"

namespace morvane {

/// Gives the file `from` the name `to`, on the disk before this comes back. What `to` was is
/// replaced at once, and its attributes stay; until then it is as it was.
/// Somebody who has it open for a moment (whoever looks for viruses) is waited for. Nobody may have
/// `from` open.
[[nodiscard]] std::optional<RuntimeError> PutInPlace(const std::filesystem::path& from,
                                                     const std::filesystem::path& to);

}  // namespace morvane
