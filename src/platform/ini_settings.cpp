#include "platform/ini_settings.h"

#include <filesystem>
#include <optional>

#include "platform/file_lock.h"
#include "platform/files.h"
#include "platform/ini_text.h"

namespace morvane {
namespace {

/// False when there is something that cannot be read; a missing file is an empty store.
bool ReadStore(const std::string& path, std::string& content) {
  std::error_code failure;
  const auto status = std::filesystem::status(PathOfUtf8(path), failure);
  if (status.type() == std::filesystem::file_type::not_found) return true;
  return std::filesystem::is_regular_file(status) && !ReadFile(path, content);
}

std::optional<FileLock> LockOf(const std::string& path) { return FileLock::Wait(path + ".lock"); }

}  // namespace

std::string IniSettings::Get(const SettingKey& key) const {
  const std::string path = FileBehind(path_);
  const auto lock = LockOf(path);  // a folder that cannot be written can still be read
  std::string content;
  if (!ReadStore(path, content)) return std::string(key.Default);
  return IniValue(content, key).value_or(std::string(key.Default));
}

bool IniSettings::Set(const SettingKey& key, std::string_view value) {
  const std::string path = FileBehind(path_);
  std::error_code ignored;  // the lock file tells whether the folder can be written
  std::filesystem::create_directories(PathOfUtf8(FolderOf(path)), ignored);
  const auto lock = LockOf(path);
  std::string content;
  if (!lock || !ReadStore(path, content)) return false;
  const auto changed = WithIniValue(content, key, value);
  return changed && !WriteLockedFile(path, *changed, NewFile::kPrivate);
}

}  // namespace morvane
