#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/runtime_error.h"

namespace morvane {

// Paths are UTF-8 texts everywhere; only these functions make file-system paths of them.

#ifdef _WIN32
inline constexpr std::string_view kPathSeparators = "\\/:";
#else
inline constexpr std::string_view kPathSeparators = "/";
#endif

[[nodiscard]] std::filesystem::path PathOfUtf8(std::string_view path);
[[nodiscard]] std::string JoinPath(std::string_view folder, std::string_view name);
/// `path` made absolute against the working directory.
[[nodiscard]] std::string AbsolutePath(std::string_view path);
/// What stands behind the last separator.
[[nodiscard]] std::string FileTitle(std::string_view path);
/// The path up to and including the last separator; empty without one.
[[nodiscard]] std::string FolderOf(std::string_view path);

/// The whole file as bytes, or what went wrong. A directory is an error.
[[nodiscard]] std::optional<RuntimeError> ReadFile(const std::string& path, std::string& bytes);
/// Makes `bytes` the content of the file. A plain file is written beside and renamed, so that a
/// failure leaves the old content; anything else (a device, a link) is written in place.
[[nodiscard]] std::optional<RuntimeError> WriteFile(const std::string& path,
                                                    std::string_view bytes);
[[nodiscard]] std::optional<RuntimeError> AppendToFile(const std::string& path,
                                                       std::string_view bytes);

}  // namespace morvane
