#include "platform/ini_settings.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "program/setting_keys.h"
#include "support/fakes.h"
#include "support/file_size_limit.h"

namespace morvane {
namespace {

using test::Content;
using test::TempFolder;
using test::WriteContent;

constexpr SettingKey kText{"Setup", "Text", "the default"};
constexpr SettingKey kOther{"Init_settings", "Other", "none"};

class IniSettingsTest : public testing::Test {
 protected:
  TempFolder folder_;
  const std::string path_ = folder_ / "morvane.exe.ini";
  IniSettings store_{path_};
};

TEST_F(IniSettingsTest, ReadingMakesNoFile) {
  EXPECT_EQ(store_.Get(kText), "the default");
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(IniSettingsTest, TheSectionsAreTheGroupsOfAReadableFile) {
  EXPECT_TRUE(store_.Set(kNewLastBoard, "36"));
  EXPECT_TRUE(store_.Set(kServiceFileId, "7"));
  EXPECT_TRUE(store_.Set(kNewFirstBoard, "5"));
  EXPECT_EQ(Content(path_),
            "[Setup]\nNew_LastBoard = 36\nNew_FirstBoard = 5\n\n\n"
            "[Init_settings]\nService File ID = 7\n");
}

TEST_F(IniSettingsTest, AQuotedPathOfAHandMadeFileKeepsItsBackslashes) {
  WriteContent(path_, "[Setup]\r\nText=\"C:\\Deals\\x64\\x \"\r\n");
  EXPECT_EQ(store_.Get(kText), "C:\\Deals\\x64\\x ");
}

TEST_F(IniSettingsTest, AHandMadeFileIsReadWithItsMarkAndAnyLineEnds) {
  WriteContent(path_, "\xEF\xBB\xBF[setup]\rtext = Zo\xC3\xAB \r\n\r\n[INIT_SETTINGS]\nother=2");
  EXPECT_EQ(store_.Get(kText), "Zo\xC3\xAB");
  EXPECT_EQ(store_.Get(kOther), "2");
}

TEST_F(IniSettingsTest, AMarkWithinADamagedFileBelongsToNoName) {
  // What stands before any section is written first, and a mark there would count as the file's.
  const std::string file = "[]\n \xEF\xBB\xBF\xEF\xBB\xBF[Init_settings]Text = 1\n[Own]\nA = 3\n";
  WriteContent(path_, file);
  const std::string before = store_.Get(kOther);
  const std::string text = store_.Get(kText);
  EXPECT_TRUE(store_.Set({"Own", "A", ""}, "4"));
  EXPECT_EQ(store_.Get(kOther), before);
  EXPECT_EQ(store_.Get(kText), text);
  EXPECT_THAT(Content(path_), testing::Not(testing::HasSubstr("\xEF\xBB\xBF")));
}

TEST_F(IniSettingsTest, CommentsAndUnknownKeysStay) {
  WriteContent(path_, "; of the club\n\n[Setup]\nText = 1\n; why\nMine = here\n\n[Own]\nA = 1\n");
  EXPECT_TRUE(store_.Set(kText, "2"));
  const std::string once = Content(path_);
  EXPECT_THAT(once, testing::StartsWith("; of the club"));
  EXPECT_THAT(once, testing::HasSubstr("; why\nMine = here"));
  EXPECT_THAT(once, testing::HasSubstr("[Own]\nA = 1"));
  EXPECT_TRUE(store_.Set(kText, "3"));
  EXPECT_EQ(Content(path_).size(), once.size());
}

TEST_F(IniSettingsTest, AnEquallyLongValueWithinOneTickOfTheFileSystemIsSeen) {
  IniSettings solver(path_);
  ASSERT_TRUE(store_.Set(kSolverDone, "00"));
  ASSERT_EQ(store_.Get(kSolverDone), "00");
  struct stat before {};
  ASSERT_EQ(stat(path_.c_str(), &before), 0);
  ASSERT_TRUE(solver.Set(kSolverDone, "01"));
  const timespec times[] = {before.st_atim, before.st_mtim};
  ASSERT_EQ(utimensat(AT_FDCWD, path_.c_str(), times, 0), 0);
  EXPECT_EQ(store_.Get(kSolverDone), "01");
}

TEST_F(IniSettingsTest, NoWriteOfTwoProcessesAtOnceIsLost) {
  constexpr int kWrites = 40;
  const auto writeAll = [this](const char* section) {
    IniSettings store(path_);
    bool all = true;
    for (int n = 1; n <= kWrites; ++n) {
      const std::string name = "Key" + std::to_string(n);
      all = store.Set({section, name, ""}, std::to_string(n)) && all;
    }
    return all;
  };
  const pid_t child = fork();
  if (child == 0) _exit(writeAll("Child") ? 0 : 1);
  EXPECT_TRUE(writeAll("Parent"));
  int status = 1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  for (int n = 1; n <= kWrites; ++n) {
    const std::string name = "Key" + std::to_string(n);
    EXPECT_EQ(store_.Get({"Child", name, "lost"}), std::to_string(n));
    EXPECT_EQ(store_.Get({"Parent", name, "lost"}), std::to_string(n));
  }
}

TEST_F(IniSettingsTest, TheFolderIsMadeWithTheFirstValue) {
  IniSettings store(folder_ / "a/b/morvane.exe.ini");
  EXPECT_EQ(store.Get(kText), "the default");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "a"));
  EXPECT_TRUE(store.Set(kText, "1"));
  EXPECT_EQ(store.Get(kText), "1");
}

TEST_F(IniSettingsTest, TheFileAndItsLockAreTheirUsersAlone) {
  using std::filesystem::perms;
  const auto rights = [](const std::string& path) {
    return std::filesystem::status(path).permissions();
  };
  ASSERT_TRUE(store_.Set(kText, "1"));
  EXPECT_EQ(rights(path_), perms(0600));
  EXPECT_EQ(rights(path_ + ".lock"), perms(0600));
  for (const bool writes : {false, true}) {
    std::filesystem::permissions(path_, perms(0644));
    std::filesystem::permissions(path_ + ".lock", perms(0666));
    if (writes) {
      EXPECT_TRUE(store_.Set(kText, "2"));
    } else {
      EXPECT_EQ(store_.Get(kText), "1");
    }
    EXPECT_EQ(rights(path_), perms(0600));
    EXPECT_EQ(rights(path_ + ".lock"), perms(0600));
  }
}

TEST_F(IniSettingsTest, APathOutsideAsciiIsUtf8) {
  IniSettings store(folder_ / "Żółć/ä.ini");
  EXPECT_TRUE(store.Set(kText, "1"));
  EXPECT_TRUE(std::filesystem::exists(folder_ / "Żółć/ä.ini"));
}

TEST_F(IniSettingsTest, AFolderThatCannotBeWrittenKeepsNothingAndYieldsDefaults) {
  IniSettings store("/proc/self/morvane.exe.ini");
  EXPECT_FALSE(store.Set(kText, "1"));
  EXPECT_EQ(store.Get(kText), "the default");
}

TEST_F(IniSettingsTest, AFileInPlaceOfTheFolderIsAFailure) {
  WriteContent(folder_ / "plain", "x");
  IniSettings store(folder_ / "plain/morvane.exe.ini");
  EXPECT_FALSE(store.Set(kText, "1"));
  EXPECT_EQ(store.Get(kText), "the default");
}

TEST_F(IniSettingsTest, AFullDiskLeavesTheOldValues) {
  ASSERT_TRUE(store_.Set(kText, "old"));
  const std::string before = Content(path_);
  {
    const test::FileSizeLimit limit(before.size());
    EXPECT_FALSE(store_.Set(kText, "longer"));
  }
  EXPECT_EQ(store_.Get(kText), "old");
  EXPECT_EQ(Content(path_), before);
}

TEST_F(IniSettingsTest, ADirectoryInPlaceOfTheFileIsAFailure) {
  std::filesystem::create_directory(path_);
  EXPECT_FALSE(store_.Set(kText, "1"));
  EXPECT_EQ(store_.Get(kText), "the default");
}

TEST_F(IniSettingsTest, ADeviceInPlaceOfTheFileIsNeitherReadNorWritten) {
  std::filesystem::create_symlink("/dev/zero", path_);  // reading it would never end
  EXPECT_EQ(store_.Get(kText), "the default");
  EXPECT_FALSE(store_.Set(kText, "1"));
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
}

TEST_F(IniSettingsTest, AFileThatExistsButCannotBeReadIsNotReplaced) {
  std::filesystem::create_symlink("/proc/self/mem", path_);  // a plain file that gives EIO
  EXPECT_EQ(store_.Get(kText), "the default");
  EXPECT_FALSE(store_.Set(kText, "1"));
}

TEST_F(IniSettingsTest, ALinkToAnotherFileStaysALink) {
  WriteContent(folder_ / "real.ini", "[Setup]\nText = 1\n");
  std::filesystem::create_symlink("real.ini", path_);
  EXPECT_EQ(store_.Get(kText), "1");
  EXPECT_TRUE(store_.Set(kText, "2"));
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_EQ(Content(folder_ / "real.ini"), "[Setup]\nText = 2\n");
}

TEST_F(IniSettingsTest, NothingIsLeftBesideButTheLock) {
  EXPECT_TRUE(store_.Set(kText, "1"));
  EXPECT_TRUE(store_.Set(kText, "2"));
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
    names.push_back(entry.path().filename().string());
  }
  EXPECT_THAT(names, testing::UnorderedElementsAre("morvane.exe.ini", "morvane.exe.ini.lock"));
}

