#include "platform/windows/opening.h"

#include <fcntl.h>
#include <io.h>

#include <cerrno>
#include <filesystem>
#include <string_view>

#include "platform/windows/access_list.h"
#include "platform/windows/full_path.h"
#include "platform/windows/system_error.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

bool IsTooLong(const fs::path& name) {
  constexpr std::size_t kLongestName = 255;
  return name.filename().native().size() > kLongestName;
}

/// The system refuses a folder as it refuses what is not ours, and what is in a file as what is not
/// there.
int ErrorAt(const fs::path& path, int number) {
  std::error_code failure;
  if (number == EACCES && fs::is_directory(path, failure)) return EISDIR;
  const fs::path folder = path.parent_path();
  const bool inFile = fs::exists(folder, failure) && !fs::is_directory(folder, failure);
  return number == ENOENT && inFile ? ENOTDIR : number;
}

OpenedHandle OnlyPlain(OpenedHandle file) {
  if (!file || GetFileType(file.get()) == FILE_TYPE_DISK) return file;
  errno = ENOTSUP;
  return nullptr;
}

/// Who may do everything can open it all the same.
bool IsWriteProtected(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(PathOfUtf8(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

}  // namespace

bool MayBeNamed(const std::string& path) {
  const fs::path name = PathOfUtf8(path);
  if (IsDevice(FullPath(name.native()))) {
    errno = ENOTSUP;
  } else if (MeansAnother(path)) {
    errno = EINVAL;
  } else if (IsTooLong(name)) {
    errno = ENAMETOOLONG;
  } else {
    return true;
  }
  return false;
}

OpenedHandle OpenShared(const std::string& path, DWORD rights, DWORD disposition, NewFile access) {
  if (!MayBeNamed(path)) return nullptr;
  if (access == NewFile::kPrivate) MakePrivate(path);
  OwnAccess own;
  SECURITY_ATTRIBUTES* const list = access == NewFile::kPrivate ? own.Get() : nullptr;
  const fs::path name = PathOfUtf8(path);
  OpenedHandle file = TakeHandle(CreateFileW(name.c_str(), rights, kSharedWithAll, list,
                                             disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (file) return OnlyPlain(std::move(file));
  const DWORD error = GetLastError();
  errno = ErrorAt(name, ErrnoOf(error));
  SetLastError(error);
  return nullptr;
}

bool MayOpenToWrite(const std::string& path) {
  if (IsWriteProtected(path)) {
    errno = EACCES;
    return false;
  }
  return OpenShared(path, GENERIC_WRITE, OPEN_EXISTING) != nullptr ||
         GetLastError() == ERROR_SHARING_VIOLATION;
}

OpenedFile StreamOf(OpenedHandle handle, const char* mode) {
  if (!handle) return nullptr;
  const int file = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle.get()), _O_BINARY);
  if (file < 0) return nullptr;
  static_cast<void>(handle.release());
  return OpenedFile(_fdopen(file, mode));
}

bool TakeLock(HANDLE file) {
  OVERLAPPED behindAllBytes{};
  behindAllBytes.OffsetHigh = 0x40000000;
  const DWORD flags = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
  return LockFileEx(file, flags, 0, 1, 0, &behindAllBytes) != 0;
}

bool IsHeldByAnother() {
  const DWORD error = GetLastError();
  return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING;
}

}  // namespace morvane
