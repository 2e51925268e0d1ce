#include "platform/write_check.h"

#include <cerrno>
#include <filesystem>

#include "platform/file_beside.h"
#include "platform/files.h"

#ifdef _WIN32
#include "platform/windows/opening.h"
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace morvane {
namespace {

namespace fs = std::filesystem;

/// Makes a file in the folder of `path` and takes it away: rights alone do not tell.
std::optional<RuntimeError> TryFolderOf(const std::string& path) {
  const FileBeside beside = OpenBeside(path, NewFile::kPrivate);
  if (!beside.File) return RuntimeError::Last();
  std::error_code failure;
  fs::remove(PathOfUtf8(beside.Name), failure);
  return std::nullopt;
}

}  // namespace

bool MayWrite(const std::string& path) {
#ifdef _WIN32
  return MayOpenToWrite(path);
#else
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
#endif
}

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
