#include "platform/system_settings.h"

#include "platform/ini_settings.h"
#ifdef _WIN32
#include "platform/windows/registry_settings.h"
#else
#include "platform/user_folders.h"
#endif

namespace morvane {

#ifdef _WIN32

std::string OwnSettingsKey() {
  return std::string("HKEY_CURRENT_USER\\") + RegistrySettings::kOwnKey;
}

std::unique_ptr<Settings> OpenSettings(const std::string& file) {
  if (file.empty()) return std::make_unique<RegistrySettings>();
  return std::make_unique<IniSettings>(file);
}

#else

std::string OwnSettingsKey() { return ""; }

std::unique_ptr<Settings> OpenSettings(const std::string& file) {
  return std::make_unique<IniSettings>(file.empty() ? DefaultSettingsFile() : file);
}

#endif

}  // namespace morvane
