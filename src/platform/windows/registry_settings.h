#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/settings.h"

namespace morvane {

/// The settings in this user's part of the system's registry, which nobody else reads: a key for
/// the program, one in it for each section, a text value a setting. The system keeps several
/// processes apart, and a value is read and written whole. Any text is kept as it is: where the
/// registry could not hold it as a text (it has a NUL, or is not UTF-8), its bytes are.
class RegistrySettings final : public Settings {
 public:
  /// Where the settings stand when none are named.
  static constexpr const char* kOwnKey = "Software\\morvane.exe";

  /// The key is made with the first value that is set.
  explicit RegistrySettings(std::string key = kOwnKey) : key_(std::move(key)) {}
  [[nodiscard]] std::string Get(const SettingKey& key) const override;
  [[nodiscard]] bool Set(const SettingKey& key, std::string_view value) override;

 private:
  [[nodiscard]] std::wstring SectionOf(const SettingKey& key) const;
  std::string key_;
};

}  // namespace morvane
