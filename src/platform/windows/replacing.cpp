#include "platform/windows/replacing.h"

#include <windows.h>

#include "platform/windows/system_error.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

bool IsInUse(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
         error == ERROR_ACCESS_DENIED || error == ERROR_UNABLE_TO_REMOVE_REPLACED ||
         error == ERROR_UNABLE_TO_MOVE_REPLACEMENT;
}

bool Replace(const fs::path& from, const fs::path& to) {
  constexpr DWORD kFlags = REPLACEFILE_WRITE_THROUGH | REPLACEFILE_IGNORE_MERGE_ERRORS;
  if (ReplaceFileW(to.c_str(), from.c_str(), nullptr, kFlags, nullptr, nullptr)) return true;
  // There is nothing to replace, or a file system that cannot.
  return MoveFileExW(from.c_str(), to.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

}  // namespace

std::optional<RuntimeError> PutInPlace(const fs::path& from, const fs::path& to) {
  constexpr int kTries = 50;
  constexpr DWORD kPauseMs = 10;
  for (int i = 0; !Replace(from, to); ++i) {
    const DWORD error = GetLastError();
    if (!IsInUse(error) || i == kTries) return RuntimeError::OfNumber(ErrnoOf(error));
    Sleep(kPauseMs);
  }
  return std::nullopt;
}

}  // namespace morvane
