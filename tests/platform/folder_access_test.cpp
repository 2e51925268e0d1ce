#include "platform/folder_access.h"

#include <filesystem>

#include "support/fakes.h"
#include "support/plain_user.h"

namespace morvane {
namespace {

TEST(FolderAccess, AFolderOfOnesOwnIsEnteredAndTrusted) {
  const test::TempFolder folder;
  EXPECT_FALSE(WhyNotEntered(folder.Path()));
  EXPECT_FALSE(WhyNotTrusted(folder.Path()));
}

TEST(FolderAccess, WhatIsMissingOrNoFolderIsNotEntered) {
  const test::TempFolder folder;
  test::WriteContent(folder / "file", "");
  EXPECT_EQ(WhyNotEntered("")->Number, ENOENT);
  EXPECT_EQ(WhyNotEntered(folder / "none")->Number, ENOENT);
  EXPECT_EQ(WhyNotEntered(folder / "file")->Number, ENOTDIR);
}

TEST(FolderAccess, AFolderThatLetsItsOwnerInAloneIsAnErrorForOthers) {
  const test::TempFolder folder;
  std::filesystem::create_directory(folder / "data");
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
  std::filesystem::permissions(folder / "data", std::filesystem::perms(0000));
  const test::PlainUser user;
  ASSERT_TRUE(user.Ok());
  EXPECT_EQ(WhyNotEntered(folder / "data")->Number, EACCES);
}

}  // namespace
}  // namespace morvane
