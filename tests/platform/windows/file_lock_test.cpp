#include "platform/file_lock.h"

#include <filesystem>

#include "platform/files.h"
#include "platform/windows/other_process.h"

namespace morvane::test {
namespace {

/// Holds the lock until the file "stop" is there.
TEST(LockingProcess, DISABLED_Holds) {
  const std::string folder = OtherProcess::About();
  const auto lock = FileLock::Try(JoinPath(folder, "lock"));
  WriteContent(JoinPath(folder, "held"), lock ? "yes" : "no");
  Until([&folder] { return std::filesystem::exists(PathOfUtf8(JoinPath(folder, "stop"))); });
}

TEST(LockingProcess, DISABLED_Dies) {
  const std::string folder = OtherProcess::About();
  const auto lock = FileLock::Try(JoinPath(folder, "lock"));
  if (lock) WriteContent(JoinPath(folder, "held"), "yes");
  OtherProcess::Die();
}

TEST(FileLock, OneHolderAtATime) {
  TempFolder folder;
  auto first = FileLock::Try(folder / "lock");
  ASSERT_TRUE(first);
  bool held = false;
  EXPECT_FALSE(FileLock::Try(folder / "lock", held));
  EXPECT_TRUE(held);
  EXPECT_TRUE(FileLock::Try(folder / "another"));
  first.reset();
  EXPECT_TRUE(FileLock::Try(folder / "lock"));
}

TEST(FileLock, AnotherProcessHoldsItUntilItEnds) {
  TempFolder folder;
  const OtherProcess other("LockingProcess.DISABLED_Holds", folder.Path());
  ASSERT_TRUE(Until([&] { return std::filesystem::exists(folder / "held"); }));
  bool held = false;
  EXPECT_FALSE(FileLock::Try(folder / "lock", held));
  EXPECT_TRUE(held);
  WriteContent(folder / "stop", "");
  ASSERT_TRUE(other.Ends());
  EXPECT_TRUE(FileLock::Try(folder / "lock"));
}

TEST(FileLock, AHolderThatDiesLeavesNoLock) {
  TempFolder folder;
  const OtherProcess other("LockingProcess.DISABLED_Dies", folder.Path());
  ASSERT_TRUE(other.Ends());
  EXPECT_EQ(Content(folder / "held"), "yes");
  EXPECT_TRUE(FileLock::Try(folder / "lock"));
}

TEST(FileLock, WhatCannotBeHadSaysWhy) {
  TempFolder folder;
  EXPECT_FALSE(FileLock::Wait(folder / "none/lock"));
  EXPECT_EQ(RuntimeError::Last().Number, ENOENT);
  EXPECT_FALSE(FileLock::Wait(folder.Path()));
  EXPECT_EQ(RuntimeError::Last().Number, EISDIR);
}

}  // namespace
}  // namespace morvane::test
