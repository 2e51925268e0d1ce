#include "platform/system_settings.h"

#include "platform/ini_settings.h"
#ifdef _WIN32
#include "platform/windows/registry_settings.h"
#else
#include "platform/user_folders.h"
#endif

namespace morvane {
namespace {

#ifdef _WIN32
std::unique_ptr<Settings> OpenOwn() { return std::make_unique<RegistrySettings>(); }
#else
std::unique_ptr<Settings> OpenOwn() { return std::make_unique<IniSettings>(DefaultSettingsFile()); }
#endif

}  // namespace

#ifdef _WIN32
std::string OwnSettingsKey() {
  return std::string("HKEY_CURRENT_USER\\") + RegistrySettings::kOwnKey;
}
#else
std::string OwnSettingsKey() { return ""; }
#endif

std::unique_ptr<Settings> OpenSettings(const std::string& file) {
  return file.empty() ? OpenOwn() : std::make_unique<IniSettings>(file);
}

}  // namespace morvane
