#include "platform/ini_settings.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "platform/files.h"
#include "platform/ini_text.h"
#include "platform/lock_patience.h"
#include "platform/put_aside.h"

namespace morvane {
namespace {

enum class StoreIs { kText, kNoText, kUnreadable };

/// Of any encoding; bytes that stand in no text are those that steer something.
bool IsText(const std::string& content) {
  return std::none_of(content.begin(), content.end(), [](char c) {
    return (c >= 0 && c < ' ' && c != '\t' && c != '\r' && c != '\n') || c == '\x7F';
  });
}

/// A missing file is an empty store.
StoreIs ReadStore(const std::string& path, std::string& content) {
  std::error_code failure;
  const auto status = std::filesystem::status(PathOfUtf8(path), failure);
  if (status.type() == std::filesystem::file_type::not_found) return StoreIs::kText;
  if (!std::filesystem::is_regular_file(status)) return StoreIs::kUnreadable;
  MakePrivate(path);
  const auto error = ReadFile(path, content, IniSettings::kMostBytes);
  const bool isText = !error && IsText(content);
  if (!isText) content.clear();
  if (isText) return StoreIs::kText;
  return !error || error->Number == EFBIG ? StoreIs::kNoText : StoreIs::kUnreadable;
}

}  // namespace

std::optional<FileLock> IniSettings::LockOf(const std::string& path) const {
  const std::string lock = path + ".lock";
  return patience_ != nullptr ? patience_->Lock(lock, "settings") : FileLock::Wait(lock);
}

std::string IniSettings::Get(const SettingKey& key) const {
  const std::string path = FileBehind(path_);
  const auto lock = LockOf(path);  // a folder that cannot be written can still be read
  std::string content;
  if (ReadStore(path, content) != StoreIs::kText) return std::string(key.Default);
  return IniValue(content, key).value_or(std::string(key.Default));
}

bool IniSettings::Set(const SettingKey& key, std::string_view value) {
  const std::string path = FileBehind(path_);
  std::error_code ignored;  // the lock file tells whether the folder can be written
  std::filesystem::create_directories(PathOfUtf8(FolderOf(path)), ignored);
  const auto lock = LockOf(path);
  if (!lock) return false;
  std::string content;
  const StoreIs store = ReadStore(path, content);
  if (store == StoreIs::kUnreadable) return false;
  const auto changed = WithIniValue(content, key, value);
  if (!changed || changed->size() > kMostBytes) return false;
  if (store == StoreIs::kNoText) {
    putAside_ = PutAside(path);
    if (putAside_.empty()) return false;
  }
  return !WriteLockedFile(path, *changed, NewFile::kPrivate);
}

}  // namespace morvane
