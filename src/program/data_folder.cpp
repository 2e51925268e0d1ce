#include "program/data_folder.h"

#include <filesystem>

#include "platform/files.h"

namespace morvane {

std::optional<RuntimeError> EnterDataFolder(const std::string& folder) {
  std::error_code failure;
  const std::filesystem::path path = PathOfUtf8(folder);
  if (std::filesystem::is_directory(path, failure)) return std::nullopt;
  failure.clear();
  std::filesystem::create_directories(path, failure);
  if (failure) return RuntimeError::Of(failure);
  return std::nullopt;
}

std::optional<FileLock> LockDataFolder(const std::string& folder) {
  return FileLock::Wait(JoinPath(folder, "morvane.lock"));
}

}  // namespace morvane
