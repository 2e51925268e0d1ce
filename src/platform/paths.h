#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// Whether `path` means the same in every working directory. On Windows also one of a share
/// (\\server\share\...), and none of a drive alone (C:set.pbn) or without one (\sets).
[[nodiscard]] bool IsAbsolutePath(std::string_view path);

/// `path` with no link left in it, as far as it is there; what is not there yet stays at its end.
[[nodiscard]] std::string TruePath(const std::string& path);

}  // namespace morvane
