#include "platform/windows/system_error.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>

namespace morvane {
namespace {

TEST(SystemError, TheSystemsNumbersMeanWhatTheyMeanElsewhere) {
  EXPECT_EQ(ErrnoOf(ERROR_PATH_NOT_FOUND), ENOENT);
  EXPECT_EQ(ErrnoOf(ERROR_SHARING_VIOLATION), EACCES);
  EXPECT_EQ(ErrnoOf(ERROR_DISK_FULL), ENOSPC);
  EXPECT_EQ(ErrnoOf(99999), EIO);
}

TEST(SystemError, EachHasWords) {
  EXPECT_EQ(RuntimeError::OfNumber(ENOENT).Description, "No such file or directory");
  EXPECT_EQ(RuntimeError::OfNumber(EISDIR).Description, "Is a directory");
  EXPECT_EQ(RuntimeError::OfNumber(ENOTSUP).Description, "Operation not supported");
  EXPECT_EQ(RuntimeError::OfNumber(ETIMEDOUT).Description, "Connection timed out");
}

TEST(SystemError, ACodeOfEitherKindGivesTheSameNumber) {
  std::error_code code;
  std::filesystem::create_directory("none\\none\\none", code);
  EXPECT_EQ(RuntimeError::Of(code).Number, ENOENT);
  EXPECT_EQ(RuntimeError::Of({ERROR_ACCESS_DENIED, std::system_category()}).Number, EACCES);
  EXPECT_EQ(RuntimeError::Of({EEXIST, std::generic_category()}).Number, EEXIST);
}

}  // namespace
}  // namespace morvane
