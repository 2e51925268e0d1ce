#include "platform/write_check.h"

#include <cerrno>
#include <filesystem>

#include "platform/files.h"

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace morvane {
namespace {

namespace fs = std::filesystem;

bool MayWrite(const std::string& path) {
#ifdef _WIN32
  constexpr int kToWrite = 2;
  return _waccess(PathOfUtf8(path).c_str(), kToWrite) == 0;
#else
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
#endif
}

/// Makes an empty file in the folder of `path` and takes it away: rights alone do not tell. One of
/// that name is left over from a check that was killed, unless it has bytes; nobody loses those.
std::optional<RuntimeError> TryFolderOf(const std::string& path) {
  const std::string name = FolderOf(path) + "morvane.try";
  const fs::path file = PathOfUtf8(name);
  std::error_code failure;
  const auto there = fs::symlink_status(file, failure);
  if (fs::exists(there) && !(fs::is_regular_file(there) && fs::is_empty(file, failure))) {
    return std::nullopt;
  }
  auto error = WriteFile(name, "");
  fs::remove(file, failure);
  return error;
}

}  // namespace

std::optional<RuntimeError> CheckWritable(const std::string& path) {
  const std::string real = FileBehind(path);
  std::error_code failure;
  const auto status = fs::symlink_status(PathOfUtf8(real), failure);
  if (status.type() == fs::file_type::none) return RuntimeError::Of(failure);
  if (fs::is_directory(fs::status(PathOfUtf8(real), failure))) {
    return RuntimeError::OfNumber(EISDIR);
  }
  if (fs::is_symlink(status)) return std::nullopt;  // to nothing yet
  if (fs::exists(status) && !MayWrite(real)) return RuntimeError::Last();
  // What is no plain file is written in place.
  if (fs::is_other(status)) return std::nullopt;
  return TryFolderOf(real);
}

}  // namespace morvane
