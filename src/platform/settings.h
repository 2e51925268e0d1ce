#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// Where a setting stands, and what it is where it was never written. Every value is a text.
struct SettingKey {
  std::string_view Section;
  std::string_view Name;
  std::string_view Default;
};

/// The per-user settings store.
class Settings {
 public:
  virtual ~Settings() = default;
  [[nodiscard]] virtual std::string Get(const SettingKey& key) const = 0;
  /// False when the store could not be written; the value is then as it was.
  [[nodiscard]] virtual bool Set(const SettingKey& key, std::string_view value) = 0;
  /// A switch counts as on only when its text equals "1".
  [[nodiscard]] bool IsOn(const SettingKey& key) const { return Get(key) == "1"; }
};

}  // namespace morvane
