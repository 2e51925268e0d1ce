#include "program/data_folder.h"

#include "platform/files.h"
#include "platform/folder_access.h"
#include "platform/utf8_of_path.h"

namespace morvane {

std::optional<RuntimeError> EnterDataFolder(const std::string& folder) {
  if (auto error = WhyNotTrusted(folder)) return error;
  if (auto error = MakePrivateFolder(folder)) return error;
  return WhyNotEntered(folder);
}

std::optional<RuntimeError> WhyNoDataFolder(const std::string& folder) {
  if (auto error = WhyNotTrusted(folder)) return error;
  return WhyNotEntered(folder);
}

std::optional<FileLock> LockDataFolder(const std::string& folder, LockPatience& patience) {
  return patience.Lock(JoinPath(folder, "morvane.lock"), "log and history");
}

std::string BasePathOf(const std::string& dataFolder) {
  return Utf8OfPath(PathOfUtf8(dataFolder).parent_path());
}

}  // namespace morvane
