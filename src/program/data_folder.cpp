#include "program/data_folder.h"

#include "platform/files.h"

namespace morvane {

std::optional<RuntimeError> EnterDataFolder(const std::string& folder) {
  return MakePrivateFolder(folder);
}

std::optional<FileLock> LockDataFolder(const std::string& folder, LockPatience& patience) {
  return patience.Lock(JoinPath(folder, "morvane.lock"), "log and history");
}

std::string BasePathOf(const std::string& dataFolder) {
  const std::u8string base = PathOfUtf8(dataFolder).parent_path().u8string();
  return {base.begin(), base.end()};
}

}  // namespace morvane
