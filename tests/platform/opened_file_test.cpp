#include <filesystem>

#include "platform/file_beside.h"
#include "support/fakes.h"

namespace morvane {
namespace {

using test::Content;
using test::TempFolder;
using test::WriteContent;

TEST(OpenedFile, IsCutOffWhateverItsNameIsByNow) {
  TempFolder folder;
  const OpenedFile file = OpenToWrite(folder / "a", Opening::kNew, NewFile::kPrivate);
  ASSERT_TRUE(file);
  std::fputs("12345", file.get());
  std::fflush(file.get());
  EXPECT_TRUE(LeadsTo(folder / "a", *file));
  std::filesystem::rename(folder / "a", folder / "b");
  WriteContent(folder / "a", "another");
  EXPECT_FALSE(LeadsTo(folder / "a", *file));
  EXPECT_TRUE(LeadsTo(folder / "b", *file));
  CutOff(*file, 3);
  EXPECT_EQ(Content(folder / "b"), "123");
  EXPECT_EQ(Content(folder / "a"), "another");
}

}  // namespace
}  // namespace morvane
