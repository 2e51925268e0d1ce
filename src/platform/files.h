#pragma once

#include <cstdint>
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
/// `path` made absolute against the working directory. A ".." stays, for behind a link it leads
/// elsewhere than the text says; on Windows, where it does not, it goes.
[[nodiscard]] std::string AbsolutePath(std::string_view path);
/// What stands behind the last separator.
[[nodiscard]] std::string FileTitle(std::string_view path);
/// The path up to and including the last separator; empty without one.
[[nodiscard]] std::string FolderOf(std::string_view path);

/// The plain file behind a link, with no link left in its path; `path` itself where there is none.
[[nodiscard]] std::string FileBehind(const std::string& path);

/// No limit to what is read.
inline constexpr std::uint64_t kAnySize = UINT64_MAX;

/// The whole file as bytes, or what went wrong. A directory is an error, and so is anything
/// without an end of its own: a device, a pipe (ENOTSUP); a file of more than `most` bytes (EFBIG);
/// and one for which there is not enough memory (ENOMEM).
[[nodiscard]] std::optional<RuntimeError> ReadFile(const std::string& path, std::string& bytes,
                                                   std::uint64_t most = kAnySize);
/// The same without holding the whole file: `take` is given its bytes block by block, none empty.
[[nodiscard]] std::optional<RuntimeError> ReadBlocks(
    const std::string& path, const std::function<void(std::string_view)>& take,
    std::uint64_t most = kAnySize);

/// Who may open a file that we make: whom the system lets, or its user alone, whatever the umask.
/// One that was there keeps its permissions if it is open, and loses everybody else's if it is
/// private and this user's.
enum class NewFile { kOpen, kPrivate };

/// Makes `bytes` the content of the file. A plain file is written beside and renamed, so that a
/// failure leaves the old content; it keeps its permissions, its owner and group where the system
/// lets us, and must be writable, its folder too. What a program that was killed left beside goes.
/// A link stays one. Anything else (a device, a pipe that is read) is written in place.
[[nodiscard]] std::optional<RuntimeError> WriteFile(const std::string& path, std::string_view bytes,
                                                    NewFile access = NewFile::kOpen);
/// The same for a file whose lock the caller holds. Nobody else writes beside it then, so that what
/// a program that was killed left there is written over.
[[nodiscard]] std::optional<RuntimeError> WriteLockedFile(const std::string& path,
                                                          std::string_view bytes,
                                                          NewFile access = NewFile::kOpen);
/// Adds `lines`, each with its CR LF, to a plain file (another is ENOTSUP) in one write of the
/// system. A last line that a crash or a full disk cut short is ended first.
[[nodiscard]] std::optional<RuntimeError> AppendLines(const std::string& path,
                                                      std::string_view lines,
                                                      NewFile access = NewFile::kOpen);

/// Makes a plain file or folder its user's alone, if it is this user's. A folder that many share on
/// purpose (sticky, or the root) stays as it is.
void MakePrivate(const std::string& path);
/// Makes the folder where it is missing, and it private; its parents are made as usual. What went
/// wrong when there is none afterwards.
[[nodiscard]] std::optional<RuntimeError> MakePrivateFolder(const std::string& path);

}  // namespace morvane
