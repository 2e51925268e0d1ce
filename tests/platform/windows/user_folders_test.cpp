#include "platform/user_folders.h"

#include <windows.h>

#include <filesystem>

#include "platform/files.h"
#include "support/fakes.h"

namespace morvane::test {
namespace {

TEST(UserFolders, TheDataStandsOnTheApplicationsDrive) {
  EXPECT_EQ(DefaultDataFolder("C:\\Program Files\\Morvane"), "C:\\Morvane_Data");
  EXPECT_EQ(DefaultDataFolder("e:\\"), "e:\\Morvane_Data");
  EXPECT_EQ(DefaultDataFolder("D:\\Żółć"), "D:\\Morvane_Data");
}

TEST(UserFolders, SettingsThatHaveAFileHaveItWithTheUsersPrograms) {
  _wputenv(L"APPDATA=C:\\users\\Zo\u00EB\\Roaming\\");
  EXPECT_EQ(DefaultSettingsFile(), "C:\\users\\Zo\xC3\xAB\\Roaming\\morvane.exe.ini");
  _wputenv(L"APPDATA=not absolute");
  _wputenv(L"USERPROFILE=C:\\users\\anna");
  EXPECT_EQ(HomeFolder(), "C:\\users\\anna");
  EXPECT_EQ(DefaultSettingsFile(), "C:\\users\\anna\\AppData\\Roaming\\morvane.exe.ini");
}

TEST(UserFolders, TheApplicationFolderHoldsTheRunningProgram) {
  const std::string folder = ApplicationFolder("elsewhere/program");
  EXPECT_TRUE(std::filesystem::exists(PathOfUtf8(JoinPath(folder, "test_platform.exe")))) << folder;
  EXPECT_NE(folder.back(), '\\');
}

}  // namespace
}  // namespace morvane::test
