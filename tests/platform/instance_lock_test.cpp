#include "platform/instance_lock.h"

#include <filesystem>

#include "support/fakes.h"

#ifdef _WIN32
#include <windows.h>

#include "platform/windows/other_process.h"
#else
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace morvane {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32

TEST(InstanceLockProcess, DISABLED_ClaimsAndDies) {
  const std::string store = test::OtherProcess::About();
  InstanceLock lock(store);
  if (lock.Claim() && lock.Held()) test::WriteContent(store + ".claimed", "");
  test::OtherProcess::Die();
}

/// Whether another program that has the lock has ended without giving it back.
bool ClaimsAndDies(const std::string& store) {
  const test::OtherProcess other("InstanceLockProcess.DISABLED_ClaimsAndDies", store);
  return other.Ends() && fs::exists(store + ".claimed");
}

std::string UserText() {
  const wchar_t* const name = _wgetenv(L"USERNAME");
  return name == nullptr ? "" : Utf8(name);
}

#else

bool ClaimsAndDies(const std::string& store) {
  const pid_t child = fork();
  if (child == 0) {
    InstanceLock lock(store);
    const bool claimed = lock.Claim() && lock.Held();
    _exit(claimed ? 0 : 1);
  }
  int status = 1;
  return waitpid(child, &status, 0) == child && status == 0;
}

std::string UserText() { return std::to_string(getuid()); }

#endif

class InstanceLockTest : public ::testing::Test {
 protected:
  test::TempFolder folder;
  const std::string store = folder / "store.ini";
  const std::string suffix = "." + UserText() + ".instance";

  /// Whether programs started with these two paths count as one.
  static bool SameStore(const std::string& one, const std::string& other) {
    InstanceLock first(one);
    EXPECT_TRUE(first.Claim());
    EXPECT_TRUE(first.Held());
    InstanceLock second(other);
    const bool same = !second.Claim();
    EXPECT_NE(first.Key(), "");
    EXPECT_EQ(first.Key() == second.Key(), same);
    return same;
  }
};

TEST_F(InstanceLockTest, IsHeldByTheFirstUntilItGoes) {
  InstanceLock second(store);
  {
    InstanceLock first(store);
    EXPECT_TRUE(first.Claim());
    EXPECT_FALSE(second.Claim());
    EXPECT_FALSE(second.Held());
    EXPECT_TRUE(first.Claim()) << "its own lock is no other's";
  }
  EXPECT_TRUE(second.Claim());
  EXPECT_TRUE(second.Held());
}

TEST_F(InstanceLockTest, StandsBesideTheStoreUnderTheUsersNumber) {
  InstanceLock lock(store);
  EXPECT_TRUE(lock.Claim());
  EXPECT_TRUE(fs::is_regular_file(store + suffix));
  EXPECT_FALSE(fs::exists(store)) << "the store itself is not touched";
#ifndef _WIN32
  EXPECT_EQ(fs::status(store + suffix).permissions(), fs::perms(0600));
#endif
}

TEST_F(InstanceLockTest, IsNotTheLockOfTheStoresValues) {
  const auto values = FileLock::Try(store + ".lock");
  ASSERT_TRUE(values);
  InstanceLock lock(store);
  EXPECT_TRUE(lock.Claim());
  EXPECT_TRUE(lock.Held());
}

TEST_F(InstanceLockTest, AProgramThatDiesLeavesIt) {
  ASSERT_TRUE(ClaimsAndDies(store));
  InstanceLock lock(store);
  EXPECT_TRUE(lock.Claim());
  EXPECT_TRUE(lock.Held());
}

TEST_F(InstanceLockTest, AnotherStoreIsAnotherLock) {
  EXPECT_FALSE(SameStore(store, folder / "other.ini"));
  fs::create_directory(folder / "sub");
  EXPECT_FALSE(SameStore(store, folder / "sub/store.ini"));
}

#ifndef _WIN32  // links are made by administrators there

TEST_F(InstanceLockTest, TheSameStoreThroughALinkIsTheSame) {
  test::WriteContent(store, "");
  fs::create_directory(folder / "sub");
  fs::create_symlink(store, folder / "sub/link.ini");
  fs::create_symlink("link.ini", folder / "sub/chain.ini");
  fs::create_directory_symlink(folder.Path(), folder / "sub/folder");
  EXPECT_TRUE(SameStore(store, folder / "sub/link.ini"));
  EXPECT_TRUE(SameStore(folder / "sub/chain.ini", store));
  EXPECT_TRUE(SameStore(store, folder / "sub/folder/store.ini"));
  EXPECT_TRUE(SameStore(folder / "sub/folder/sub/link.ini", folder / "sub/../store.ini"));
}

TEST_F(InstanceLockTest, AStoreThatIsNotMadeYetIsTheSameThroughALinkToo) {
  fs::create_directory(folder / "sub");
  fs::create_symlink("../store.ini", folder / "sub/link.ini");
  InstanceLock first(folder / "sub/link.ini");
  EXPECT_TRUE(first.Claim());
  InstanceLock second(store);
  EXPECT_FALSE(second.Claim());
  test::WriteContent(store, "made by the first");
  EXPECT_FALSE(InstanceLock(folder / "sub/link.ini").Claim());
  EXPECT_FALSE(InstanceLock(store).Claim());
}

#endif

TEST_F(InstanceLockTest, ARelativePathIsTheSameStore) {
  fs::create_directory(folder / "sub");
  const fs::path before = fs::current_path();
  fs::current_path(folder / "sub");
  EXPECT_TRUE(SameStore(store, "../store.ini"));
  fs::current_path(before);
}

#ifndef _WIN32  // links are made by administrators there
TEST_F(InstanceLockTest, LinksInACircleEndInALockAllTheSame) {
  fs::create_symlink("b.ini", folder / "a.ini");
  fs::create_symlink("a.ini", folder / "b.ini");
  InstanceLock lock(folder / "a.ini");
  EXPECT_TRUE(lock.Claim());
  EXPECT_TRUE(lock.Held());
}

#endif

TEST_F(InstanceLockTest, MakesTheStoresFolder) {
  InstanceLock lock(folder / "new/deeper/store.ini");
  EXPECT_TRUE(lock.Claim());
  EXPECT_TRUE(lock.Held());
  EXPECT_TRUE(fs::is_directory(folder / "new/deeper"));
}

TEST_F(InstanceLockTest, WhereNoLockFileCanBeMadeTheProgramGoesOnWithoutIt) {
  test::WriteContent(folder / "file", "");
  std::vector<std::string> paths{folder / "file/store.ini",
                                 folder / (std::string(250, 'n') + ".ini")};
#ifndef _WIN32
  paths.emplace_back("/proc/self/store.ini");
#endif
  for (const std::string& path : paths) {
    InstanceLock first(path);
    InstanceLock second(path);
    EXPECT_TRUE(first.Claim()) << path;
    EXPECT_TRUE(second.Claim()) << path;
    EXPECT_FALSE(first.Held()) << path;
    EXPECT_EQ(first.Key(), "") << path;
  }
}

TEST_F(InstanceLockTest, BeforeAClaimThereIsNoKey) { EXPECT_EQ(InstanceLock(store).Key(), ""); }

}  // namespace
}  // namespace morvane
