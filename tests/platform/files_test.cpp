#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <new>

#include "platform/paths.h"
#include "support/fakes.h"
#include "support/file_size_limit.h"
#include "support/plain_user.h"

namespace morvane {
namespace {

using std::filesystem::perms;
using test::PlainUser;
using test::TempFolder;

perms PermissionsOf(const std::string& path) { return std::filesystem::status(path).permissions(); }

std::vector<std::string> NamesIn(const TempFolder& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

/// The working directory while it lives.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::string& path) { std::filesystem::current_path(path); }
  ~WorkingFolder() { std::filesystem::current_path(old_); }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

 private:
  std::filesystem::path old_ = std::filesystem::current_path();
};

TEST(Files, AMissingFileAndADirectoryAreErrors) {
  TempFolder folder;
  std::string bytes;
  EXPECT_EQ(ReadFile(folder / "none", bytes)->Number, ENOENT);
  EXPECT_EQ(ReadFile(folder.Path(), bytes)->Number, EISDIR);
}

TEST(Files, BlockByBlockAFileIsReadWhole) {
  TempFolder folder;
  std::string content;
  for (int i = 0; i < 200'000; ++i) content += static_cast<char>(i % 251);
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{1}, std::size_t{65536}, content.size()}) {
    test::WriteContent(folder / "file", content.substr(0, size));
    std::string bytes;
    std::size_t largest = 0;
    EXPECT_FALSE(ReadBlocks(folder / "file", [&](std::string_view block) {
      EXPECT_FALSE(block.empty());
      bytes += block;
      largest = std::max(largest, block.size());
    }));
    EXPECT_EQ(bytes, content.substr(0, size));
    EXPECT_LE(largest, 65536U);
  }
}

TEST(Files, WhatCannotBeReadWholeCannotBeReadByBlocks) {
  TempFolder folder;
  const auto unexpected = [](std::string_view) { FAIL(); };
  EXPECT_EQ(ReadBlocks(folder / "none", unexpected)->Number, ENOENT);
  EXPECT_EQ(ReadBlocks(folder.Path(), unexpected)->Number, EISDIR);
  EXPECT_EQ(ReadBlocks("/dev/zero", unexpected)->Number, ENOTSUP);
}

TEST(Files, AFileAboveTheLimitIsRefusedAndOneOfThatSizeIsNot) {
  TempFolder folder;
  std::string bytes;
  test::WriteContent(folder / "file", "12345");
  EXPECT_FALSE(ReadFile(folder / "file", bytes, 5));
  EXPECT_EQ(bytes, "12345");
  EXPECT_EQ(ReadFile(folder / "file", bytes, 4)->Number, EFBIG);
  EXPECT_EQ(bytes, "");
  // It says that it has no bytes, and has some.
  EXPECT_EQ(std::filesystem::file_size("/proc/self/status"), 0U);
  EXPECT_EQ(ReadFile("/proc/self/status", bytes, 10)->Number, EFBIG);
}

TEST(Files, MemoryThatDoesNotDoForABlockIsAnError) {
  TempFolder folder;
  test::WriteContent(folder / "file", "x");
  EXPECT_EQ(ReadBlocks(folder / "file", [](std::string_view) { throw std::bad_alloc(); })->Number,
            ENOMEM);
}

TEST(Files, WhatHasNoEndIsNotRead) {
  TempFolder folder;
  std::string bytes;
  std::filesystem::create_symlink("/dev/zero", folder / "endless.pbn");
  EXPECT_EQ(ReadFile(folder / "endless.pbn", bytes)->Number, ENOTSUP);
  ASSERT_EQ(mkfifo((folder / "pipe.pbn").c_str(), 0600), 0);
  EXPECT_EQ(ReadFile(folder / "pipe.pbn", bytes)->Number, ENOTSUP);
}

TEST(Files, APipeThatNobodyReadsIsNotWaitedFor) {
  TempFolder folder;
  const std::string pipe = folder / "pipe.pbn";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(WriteFile(pipe, "bytes")->Number, ENXIO);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  EXPECT_FALSE(WriteFile(pipe, "bytes"));
  std::array<char, 10> got{};
  EXPECT_EQ(read(reader, got.data(), got.size()), 5);
  close(reader);
}

TEST(Files, AFileThatIsReplacedKeepsItsOwnerAndGroup) {
  // Only the superuser can give files away; of anybody else's it stays his.
  const bool mayGive = geteuid() == 0;
  const uid_t owner = mayGive ? 12345 : geteuid();
  const gid_t group = mayGive ? 54321 : getegid();
  TempFolder folder;
  const std::string path = folder / "set.pbn";
  test::WriteContent(path, "old");
  ASSERT_EQ(chown(path.c_str(), owner, group), 0);
  EXPECT_FALSE(WriteFile(path, "new"));
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, owner);
  EXPECT_EQ(status.st_gid, group);
}

