#include "platform/private_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/files.h"

namespace morvane {

namespace {

constexpr mode_t kEverybodysFile = 0666;
constexpr mode_t kOwnFile = 0600;
constexpr mode_t kOwnFolder = 0700;
constexpr mode_t kOwnersPart = 0700;
constexpr mode_t kAllRights = 07777;

// A file system without permissions may refuse them; the bytes matter more.
void SetRights(int file, mode_t rights) {
  [[maybe_unused]] const int answer = fchmod(file, rights);
}
void SetRights(const std::string& path, mode_t rights) {
  [[maybe_unused]] const int answer = chmod(path.c_str(), rights);
}

bool IsRoot(const struct stat& status) {
  struct stat root {};
  return stat("/", &root) == 0 && root.st_dev == status.st_dev && root.st_ino == status.st_ino;
}

/// Whether others have rights that are ours to take.
bool IsTooOpen(const struct stat& status) {
  if (status.st_uid != geteuid() || (status.st_mode & kAllRights & ~kOwnersPart) == 0) return false;
  if (S_ISREG(status.st_mode)) return true;
  return S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX) == 0 && !IsRoot(status);
}

/// A new file, whatever the umask leaves of its rights.
int OpenNewPrivate(const std::string& path, int flags) {
  const int file = open(path.c_str(), flags | O_EXCL, kOwnFile);
  if (file >= 0) SetRights(file, kOwnFile);
  return file;
}

int OpenPrivate(const std::string& path, int flags) {
  if ((flags & O_CREAT) != 0) {
    const int file = OpenNewPrivate(path, flags);
    if (file >= 0 || errno != EEXIST || (flags & O_EXCL) != 0) return file;
  }
  const int file = open(path.c_str(), flags, kOwnFile);
  struct stat status {};
  if (file >= 0 && fstat(file, &status) == 0 && IsTooOpen(status)) {
    SetRights(file, status.st_mode & kOwnersPart);
  }
  return file;
}

}  // namespace

int OpenWithRights(const std::string& path, int flags, NewFile access) {
  flags |= O_CLOEXEC;
  return access == NewFile::kPrivate ? OpenPrivate(path, flags)
                                     : open(path.c_str(), flags, kEverybodysFile);
}

void MakePrivate(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0 && IsTooOpen(status)) {
    SetRights(path, status.st_mode & kOwnersPart);
  }
}

std::optional<RuntimeError> MakePrivateFolder(const std::string& path) {
  std::error_code failure;
  if (std::filesystem::is_directory(PathOfUtf8(path), failure)) {
    MakePrivate(path);
    return std::nullopt;
  }
  failure.clear();
  std::filesystem::create_directories(PathOfUtf8(path).parent_path(), failure);
  if (failure) return RuntimeError::Of(failure);
  if (mkdir(path.c_str(), kOwnFolder) == 0) {
    SetRights(path, kOwnFolder);
    return std::nullopt;
  }
  if (errno != EEXIST) return RuntimeError::Last();
  // Another program may have made it just now.
  if (!std::filesystem::is_directory(PathOfUtf8(path), failure)) {
    return RuntimeError::OfNumber(ENOTDIR);
  }
  MakePrivate(path);
  return std::nullopt;
}

}  // namespace morvane
