#include "platform/windows/replacing.h"

#include <cstddef>
#include <cstring>
#include <vector>

#include "platform/windows/system_error.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

/// A way of renaming, which the order says in its first word.
struct Renaming {
  FILE_INFO_BY_HANDLE_CLASS Class;
  DWORD Flags;
};
// What somebody has open is replaced all the same, if he lets others remove it. The headers have
// this one only for systems that know it.
constexpr Renaming kThoughOpen{static_cast<FILE_INFO_BY_HANDLE_CLASS>(22), 0x1 | 0x2};
constexpr Renaming kOnlyClosed{FileRenameInfo, TRUE};

bool IsInUse(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
         error == ERROR_ACCESS_DENIED;
}

/// By a system that is older, or a drive that is not of this system.
bool IsUnknown(DWORD error) {
  return error == ERROR_INVALID_PARAMETER || error == ERROR_NOT_SUPPORTED ||
         error == ERROR_INVALID_FUNCTION || error == ERROR_INVALID_LEVEL;
}

/// Write-protected it would not be replaced at all.
void KeepAttributes(HANDLE from, const fs::path& to) {
  constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;
  const DWORD old = GetFileAttributesW(to.c_str());
  if (old == INVALID_FILE_ATTRIBUTES || (old & kKept) == 0) return;
  FILE_BASIC_INFO facts{};
  facts.FileAttributes = old & kKept;
  SetFileInformationByHandle(from, FileBasicInfo, &facts, sizeof facts);
}

/// The system's error; none when the file has its new name.
DWORD Rename(HANDLE file, const std::wstring& to, const Renaming& how) {
  const std::size_t size = to.size() * sizeof(wchar_t);
  std::vector<std::byte> order(sizeof(FILE_RENAME_INFO) + size);
  auto* const info = reinterpret_cast<FILE_RENAME_INFO*>(order.data());
  std::memcpy(info, &how.Flags, sizeof how.Flags);
  info->FileNameLength = static_cast<DWORD>(size);
  std::memcpy(info->FileName, to.data(), size);
  const auto length = static_cast<DWORD>(order.size());
  return SetFileInformationByHandle(file, how.Class, info, length) ? ERROR_SUCCESS : GetLastError();
}

/// ReplaceFileW would first move the old file away: a program killed behind that leaves none.
DWORD Replace(HANDLE file, const std::wstring& to) {
  const DWORD error = Rename(file, to, kThoughOpen);
  return IsUnknown(error) ? Rename(file, to, kOnlyClosed) : error;
}

}  // namespace

std::optional<RuntimeError> PutInPlace(HANDLE file, const fs::path& to) {
  constexpr int kTries = 50;
  constexpr DWORD kPauseMs = 10;
  KeepAttributes(file, to);
  DWORD error = Replace(file, to.wstring());
  for (int i = 0; i < kTries && IsInUse(error); ++i) {
    Sleep(kPauseMs);
    error = Replace(file, to.wstring());
  }
  if (error != ERROR_SUCCESS) return RuntimeError::OfNumber(ErrnoOf(error));
  FlushFileBuffers(file);
  return std::nullopt;
}

}  // namespace morvane