TEST_F(IniSettingsTest, BytesThatAreNoTextArePutAsideWithoutANulToo) {
  const std::string damaged = "[Setup]\nText = 1\n\x01\x1B\xFFgarbage";
  WriteContent(path_, damaged);
  EXPECT_TRUE(store_.Set(kOther, "2"));
  EXPECT_EQ(Content(path_ + ".damaged"), damaged);
}

TEST_F(IniSettingsTest, AFileThatIsNoTextIsPutAsideBeforeAValueIsWritten) {
  const std::string damaged("[Setup]\nText = 1\n\0\0\0\0", 21);
  WriteContent(path_, damaged);
  EXPECT_EQ(store_.Get(kText), "the default");
  EXPECT_EQ(Content(path_), damaged) << "reading changes nothing";
  EXPECT_EQ(store_.TakePutAside(), "");
  EXPECT_TRUE(store_.Set(kText, "2"));
  EXPECT_EQ(Content(path_), "[Setup]\nText = 2\n");
  EXPECT_EQ(Content(path_ + ".damaged"), damaged);
  EXPECT_EQ(store_.TakePutAside(), path_ + ".damaged");
  EXPECT_EQ(store_.TakePutAside(), "") << "said once";
  EXPECT_TRUE(store_.Set(kText, "3"));
  EXPECT_EQ(store_.TakePutAside(), "");
}

