#include "platform/file_lock.h"

#include <cerrno>
#include <thread>
#include <utility>

#include "platform/files.h"

#ifdef _WIN32
#include "platform/windows/opening.h"
#include "platform/windows/system_error.h"
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/private_file.h"
#endif

namespace morvane {
namespace {

#ifdef _WIN32

std::intptr_t OpenLockFile(const std::string& path) {
  OpenedHandle file =
      OpenShared(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS, NewFile::kPrivate);
  return file ? reinterpret_cast<std::intptr_t>(file.release()) : -1;
}

bool LockFile(std::intptr_t file) {
  const bool locked = TakeLock(reinterpret_cast<HANDLE>(file));
  if (!locked) KeepLastError();
  return locked;
}

/// After `LockFile` has failed.
bool HeldByAnother() { return IsHeldByAnother(); }

void CloseLockFile(std::intptr_t file) { CloseHandle(reinterpret_cast<HANDLE>(file)); }

#else

std::intptr_t OpenLockFile(const std::string& path) {
  return OpenWithRights(path, O_RDWR | O_CREAT, NewFile::kPrivate);
}

bool LockFile(std::intptr_t file) {
  int answer = 0;
  do {
    answer = flock(static_cast<int>(file), LOCK_EX | LOCK_NB);
  } while (answer != 0 && errno == EINTR);
  return answer == 0;
}

/// After `LockFile` has failed.
bool HeldByAnother() { return errno == EWOULDBLOCK; }

void CloseLockFile(std::intptr_t file) { close(static_cast<int>(file)); }

#endif

}  // namespace

std::optional<FileLock> FileLock::Wait(const std::string& path,
                                       std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  return Wait(path, [end] {
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(kPause);
    return true;
  });
}

std::optional<FileLock> FileLock::Wait(const std::string& path, const std::function<bool()>& goOn) {
  const std::intptr_t file = OpenLockFile(path);
  if (file == kNone) return std::nullopt;
  FileLock lock(file);
  while (!LockFile(file)) {
    if (!HeldByAnother()) return std::nullopt;
    if (!goOn()) {
      errno = ETIMEDOUT;
      return std::nullopt;
    }
  }
  return lock;
}

std::optional<FileLock> FileLock::Try(const std::string& path) {
  bool held = false;
  return Try(path, held);
}

std::optional<FileLock> FileLock::Try(const std::string& path, bool& held) {
  held = false;
  const std::intptr_t file = OpenLockFile(path);
  if (file == kNone) return std::nullopt;
  FileLock lock(file);
  if (LockFile(file)) return lock;
  held = HeldByAnother();
  return std::nullopt;
}

FileLock::FileLock(FileLock&& other) noexcept : file_(std::exchange(other.file_, kNone)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  std::swap(file_, other.file_);
  return *this;
}

FileLock::~FileLock() {
  if (file_ != kNone) CloseLockFile(file_);
}

}  // namespace morvane
