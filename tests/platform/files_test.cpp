#include "platform/files.h"

#include <filesystem>

#include "support/fakes.h"

namespace morvane {
namespace {

using test::TempFolder;

TEST(Files, AMissingFileAndADirectoryAreErrors) {
  TempFolder folder;
  std::string bytes;
  EXPECT_EQ(ReadFile(folder / "none", bytes)->Number, ENOENT);
  EXPECT_EQ(ReadFile(folder.Path(), bytes)->Number, EISDIR);
}

TEST(Files, AReadThatFailsIsAnError) {
  std::string bytes;
  EXPECT_EQ(ReadFile("/proc/self/mem", bytes)->Number, EIO);
}

TEST(Files, AFullDiskIsAnErrorInPlaceAndBeside) {
  TempFolder folder;
  std::filesystem::create_symlink("/dev/full", folder / "set.pbn");
  EXPECT_EQ(WriteFile(folder / "set.pbn", "x")->Number, ENOSPC);
  EXPECT_EQ(AppendToFile("/dev/full", "x")->Number, ENOSPC);
}

TEST(Files, AFailedSaveLeavesTheOldContent) {
  TempFolder folder;
  test::WriteContent(folder / "set.pbn", "old");
  std::filesystem::create_symlink("/dev/full", folder / "set.pbn.new");
  EXPECT_EQ(WriteFile(folder / "set.pbn", "new")->Number, ENOSPC);
  EXPECT_EQ(test::Content(folder / "set.pbn"), "old");
}

TEST(Files, SavingLeavesNothingBeside) {
  TempFolder folder;
  test::WriteContent(folder / "set.pbn", "one");
  test::WriteContent(folder / "set.pbn", "two");
  EXPECT_EQ(test::Content(folder / "set.pbn"), "two");
  EXPECT_FALSE(std::filesystem::exists(folder / "set.pbn.new"));
}

TEST(Files, NamesComeApartAtTheLastSeparator) {
  EXPECT_EQ(FileTitle("/a/b/c.pbn"), "c.pbn");
  EXPECT_EQ(FileTitle("c.pbn"), "c.pbn");
  EXPECT_EQ(FolderOf("/a/b/c.pbn"), "/a/b/");
  EXPECT_EQ(FolderOf("c.pbn"), "");
  EXPECT_EQ(FileTitle("a:b.pbn"), "a:b.pbn");
}

}  // namespace
}  // namespace morvane
