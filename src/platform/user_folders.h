#pragma once

#include <string>

namespace morvane {

// Where things are for this user, as absolute paths without a separator at the end. Nothing is made
// here.

/// A variable of the environment; empty where it is not set.
[[nodiscard]] std::string EnvironmentText(const char* name);
/// A path as somebody typed it. On Windows `%NAME%` in it is the variable's text, as no command
/// prompt has put it in where a link starts the program; a name that is not set stays.
[[nodiscard]] std::string TypedPath(const std::string& typed);
[[nodiscard]] std::string HomeFolder();
/// The folder of the running program. `argv0` serves where the system does not tell.
[[nodiscard]] std::string ApplicationFolder(const std::string& argv0);
/// `Morvane_Data` on the application's drive on Windows, in the user's data folder elsewhere.
[[nodiscard]] std::string DefaultDataFolder(const std::string& applicationFolder);
/// `morvane.exe.ini` in the user's configuration folder. On Windows no settings stand in it, for
/// the registry has them; but the lock of the one running program stands beside it, and so in the
/// folder that stays on this computer.
[[nodiscard]] std::string DefaultSettingsFile();

}  // namespace morvane
