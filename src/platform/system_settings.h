#pragma once

#include <memory>
#include <string>

#include "platform/settings.h"

namespace morvane {

/// The settings store in `file`; without one the user's own, which is the registry on Windows, and
/// the file `DefaultSettingsFile` elsewhere.
[[nodiscard]] std::unique_ptr<Settings> OpenSettings(const std::string& file);

/// The registry's key with the user's own settings, as the system's tools name it; empty where they
/// stand in a file.
[[nodiscard]] std::string OwnSettingsKey();

}  // namespace morvane
