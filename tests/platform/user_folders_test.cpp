#include "platform/user_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>

#include "support/fakes.h"

namespace morvane {
namespace {

class UserFolders : public testing::Test {
 protected:
  UserFolders() {
    for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"}) {
      const char* text = std::getenv(name);
      old_[name] = text == nullptr ? std::nullopt : std::optional<std::string>(text);
      unsetenv(name);
    }
    setenv("HOME", "/home/anna", 1);
  }
  ~UserFolders() override {
    for (const auto& [name, text] : old_) {
      if (text) {
        setenv(name.c_str(), text->c_str(), 1);
      } else {
        unsetenv(name.c_str());
      }
    }
  }

 private:
  std::map<std::string, std::optional<std::string>> old_;
};

TEST_F(UserFolders, WithoutSettingsOfTheirOwnTheyAreInTheHome) {
  EXPECT_EQ(HomeFolder(), "/home/anna");
  EXPECT_EQ(DefaultDataFolder("/usr/bin"), "/home/anna/.local/share/Morvane_Data");
  EXPECT_EQ(DefaultSettingsFile(), "/home/anna/.config/morvane.exe.ini");
}

TEST_F(UserFolders, TheDesktopsFoldersGoFirst) {
  setenv("XDG_DATA_HOME", "/data/Żółć", 1);
  setenv("XDG_CONFIG_HOME", "/conf", 1);
  EXPECT_EQ(DefaultDataFolder("/usr/bin"), "/data/Żółć/Morvane_Data");
  EXPECT_EQ(DefaultSettingsFile(), "/conf/morvane.exe.ini");
}

TEST_F(UserFolders, ASeparatorAtTheEndIsDropped) {
  setenv("HOME", "/home/anna/", 1);
  setenv("XDG_CONFIG_HOME", "/conf/", 1);
  EXPECT_EQ(HomeFolder(), "/home/anna");
  EXPECT_EQ(DefaultSettingsFile(), "/conf/morvane.exe.ini");
  setenv("HOME", "/", 1);
  EXPECT_EQ(HomeFolder(), "/");
  EXPECT_EQ(DefaultDataFolder(""), "/.local/share/Morvane_Data");
}

TEST_F(UserFolders, AnEmptyOrRelativeFolderDoesNotCount) {
  setenv("XDG_DATA_HOME", "", 1);
  setenv("XDG_CONFIG_HOME", "conf", 1);
  EXPECT_EQ(DefaultDataFolder(""), "/home/anna/.local/share/Morvane_Data");
  EXPECT_EQ(DefaultSettingsFile(), "/home/anna/.config/morvane.exe.ini");
}

TEST_F(UserFolders, WithoutAHomeInTheEnvironmentThePasswordFileTells) {
  unsetenv("HOME");
  const std::string home = HomeFolder();
  const passwd* const entry = getpwuid(getuid());
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(home, entry->pw_dir);
}

TEST_F(UserFolders, ATypedPathStaysAsItIs) {
  EXPECT_EQ(TypedPath("%HOME%/$HOME/x"), "%HOME%/$HOME/x");
}

TEST_F(UserFolders, TheApplicationFolderHoldsTheRunningProgram) {
  const std::string folder = ApplicationFolder("elsewhere/program");
  EXPECT_TRUE(std::filesystem::exists(folder + "/" + program_invocation_short_name)) << folder;
  EXPECT_NE(folder.back(), '/');
}

}  // namespace
}  // namespace morvane
