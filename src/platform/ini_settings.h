#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "platform/file_lock.h"
#include "platform/settings.h"

namespace morvane {

/// The settings in an INI file, the sections as its groups. Each access locks (`<file>.lock`),
/// reads the file afresh and, to write, writes beside and renames, so that several processes may
/// share one file. Any text is kept as it is. What cannot be read of a damaged file counts as never
/// written; the rest stays. A file that is no text (it has a NUL) or larger than `kMostBytes` holds
/// nothing; before a value is written it goes beside, to `<file>.damaged`.
class IniSettings final : public Settings {
 public:
  static constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 20U;  ///< 1 MB

  /// The file and its folder are made with the first value that is set; the file is its user's
  /// alone, since it holds the random pool.
  explicit IniSettings(std::string path) : path_(std::move(path)) {}
  [[nodiscard]] std::string Get(const SettingKey& key) const override;
  [[nodiscard]] bool Set(const SettingKey& key, std::string_view value) override;
  void UsePatience(LockPatience* patience) override { patience_ = patience; }
  [[nodiscard]] std::string TakePutAside() override { return std::exchange(putAside_, {}); }

 private:
  [[nodiscard]] std::optional<FileLock> LockOf(const std::string& path) const;

  std::string path_;
  std::string putAside_;
  LockPatience* patience_ = nullptr;
};

}  // namespace morvane
