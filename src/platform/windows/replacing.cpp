#include "platform/windows/replacing.h"

#include "platform/windows/handle.h"
#include "platform/windows/system_error.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

bool IsInUse(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
         error == ERROR_ACCESS_DENIED || error == ERROR_UNABLE_TO_REMOVE_REPLACED ||
         error == ERROR_UNABLE_TO_MOVE_REPLACEMENT;
}

/// What keeps the file from being replaced now.
DWORD Hindrance(const fs::path& to) {
  constexpr DWORD kAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const OpenedHandle old = TakeHandle(CreateFileW(to.c_str(), GENERIC_READ | DELETE, kAll, nullptr,
                                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  return old ? ERROR_SUCCESS : GetLastError();
}

/// The system's error; none when `to` is replaced. A call that fails may leave a file of the
/// system's own, so it is asked for first whether it can be done.
DWORD Replace(const fs::path& from, const fs::path& to) {
  constexpr DWORD kFlags = REPLACEFILE_WRITE_THROUGH | REPLACEFILE_IGNORE_MERGE_ERRORS;
  if (const DWORD error = Hindrance(to)) return error;
  return ReplaceFileW(to.c_str(), from.c_str(), nullptr, kFlags, nullptr, nullptr) ? ERROR_SUCCESS
                                                                                   : GetLastError();
}

DWORD Move(const fs::path& from, const fs::path& to) {
  constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  return MoveFileExW(from.c_str(), to.c_str(), kFlags) ? ERROR_SUCCESS : GetLastError();
}

}  // namespace

std::optional<RuntimeError> PutInPlace(const fs::path& from, const fs::path& to) {
  constexpr int kTries = 50;
  constexpr DWORD kPauseMs = 10;
  DWORD error = Replace(from, to);
  for (int i = 0; i < kTries && IsInUse(error); ++i) {
    Sleep(kPauseMs);
    error = Replace(from, to);
  }
  // There is nothing to replace, or a file system that cannot.
  if (error != ERROR_SUCCESS) error = Move(from, to);
  if (error == ERROR_SUCCESS) return std::nullopt;
  return RuntimeError::OfNumber(ErrnoOf(error));
}

}  // namespace morvane
