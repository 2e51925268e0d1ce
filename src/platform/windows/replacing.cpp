#include "platform/windows/replacing.h"

#include <windows.h>

#include "platform/windows/system_error.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

bool IsInUse(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
         error == ERROR_ACCESS_DENIED;
}

/// Write-protected it would not be replaced at all.
void KeepAttributes(const fs::path& from, const fs::path& to) {
  constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;
  const DWORD old = GetFileAttributesW(to.c_str());
  if (old != INVALID_FILE_ATTRIBUTES) SetFileAttributesW(from.c_str(), old & kKept);
}

/// The system's error; none when `to` is replaced. ReplaceFileW would first move the old file away:
/// a program killed behind that leaves none.
DWORD Replace(const fs::path& from, const fs::path& to) {
  constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  return MoveFileExW(from.c_str(), to.c_str(), kFlags) ? ERROR_SUCCESS : GetLastError();
}

}  // namespace

std::optional<RuntimeError> PutInPlace(const fs::path& from, const fs::path& to) {
  constexpr int kTries = 50;
  constexpr DWORD kPauseMs = 10;
  KeepAttributes(from, to);
  DWORD error = Replace(from, to);
  for (int i = 0; i < kTries && IsInUse(error); ++i) {
    Sleep(kPauseMs);
    error = Replace(from, to);
  }
  if (error == ERROR_SUCCESS) return std::nullopt;
  return RuntimeError::OfNumber(ErrnoOf(error));
}

}  // namespace morvane