TEST(Files, ALinkedFileIsReplacedBehindItsLink) {
  TempFolder folder;
  test::WriteContent(folder / "real.pbn", "old");
  std::filesystem::create_symlink(folder / "real.pbn", folder / "link.pbn");
  EXPECT_FALSE(WriteFile(folder / "link.pbn", "new"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.pbn"));
  EXPECT_EQ(test::Content(folder / "real.pbn"), "new");
  const test::FileSizeLimit limit(100);
  EXPECT_EQ(WriteFile(folder / "link.pbn", std::string(1000, 'x'))->Number, EFBIG);
  EXPECT_EQ(test::Content(folder / "real.pbn"), "new");
}

TEST(Files, TheLongestNameCanBeSavedTwice) {
  TempFolder folder;
  const std::string name(255, 'n');
  EXPECT_FALSE(WriteFile(folder / name, "one"));
  EXPECT_FALSE(WriteFile(folder / name, "two"));
  EXPECT_EQ(test::Content(folder / name), "two");
}

TEST(Files, AReadThatFailsIsAnError) {
  std::string bytes;
  EXPECT_EQ(ReadFile("/proc/self/mem", bytes)->Number, EIO);
}

TEST(Files, AFullDiskIsAnErrorInPlaceAndBeside) {
  TempFolder folder;
  std::filesystem::create_symlink("/dev/full", folder / "set.pbn");
  EXPECT_EQ(WriteFile(folder / "set.pbn", "x")->Number, ENOSPC);
  EXPECT_EQ(AppendLines("/dev/full", "x\r\n")->Number, ENOTSUP);
}

TEST(Files, AFailedSaveLeavesTheOldContent) {
  TempFolder folder;
  test::WriteContent(folder / "set.pbn", "old");
  const std::string bytes(100'000, 'x');
  {
    const test::FileSizeLimit limit(50'000);
    EXPECT_EQ(WriteFile(folder / "set.pbn", bytes)->Number, EFBIG);
  }
  EXPECT_EQ(test::Content(folder / "set.pbn"), "old");
  EXPECT_THAT(NamesIn(folder), testing::ElementsAre("set.pbn"));
}

TEST(Files, AWriteIntoAMissingFolderIsAnError) {
  TempFolder folder;
  EXPECT_EQ(WriteFile(folder / "none/set.pbn", "x")->Number, ENOENT);
  EXPECT_EQ(AppendLines(folder / "none/set.pbn", "x\r\n")->Number, ENOENT);
  EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

TEST(Files, ADirectoryInPlaceOfTheFileIsAnErrorAndStays) {
  TempFolder folder;
  std::filesystem::create_directory(folder / "set.pbn");
  EXPECT_EQ(WriteFile(folder / "set.pbn", "x")->Number, EISDIR);
  EXPECT_EQ(AppendLines(folder / "set.pbn", "x\r\n")->Number, EISDIR);
  EXPECT_TRUE(std::filesystem::is_directory(folder / "set.pbn"));
  EXPECT_THAT(NamesIn(folder), testing::ElementsAre("set.pbn"));
}

TEST(Files, WhatTheUserHasBesideSurvives) {
  TempFolder folder;
  for (const char* name : {"morvane.new", "morvane.new1", "morvane.new2"}) {
    std::filesystem::create_symlink("mine", folder / name);
  }
  test::WriteContent(folder / "mine", "kept");
  test::WriteContent(folder / "set.pbn", "one");
  test::WriteContent(folder / "set.pbn", "two");
  EXPECT_EQ(test::Content(folder / "set.pbn"), "two");
  EXPECT_EQ(test::Content(folder / "mine"), "kept");
  EXPECT_THAT(NamesIn(folder), testing::UnorderedElementsAre("mine", "set.pbn", "morvane.new",
                                                             "morvane.new1", "morvane.new2"));
}

TEST(Files, AFileThatIsReplacedKeepsItsPermissions) {
  TempFolder folder;
  test::WriteContent(folder / "set.pbn", "one");
  // More and less than a new file gets.
  for (const auto kept : {perms(0666), perms(0640), perms(0600)}) {
    std::filesystem::permissions(folder / "set.pbn", kept);
    test::WriteContent(folder / "set.pbn", "two");
    EXPECT_EQ(PermissionsOf(folder / "set.pbn"), kept);
  }
}

TEST(Files, AWriteProtectedFileIsNotReplaced) {
  TempFolder folder;
  test::WriteContent(folder / "set.pbn", "old");
  std::filesystem::permissions(folder / "set.pbn", perms(0444));
  std::filesystem::permissions(folder.Path(), perms(0777));
  {
    const PlainUser user;
    ASSERT_TRUE(user.Ok());
    EXPECT_EQ(WriteFile(folder / "set.pbn", "new")->Number, EACCES);
    EXPECT_FALSE(WriteFile(folder / "other.pbn", "new"));
  }
  EXPECT_EQ(test::Content(folder / "set.pbn"), "old");
  EXPECT_EQ(PermissionsOf(folder / "set.pbn"), perms(0444));
  EXPECT_THAT(NamesIn(folder), testing::UnorderedElementsAre("set.pbn", "other.pbn"));
}

TEST(Files, ANewPrivateFileIsItsUsersAlone) {
  TempFolder folder;
  EXPECT_FALSE(WriteFile(folder / "store", "secret", NewFile::kPrivate));
  EXPECT_EQ(PermissionsOf(folder / "store"), perms(0600));
  std::filesystem::create_symlink("behind", folder / "link");
  EXPECT_FALSE(WriteFile(folder / "link", "secret", NewFile::kPrivate));
  EXPECT_EQ(PermissionsOf(folder / "behind"), perms(0600));
}

TEST(Files, SavingLeavesNothingBeside) {
  TempFolder folder;
  test::WriteContent(folder / "set.pbn", "one");
  test::WriteContent(folder / "set.pbn", "two");
  EXPECT_EQ(test::Content(folder / "set.pbn"), "two");
  EXPECT_THAT(NamesIn(folder), testing::ElementsAre("set.pbn"));
}

TEST(Files, NamesComeApartAtTheLastSeparator) {
  EXPECT_EQ(FileTitle("/a/b/c.pbn"), "c.pbn");
  EXPECT_EQ(FileTitle("c.pbn"), "c.pbn");
  EXPECT_EQ(FolderOf("/a/b/c.pbn"), "/a/b/");
  EXPECT_EQ(FolderOf("c.pbn"), "");
  EXPECT_EQ(FileTitle("a:b.pbn"), "a:b.pbn");
}

TEST(Files, NamesAreJoinedByOneSeparator) {
  EXPECT_EQ(JoinPath("/a/b", "c.pbn"), "/a/b/c.pbn");
  EXPECT_EQ(JoinPath("/a/b/", "c.pbn"), "/a/b/c.pbn");
  EXPECT_EQ(JoinPath("/", "c.pbn"), "/c.pbn");
  EXPECT_EQ(JoinPath("", "c.pbn"), "c.pbn");
  EXPECT_EQ(JoinPath("a\\", "c.pbn"), "a\\/c.pbn");  // a backslash is a letter here
}

TEST(Files, ARelativePathIsMadeAbsoluteAndAnAbsoluteOneStays) {
  TempFolder folder;
  const WorkingFolder here(folder.Path());
  const std::string root = std::filesystem::current_path().string();
  EXPECT_EQ(AbsolutePath("set.pbn"), root + "/set.pbn");
  EXPECT_EQ(AbsolutePath("Żółć/ä.pbn"), root + "/Żółć/ä.pbn");
  EXPECT_EQ(AbsolutePath("/a/b/c.pbn"), "/a/b/c.pbn");
  EXPECT_EQ(AbsolutePath(""), "");
}

TEST(Files, AnAbsolutePathStillMeansTheSameFileBehindALink) {
  TempFolder folder;
  const WorkingFolder here(folder.Path());
  std::filesystem::create_directories("far/away");
  std::filesystem::create_directory_symlink("far/away", "link");
  test::WriteContent("link/../set.pbn", "far's");
  test::WriteContent("set.pbn", "ours");
  EXPECT_EQ(test::Content(AbsolutePath("link/../set.pbn")), "far's");
}

TEST(Files, ATruePathHasNoLinkAndKeepsWhatIsNotThere) {
  TempFolder folder;
  std::filesystem::create_directory(folder / "far");
  std::filesystem::create_directory_symlink(folder / "far", folder / "link");
  const std::string far = TruePath(folder.Path()) + "/far";
  EXPECT_EQ(TruePath(folder / "link"), far);
  EXPECT_EQ(TruePath(folder / "link/none/set.pbn"), far + "/none/set.pbn");
  EXPECT_TRUE(IsAbsolutePath(far));
  EXPECT_FALSE(IsAbsolutePath("far"));
}

TEST(RuntimeError, ACodeGivesItsOwnNumberAndWords) {
  std::error_code code;
  std::filesystem::create_directory("/proc/self/none/none", code);
  const RuntimeError error = RuntimeError::Of(code);
  EXPECT_EQ(error.Number, ENOENT);
  EXPECT_EQ(error.Description, "No such file or directory");
}

}  // namespace
}  // namespace morvane
