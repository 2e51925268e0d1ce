#pragma once

#include <string>
#include <string_view>

namespace morvane {

class LockPatience;

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
  /// With what patience another program that is at work on the store is waited for from now on;
  /// null: each time anew. It outlives its use.
  virtual void UsePatience(LockPatience* /*patience*/) {}
  /// Where a store that could not be one was put aside before it was written anew; empty when that
  /// has not happened since this was last asked.
  [[nodiscard]] virtual std::string TakePutAside() { return {}; }
  /// A switch counts as on only when its text equals "1".
  [[nodiscard]] bool IsOn(const SettingKey& key) const { return Get(key) == "1"; }
};

}  // namespace morvane
