#include "platform/instance_lock.h"

#include <filesystem>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/utf8_of_path.h"

#ifdef _WIN32
#include <windows.h>

#include <array>
#else
#include <unistd.h>
#endif

namespace morvane {
namespace {

#ifdef _WIN32

/// The system allows no character in a user's name that a file name may not have.
std::filesystem::path UserText() {
  std::array<wchar_t, 257> name{};
  DWORD size = static_cast<DWORD>(name.size());
  return GetUserNameW(name.data(), &size) != 0 ? name.data() : L"";
}

#else

std::filesystem::path UserText() { return std::to_string(getuid()); }

#endif

/// Where the store is or will be. The file need not be there yet, so that a link is followed even
/// when it leads to nothing; links among the folders are the system's business.
std::filesystem::path BehindLinks(std::filesystem::path path) {
  constexpr int kMostLinks = 40;
  std::error_code failure;
  for (int i = 0; i < kMostLinks; ++i) {
    const auto target = std::filesystem::read_symlink(path, failure);
    if (failure) break;
    path = path.parent_path() / target;
  }
  return path;
}

}  // namespace

bool InstanceLock::Claim() {
  if (lock_) return true;
  std::error_code ignored;  // the lock file tells whether the folder can be written
  std::filesystem::create_directories(PathOfUtf8(FolderOf(settingsFile_)), ignored);
  auto path = BehindLinks(PathOfUtf8(settingsFile_));
  path += ".";
  path += UserText();
  path += ".instance";
  path_ = Utf8OfPath(path);
  bool held = false;
  lock_ = FileLock::Try(path_, held);
  return !held;
}

std::string InstanceLock::Key() const {
  std::error_code failure;
  return std::filesystem::exists(PathOfUtf8(path_), failure) ? TruePath(path_) : "";
}

}  // namespace morvane
