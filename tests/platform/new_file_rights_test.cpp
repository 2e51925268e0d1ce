// With what rights a file is made, seen where the system is asked for it: later they are changed.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstdarg>

#include "platform/files.h"
#include "support/fakes.h"

namespace {

struct MadeFile {
  std::string Path;
  mode_t Rights;
};
std::vector<MadeFile>* made = nullptr;  ///< the files made meanwhile; null: nobody looks

}  // namespace

/// In the place of the library's, for all that this program opens by itself.
extern "C" int open(const char* path, int flags, ...) {
  mode_t rights = 0;
  if ((flags & O_CREAT) != 0) {
    va_list arguments;
    va_start(arguments, flags);
    rights = va_arg(arguments, mode_t);
    va_end(arguments);
    if (made != nullptr) made->push_back({path, rights});
  }
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, rights));
}

namespace morvane {
namespace {

class NewFileRights : public ::testing::Test {
 protected:
  void SetUp() override { made = &files; }
  void TearDown() override { made = nullptr; }
  /// Replaces a file that has `rights`; those with which the new one was made.
  mode_t RightsOfReplacement(mode_t rights) {
    const std::string path = folder / "set";
    test::WriteContent(path, "old");
    EXPECT_EQ(chmod(path.c_str(), rights), 0);
    files.clear();
    EXPECT_FALSE(WriteFile(path, "new", NewFile::kOpen));
    EXPECT_EQ(test::Content(path), "new");
    struct stat now {};
    EXPECT_EQ(stat(path.c_str(), &now), 0);
    EXPECT_EQ(now.st_mode & 0777U, rights);
    EXPECT_EQ(files.size(), 1U);
    return files.empty() ? 0 : files.front().Rights;
  }
  test::TempFolder folder;
  std::vector<MadeFile> files;
};

TEST_F(NewFileRights, AReplacementIsPrivateUntilItHasTheRightsOfTheOldFile) {
  EXPECT_EQ(RightsOfReplacement(0600), 0600U);
  EXPECT_EQ(RightsOfReplacement(0644), 0600U);
}

TEST_F(NewFileRights, ANewFileHasThoseAskedFor) {
  EXPECT_FALSE(WriteFile(folder / "shared", "x", NewFile::kOpen));
  EXPECT_FALSE(WriteFile(folder / "private", "x", NewFile::kPrivate));
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(files[0].Rights, 0666U);
  EXPECT_EQ(files[1].Rights, 0600U);
}

}  // namespace
}  // namespace morvane
