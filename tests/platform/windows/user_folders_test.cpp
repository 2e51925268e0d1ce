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

TEST(UserFolders, TheLockOfTheRunningProgramStaysOnThisComputer) {
  _wputenv(L"APPDATA=C:\\users\\Zo\u00EB\\Roaming");
  _wputenv(L"LOCALAPPDATA=C:\\users\\Zo\u00EB\\Local\\");
  EXPECT_EQ(DefaultSettingsFile(), "C:\\users\\Zo\xC3\xAB\\Local\\morvane.exe.ini");
  _wputenv(L"LOCALAPPDATA=not absolute");
  _wputenv(L"USERPROFILE=C:\\users\\anna");
  EXPECT_EQ(HomeFolder(), "C:\\users\\anna");
  EXPECT_EQ(DefaultSettingsFile(), "C:\\users\\anna\\AppData\\Local\\morvane.exe.ini");
}

TEST(UserFolders, AVariableInATypedPathIsItsText) {
  SetEnvironmentVariableW(L"MORVANE_TEST_PLACE", L"C:\\users\\Zo\u00EB");
  EXPECT_EQ(TypedPath("%MORVANE_TEST_PLACE%\\Morvane_Data"), "C:\\users\\Zo\xC3\xAB\\Morvane_Data");
  EXPECT_EQ(TypedPath("D:\\%morvane_test_place%"), "D:\\C:\\users\\Zo\xC3\xAB");
  SetEnvironmentVariableW(L"MORVANE_TEST_PLACE", nullptr);
}

TEST(UserFolders, WhatIsNoVariableInATypedPathStaysAsItIs) {
  for (const char* path : {"", "C:\\", "C:\\%MORVANE_TEST_OF_NOBODY%\\x", "C:\\100%\\x",
                           "C:\\50% or 60%\\x", "D:\\\u017B\u00F3\u0142\u0107 \u2660"}) {
    EXPECT_EQ(TypedPath(path), path);
  }
}

TEST(UserFolders, TheApplicationFolderHoldsTheRunningProgram) {
  const std::string folder = ApplicationFolder("elsewhere/program");
  EXPECT_TRUE(std::filesystem::exists(PathOfUtf8(JoinPath(folder, "test_platform.exe")))) << folder;
  EXPECT_NE(folder.back(), '\\');
}

}  // namespace
}  // namespace morvane::test
