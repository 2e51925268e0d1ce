#include <filesystem>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/windows/access_list.h"
#include "platform/windows/full_path.h"
#include "platform/windows/system_error.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

/// What many share on purpose stays as it is: the root of a drive.
bool IsRoot(const std::string& path) {
  const std::string real = TruePath(path);
  return RootOf(real) == real;
}

}  // namespace

void MakePrivate(const std::string& path) {
  const fs::path name = PathOfUtf8(path);
  if (IsRoot(path) || !IsOwnAndTooOpen(name.wstring())) return;
  OwnAccess().GiveTo(name.wstring());
}

std::optional<RuntimeError> MakePrivateFolder(const std::string& path) {
  const fs::path folder = PathOfUtf8(path);
  std::error_code failure;
  if (!fs::is_directory(folder, failure)) {
    fs::create_directories(folder.parent_path(), failure);
    OwnAccess own;
    if (CreateDirectoryW(folder.c_str(), own.Get())) return std::nullopt;
    const RuntimeError error = LastSystemError();
    // Another program may have made it just now.
    if (!fs::is_directory(folder, failure)) {
      return error.Number == EEXIST ? RuntimeError::OfNumber(ENOTDIR) : error;
    }
  }
  MakePrivate(path);
  return std::nullopt;
}

}  // namespace morvane
