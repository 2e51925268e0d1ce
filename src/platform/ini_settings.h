#pragma once

#include <string>

#include "platform/settings.h"

namespace morvane {

/// The settings in an INI file, the sections as its groups. Each access locks (`<file>.lock`),
/// reads the file afresh and, to write, writes beside and renames, so that several processes may
/// share one file. Any text is kept as it is. What cannot be read of a damaged file counts as never
/// written; the rest stays.
class IniSettings final : public Settings {
 public:
  /// The file and its folder are made with the first value that is set; the file is its user's
  /// alone, since it holds the random pool.
  explicit IniSettings(std::string path) : path_(std::move(path)) {}
  [[nodiscard]] std::string Get(const SettingKey& key) const override;
  [[nodiscard]] bool Set(const SettingKey& key, std::string_view value) override;

 private:
  std::string path_;
};

}  // namespace morvane
