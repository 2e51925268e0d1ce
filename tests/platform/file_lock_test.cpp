#include "platform/file_lock.h"

#include <sys/wait.h>
#include <unistd.h>

#include <utility>

#include "platform/runtime_error.h"
#include "support/fakes.h"

namespace morvane {
namespace {

using test::TempFolder;

TEST(FileLock, OneHolderAtATime) {
  TempFolder folder;
  auto first = FileLock::Try(folder / "lock");
  ASSERT_TRUE(first);
  EXPECT_FALSE(FileLock::Try(folder / "lock"));
  first.reset();
  EXPECT_TRUE(FileLock::Try(folder / "lock"));
}

TEST(FileLock, AMovedLockIsHeldByItsNewOwner) {
  TempFolder folder;
  auto first = FileLock::Wait(folder / "lock");
  ASSERT_TRUE(first);
  {
    const FileLock second = std::move(*first);
    first.reset();
    EXPECT_FALSE(FileLock::Try(folder / "lock"));
  }
  EXPECT_TRUE(FileLock::Try(folder / "lock"));
}

TEST(FileLock, ALockOnAnotherFileIsAnotherLock) {
  TempFolder folder;
  const auto first = FileLock::Try(folder / "one");
  EXPECT_TRUE(FileLock::Try(folder / "two"));
}

TEST(FileLock, AFolderThatCannotBeWrittenAndADirectoryGiveNone) {
  TempFolder folder;
  EXPECT_FALSE(FileLock::Wait("/proc/self/lock"));
  EXPECT_FALSE(FileLock::Wait(folder / "none/lock"));
  EXPECT_FALSE(FileLock::Wait(folder.Path()));
}

TEST(FileLock, TellsALockThatAnotherHoldsFromOneThatCannotBeHad) {
  TempFolder folder;
  bool held = true;
  {
    const auto first = FileLock::Try(folder / "lock", held);
    EXPECT_TRUE(first);
    EXPECT_FALSE(held);
    EXPECT_FALSE(FileLock::Try(folder / "lock", held));
    EXPECT_TRUE(held);
  }
  EXPECT_FALSE(FileLock::Try(folder / "none/lock", held));
  EXPECT_FALSE(held);
}

TEST(FileLock, AHolderThatDiesLeavesNoLock) {
  TempFolder folder;
  const std::string path = folder / "lock";
  const pid_t child = fork();
  if (child == 0) {
    const auto held = FileLock::Try(path);
    _exit(held ? 0 : 1);  // without giving it back
  }
  int status = 1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(FileLock::Try(path));
}

}  // namespace
}  // namespace morvane
