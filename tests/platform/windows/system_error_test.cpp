#include "platform/windows/system_error.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>

namespace morvane {
namespace {

TEST(SystemError, TheSystemsNumbersMeanWhatTheyMeanElsewhere) {
  EXPECT_EQ(ErrnoOf(ERROR_PATH_NOT_FOUND), ENOENT);
  EXPECT_EQ(ErrnoOf(ERROR_SHARING_VIOLATION), EBUSY);
  EXPECT_EQ(ErrnoOf(ERROR_DISK_FULL), ENOSPC);
  EXPECT_EQ(ErrnoOf(99999), EIO);
}

TEST(SystemError, WhatKeepsAnOrdinaryFileAwayIsTold) {
  EXPECT_EQ(ErrnoOf(ERROR_NOT_READY), ENXIO) << "a drive without a disk";
  EXPECT_EQ(ErrnoOf(225), EACCES) << "a virus";
  EXPECT_EQ(ErrnoOf(ERROR_LOGON_FAILURE), EACCES) << "a share";
  EXPECT_EQ(ErrnoOf(ERROR_USER_MAPPED_FILE), EBUSY);
  EXPECT_EQ(ErrnoOf(1295), ENOSPC) << "a quota";
  EXPECT_EQ(ErrnoOf(ERROR_FILE_TOO_LARGE), EFBIG);
  EXPECT_EQ(ErrnoOf(ERROR_BAD_EXE_FORMAT), ENOEXEC);
  EXPECT_EQ(ErrnoOf(740), EPERM) << "for administrators alone";
}

TEST(SystemError, TheSystemsOwnWordsAreOneLineOfText) {
  for (const unsigned long number : {ERROR_ACCESS_DENIED, ERROR_DLL_INIT_FAILED, ERROR_BUSY}) {
    const std::string words = WordsOfSystem(number);
    EXPECT_GT(words.size(), 5U) << words;
    EXPECT_EQ(words.find_first_of("\r\n"), std::string::npos) << words;
    EXPECT_EQ(words.find("\xEF\xBF\xBD"), std::string::npos) << words;
  }
  EXPECT_NE(WordsOfSystem(ERROR_ACCESS_DENIED), WordsOfSystem(ERROR_BUSY));
}

TEST(SystemError, ANumberWithoutWordsIsTheNumber) {
  EXPECT_EQ(WordsOfSystem(0x20000001), "error 536870913");
}

TEST(SystemError, EachHasWords) {
  EXPECT_EQ(RuntimeError::OfNumber(ENOENT).Description, "No such file or directory");
  EXPECT_EQ(RuntimeError::OfNumber(EBUSY).Description, "Device or resource busy");
  EXPECT_EQ(RuntimeError::OfNumber(ENOEXEC).Description, "Exec format error");
  EXPECT_EQ(RuntimeError::OfNumber(ENXIO).Description, "No such device or address");
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