TEST_F(IniSettingsTest, AFileAboveOneMegabyteIsPutAsideToo) {
  const std::string line = "[Setup]\nText = 1\n;";
  WriteContent(path_, line + std::string(1'048'576 - line.size(), 'x'));
  EXPECT_EQ(store_.Get(kText), "1");
  WriteContent(path_, line + std::string(1'048'577 - line.size(), 'x'));
  EXPECT_EQ(store_.Get(kText), "the default");
  EXPECT_TRUE(store_.Set(kOther, "2"));
  EXPECT_EQ(std::filesystem::file_size(path_ + ".damaged"), 1'048'577U);
  EXPECT_EQ(Content(path_), "[Init_settings]\nOther = 2\n");
}

TEST_F(IniSettingsTest, WhatWasPutAsideBeforeStays) {
  using namespace std::string_literals;
  WriteContent(path_ + ".damaged", "first");
  WriteContent(path_, "second\0"s);
  EXPECT_TRUE(store_.Set(kText, "2"));
  WriteContent(path_, "third\0"s);
  EXPECT_TRUE(store_.Set(kText, "3"));
  EXPECT_EQ(store_.TakePutAside(), path_ + ".damaged3");
  EXPECT_EQ(Content(path_ + ".damaged"), "first");
  EXPECT_EQ(Content(path_ + ".damaged2"), "second\0"s);
  EXPECT_EQ(Content(path_ + ".damaged3"), "third\0"s);
}

TEST_F(IniSettingsTest, AValueThatWouldMakeTheFileTooLargeIsNotWritten) {
  ASSERT_TRUE(store_.Set(kText, "1"));
  EXPECT_FALSE(store_.Set(kOther, std::string(1'048'576, 'x')));
  EXPECT_EQ(store_.Get(kText), "1");
}

}  // namespace
}  // namespace morvane
