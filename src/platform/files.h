#pragma once

#include <filesystem>
#include <functional>
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
/// `path` made absolute against the working directory. A ".." stays: behind a link it leads
/// elsewhere than the text says.
[[nodiscard]] std::string AbsolutePath(std::string_view path);
/// What stands behind the last separator.
[[nodiscard]] std::string FileTitle(std::string_view path);
/// The path up to and including the last separator; empty without one.
[[nodiscard]] std::string FolderOf(std::string_view path);

/// The plain file behind a link, with no link left in its path; `path` itself where there is none.
[[nodiscard]] std::string FileBehind(const std::string& path);

/// The whole file as bytes, or what went wrong. A directory is an error, and so is anything
/// without an end of its own: a device, a pipe (ENOTSUP).
[[nodiscard]] std::optional<RuntimeError> ReadFile(const std::string& path, std::string& bytes);
/// The same without holding the whole file: `take` is given its bytes block by block, none empty.
[[nodiscard]] std::optional<RuntimeError> ReadBlocks(
    const std::string& path, const std::function<void(std::string_view)>& take);
/// Who may open a file that was not there before: whom the system lets, or its user alone.
enum class NewFile { kOpen, kPrivate };

/// Makes `bytes` the content of the file. A plain file is written beside and renamed, so that a
/// failure leaves the old content; it keeps its permissions, its owner and group where the system
/// lets us, and must be writable, its folder too. A link stays one. Anything else (a device, a pipe
/// that is read) is written in place.
[[nodiscard]] std::optional<RuntimeError> WriteFile(const std::string& path, std::string_view bytes,
                                                    NewFile access = NewFile::kOpen);
/// The same for a file whose lock the caller holds. Nobody else writes beside it then, so that what
/// a program that was killed left there is written over.
[[nodiscard]] std::optional<RuntimeError> WriteLockedFile(const std::string& path,
                                                          std::string_view bytes,
                                                          NewFile access = NewFile::kOpen);
[[nodiscard]] std::optional<RuntimeError> AppendToFile(const std::string& path,
                                                       std::string_view bytes);

}  // namespace morvane
