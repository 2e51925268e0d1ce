#include "platform/write_check.h"

#include <filesystem>

#include "support/fakes.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

/// The number of what would keep the file from being written, 0 when nothing would.
int Hindrance(const std::string& path) {
  const auto error = CheckWritable(path);
  return error ? error->Number : 0;
}

TEST(CheckWritable, AFileThatIsNewOrMayBeReplacedCanBeWrittenAndIsNotTouched) {
  const test::TempFolder folder;
  EXPECT_EQ(Hindrance(folder / "new.pbn"), 0);
  EXPECT_TRUE(fs::is_empty(folder.Path()));
  test::WriteContent(folder / "old.pbn", "as it was");
  fs::create_symlink("old.pbn", folder / "link.pbn");
  EXPECT_EQ(Hindrance(folder / "old.pbn"), 0);
  EXPECT_EQ(Hindrance(folder / "link.pbn"), 0);
  EXPECT_EQ(test::Content(folder / "old.pbn"), "as it was");
}

TEST(CheckWritable, WithoutAFolderNothingCan) {
  const test::TempFolder folder;
  test::WriteContent(folder / "file", "");
  EXPECT_EQ(Hindrance(folder / "none/new.pbn"), ENOENT);
  EXPECT_EQ(Hindrance(folder / "file/new.pbn"), ENOTDIR);
  EXPECT_EQ(Hindrance(folder.Path()), EISDIR);
}

TEST(CheckWritable, AFolderInWhichNobodyMakesFilesIsSeen) {
  EXPECT_EQ(Hindrance("/proc/self/new.pbn"), ENOENT);
  EXPECT_EQ(Hindrance("/dev/full"), 0) << "what becomes of the bytes is seen when they are written";
}

TEST(CheckWritable, ANameThatIsTooLongIsSeen) {
  const test::TempFolder folder;
  EXPECT_EQ(Hindrance(folder / std::string(300, 'a')), ENAMETOOLONG);
}

TEST(CheckWritable, WhatACheckThatWasKilledLeftIsTakenAwayAndNobodyElsesFile) {
  const test::TempFolder folder;
  test::WriteContent(folder / "morvane.new.0123456789abcdef", "");
  test::WriteContent(folder / "morvane.try", "");
  EXPECT_EQ(Hindrance(folder / "new.pbn"), 0);
  EXPECT_FALSE(fs::exists(folder / "morvane.new.0123456789abcdef"));
  EXPECT_TRUE(fs::exists(folder / "morvane.try"));
}

}  // namespace
}  // namespace morvane
