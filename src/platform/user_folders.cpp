#include "platform/user_folders.h"

#include <cstdlib>
#include <filesystem>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/utf8_of_path.h"

#ifdef _WIN32
#include <windows.h>

#include "platform/windows/full_path.h"
#include "platform/windows/wide.h"
#else
#include <pwd.h>
#include <unistd.h>
#endif

namespace morvane {
namespace {

constexpr std::string_view kDataFolder = "Morvane_Data";
constexpr std::string_view kSettingsFile = "morvane.exe.ini";

/// A folder from the environment; only an absolute path counts.
std::string EnvironmentFolder(const char* name) {
  const std::string text = EnvironmentText(name);
  if (!IsAbsolutePath(text)) return {};
  std::filesystem::path folder = PathOfUtf8(text);
  if (!folder.has_filename() && folder.has_relative_path()) folder = folder.parent_path();
  return Utf8OfPath(folder);
}

}  // namespace

#ifdef _WIN32

std::string EnvironmentText(const char* name) {
  const wchar_t* const text = _wgetenv(Wide(name).c_str());
  return text == nullptr ? "" : Utf8(text);
}

std::string TypedPath(const std::string& typed) {
  const std::wstring text = Wide(typed);
  std::wstring path(ExpandEnvironmentStringsW(text.c_str(), nullptr, 0), L'\0');
  const DWORD size =
      ExpandEnvironmentStringsW(text.c_str(), path.data(), static_cast<DWORD>(path.size()));
  if (size == 0 || size > path.size()) return typed;
  path.resize(size - 1);
  return Utf8(path);
}

std::string HomeFolder() {
  const std::string home = EnvironmentFolder("USERPROFILE");
  return home.empty() ? AbsolutePath("\\") : home;
}

std::string ApplicationFolder(const std::string& argv0) {
  constexpr DWORD kLongestPath = 32768;
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), kLongestPath));
  if (path.empty()) return Utf8OfPath(PathOfUtf8(AbsolutePath(argv0)).parent_path());
  return Utf8OfPath(std::filesystem::path(path).parent_path());
}

std::string DefaultDataFolder(const std::string& applicationFolder) {
  return JoinPath(RootOf(applicationFolder), kDataFolder);
}

std::string DefaultSettingsFile() {
  const std::string folder = EnvironmentFolder("LOCALAPPDATA");
  return JoinPath(folder.empty() ? JoinPath(HomeFolder(), "AppData\\Local") : folder,
                  kSettingsFile);
}

#else

std::string EnvironmentText(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? "" : text;
}

std::string TypedPath(const std::string& typed) { return typed; }

std::string HomeFolder() {
  if (std::string home = EnvironmentFolder("HOME"); !home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
}

std::string ApplicationFolder(const std::string& argv0) {
  std::error_code failure;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
  return Utf8OfPath((failure ? PathOfUtf8(AbsolutePath(argv0)) : program).parent_path());
}

std::string DefaultDataFolder(const std::string& /*applicationFolder*/) {
  const std::string folder = EnvironmentFolder("XDG_DATA_HOME");
  return JoinPath(folder.empty() ? JoinPath(HomeFolder(), ".local/share") : folder, kDataFolder);
}

std::string DefaultSettingsFile() {
  const std::string folder = EnvironmentFolder("XDG_CONFIG_HOME");
  return JoinPath(folder.empty() ? JoinPath(HomeFolder(), ".config") : folder, kSettingsFile);
}

#endif

}  // namespace morvane
