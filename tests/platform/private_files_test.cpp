// Who may read what we write, whatever the umask, and what was there before.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "platform/file_lock.h"
#include "platform/files.h"
#include "support/fakes.h"

namespace morvane {
namespace {

using test::TempFolder;

/// The umask while it lives.
class Umask {
 public:
  explicit Umask(mode_t mask) : old_(umask(mask)) {}
  ~Umask() { umask(old_); }
  Umask(const Umask&) = delete;
  Umask& operator=(const Umask&) = delete;

 private:
  mode_t old_;
};

mode_t RightsOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 07777U;
}

/// Makes each kind of private thing in `folder`.
void MakeAll(const TempFolder& folder) {
  EXPECT_FALSE(MakePrivateFolder(folder / "data"));
  EXPECT_FALSE(AppendLines(folder / "data/log", "x\r\n", NewFile::kPrivate));
  EXPECT_FALSE(WriteFile(folder / "data/file", "x", NewFile::kPrivate));
  EXPECT_FALSE(WriteLockedFile(folder / "data/history", "x", NewFile::kPrivate));
  EXPECT_TRUE(FileLock::Try(folder / "data/lock"));
}

constexpr std::array kFiles{"data/log", "data/file", "data/history", "data/lock"};

class PrivateFiles : public testing::TestWithParam<mode_t> {};

TEST_P(PrivateFiles, AreTheirUsersAloneWhateverTheUmask) {
  TempFolder folder;
  const Umask mask(GetParam());
  MakeAll(folder);
  EXPECT_EQ(RightsOf(folder / "data"), 0700U);
  for (const char* file : kFiles) EXPECT_EQ(RightsOf(folder / file), 0600U) << file;
}

TEST_P(PrivateFiles, LoseTheRightsOfOthersWhenTheyAreUsedAgain) {
  TempFolder folder;
  MakeAll(folder);
  ASSERT_EQ(chmod((folder / "data").c_str(), 0755), 0);
  for (const char* file : kFiles) ASSERT_EQ(chmod((folder / file).c_str(), 0666), 0);
  const Umask mask(GetParam());
  MakeAll(folder);
  EXPECT_EQ(RightsOf(folder / "data"), 0700U);
  for (const char* file : kFiles) EXPECT_EQ(RightsOf(folder / file), 0600U) << file;
}

TEST_P(PrivateFiles, ASavedSetFollowsTheUmask) {
  TempFolder folder;
  const Umask mask(GetParam());
  EXPECT_FALSE(WriteFile(folder / "set.pbn", "x"));
  EXPECT_EQ(RightsOf(folder / "set.pbn"), 0666U & ~GetParam());
}

INSTANTIATE_TEST_SUITE_P(Umasks, PrivateFiles, testing::Values(0, 022, 077, 0777));

TEST(MakePrivate, LeavesWhatManyShareOnPurposeAndWhatIsNotThere) {
  TempFolder folder;
  std::filesystem::create_directory(folder / "shared");
  ASSERT_EQ(chmod((folder / "shared").c_str(), 01777), 0);
  EXPECT_FALSE(MakePrivateFolder(folder / "shared"));
  EXPECT_EQ(RightsOf(folder / "shared"), 01777U);
  const mode_t root = RightsOf("/");
  MakePrivate("/");
  EXPECT_EQ(RightsOf("/"), root);
  MakePrivate(folder / "none");
  EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

TEST(MakePrivate, GivesItsUserNothingMore) {
  TempFolder folder;
  test::WriteContent(folder / "file", "x");
  ASSERT_EQ(chmod((folder / "file").c_str(), 0444), 0);
  MakePrivate(folder / "file");
  EXPECT_EQ(RightsOf(folder / "file"), 0400U);
}

TEST(MakePrivate, TouchesNothingThatBelongsToAnother) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give files away";
  constexpr uid_t kAnother = 12345;
  TempFolder folder;
  MakeAll(folder);
  for (const char* file : kFiles) {
    ASSERT_EQ(chmod((folder / file).c_str(), 0644), 0);
    ASSERT_EQ(chown((folder / file).c_str(), kAnother, kAnother), 0);
  }
  ASSERT_EQ(chmod((folder / "data").c_str(), 0755), 0);
  ASSERT_EQ(chown((folder / "data").c_str(), kAnother, kAnother), 0);
  MakeAll(folder);
  EXPECT_EQ(RightsOf(folder / "data"), 0755U);
  for (const char* file : kFiles) EXPECT_EQ(RightsOf(folder / file), 0644U) << file;
}

TEST(MakePrivateFolder, TellsWhatStandsInItsPlace) {
  TempFolder folder;
  test::WriteContent(folder / "plain", "x");
  EXPECT_EQ(MakePrivateFolder(folder / "plain")->Number, ENOTDIR);
  EXPECT_EQ(MakePrivateFolder(folder / "plain/data")->Number, ENOTDIR);
  EXPECT_EQ(MakePrivateFolder("/proc/self/data")->Number, ENOENT);
  EXPECT_FALSE(MakePrivateFolder(folder / "several/parents/data"));
  EXPECT_EQ(RightsOf(folder / "several/parents/data"), 0700U);
}

/// Whether `attempt` succeeds in a process of another user.
template <typename Attempt>
bool AnotherUserCan(Attempt attempt) {
  constexpr uid_t kNobody = 65534;
  const pid_t child = fork();
  if (child == 0) {
    if (setgid(kNobody) != 0 || setuid(kNobody) != 0) _exit(2);
    _exit(attempt() ? 1 : 0);
  }
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_NE(WEXITSTATUS(status), 2) << "no other user";
  return WEXITSTATUS(status) == 1;
}

TEST(PrivateFilesOfTwoUsers, AnotherUserReadsNoneAndHoldsNoLock) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can become another";
  TempFolder folder;
  ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
  const Umask mask(0);
  MakeAll(folder);
  const auto opens = [&folder](const std::string& name) {
    return AnotherUserCan([path = folder / name] { return open(path.c_str(), O_RDONLY) >= 0; });
  };
  EXPECT_FALSE(opens("data"));
  // Also where the folder itself is open to others.
  ASSERT_EQ(chmod((folder / "data").c_str(), 0755), 0);
  EXPECT_TRUE(opens("data")) << "the other user is one that could";
  for (const char* file : kFiles) EXPECT_FALSE(opens(file)) << file;
  EXPECT_FALSE(AnotherUserCan([&] { return FileLock::Try(folder / "data/lock").has_value(); }));
}

TEST(PrivateFolder, ThatAnotherProgramMakesMeanwhileIsThereAllTheSame) {
  const test::TempFolder folder;
  // The folder is there by the time that it is made, as its own parent.
  EXPECT_EQ(MakePrivateFolder(folder / "new/."), std::nullopt);
  EXPECT_EQ(std::filesystem::status(folder / "new").permissions(),
            std::filesystem::perms::owner_all);
}

}  // namespace
}  // namespace morvane
