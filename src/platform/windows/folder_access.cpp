#include "platform/folder_access.h"

#include <windows.h>

#include <filesystem>

#include "platform/files.h"
#include "platform/user_folders.h"
#include "platform/windows/access_list.h"
#include "platform/windows/full_path.h"
#include "platform/windows/handle.h"
#include "platform/windows/system_error.h"

namespace morvane {
namespace {

OpenedHandle OpenFolder(const std::string& folder, DWORD rights, DWORD more = 0) {
  return TakeHandle(CreateFileW(PathOfUtf8(folder).c_str(), rights, kSharedWithAll, nullptr,
                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | more, nullptr));
}

bool IsDefaultOnFixedDrive(const std::string& folder) {
  const std::filesystem::path root = PathOfUtf8(RootOf(folder));
  return folder == DefaultDataFolder(folder) && GetDriveTypeW(root.c_str()) == DRIVE_FIXED;
}

}  // namespace

std::optional<RuntimeError> WhyNotEntered(const std::string& folder) {
  std::error_code failure;
  if (!std::filesystem::is_directory(PathOfUtf8(folder), failure)) {
    return failure ? RuntimeError::Of(failure) : RuntimeError::OfNumber(ENOTDIR);
  }
  if (!OpenFolder(folder, FILE_LIST_DIRECTORY | FILE_ADD_FILE)) return LastSystemError();
  return std::nullopt;
}

std::optional<RuntimeError> WhyNotTrusted(const std::string& folder) {
  if (!IsDefaultOnFixedDrive(folder)) return std::nullopt;
  // What stands there itself: a stranger's link may lead into a folder of the user's.
  const OpenedHandle opened = OpenFolder(folder, READ_CONTROL, FILE_FLAG_OPEN_REPARSE_POINT);
  if (!opened) {
    const RuntimeError error = LastSystemError();
    return error.Number == ENOENT ? std::nullopt : std::optional(error);
  }
  if (IsOwnOrSystems(opened.get())) return std::nullopt;
  return RuntimeError::OfNumber(EACCES);
}

}  // namespace morvane
