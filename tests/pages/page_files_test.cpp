#include "cli/pages/page_files.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/fakes.h"

namespace morvane::pages {
namespace {

namespace fs = std::filesystem;

using test::TempFolder;

std::string BytesOf(const fs::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

TEST(WritePageFiles, WritesThemAllBelowAFolderThatItMakes) {
  const TempFolder folder;
  const fs::path below = fs::path(folder.Path()) / "not" / "there";
  EXPECT_EQ(WritePageFiles(below.string()), "");
  for (const PageFile& file : PageFiles()) EXPECT_EQ(BytesOf(below / file.Path), file.Bytes);
  EXPECT_TRUE(fs::exists(below / "zsh/_morvane-cli"));
  EXPECT_TRUE(fs::exists(below / "bash/morvane-machine"));
  EXPECT_TRUE(fs::exists(below / "fish/morvane.fish"));
}

TEST(WritePageFiles, AFileWhereTheFolderShouldBeIsTold) {
  const TempFolder folder;
  const fs::path file = fs::path(folder.Path()) / "file";
  std::ofstream(file) << "x";
  EXPECT_EQ(WritePageFiles(file.string()), file.string() + "/man1/morvane.1 cannot be written");
}

TEST(WritePageFiles, AFullDiskIsTold) {
  const TempFolder folder;
  const fs::path page = fs::path(folder.Path()) / "man1" / "morvane.1";
  fs::create_directories(page.parent_path());
  fs::create_symlink("/dev/full", page);
  EXPECT_EQ(WritePageFiles(folder.Path()), page.string() + " cannot be written");
}

}  // namespace
}  // namespace morvane::pages
