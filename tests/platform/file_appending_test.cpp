#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "platform/files.h"
#include "support/fakes.h"
#include "support/file_size_limit.h"

namespace {

std::vector<std::size_t>* writes = nullptr;  ///< their sizes meanwhile; null: nobody looks

}  // namespace

/// In the place of the library's, for all that this program writes by itself.
extern "C" ssize_t write(int file, const void* bytes, std::size_t size) {
  if (writes != nullptr) writes->push_back(size);
  return syscall(SYS_write, file, bytes, size);
}

namespace morvane {
namespace {

using test::Content;
using test::TempFolder;
using test::WriteContent;
using ::testing::ElementsAre;

TEST(AppendLines, ABlockIsOneWriteHoweverLong) {
  TempFolder folder;
  const std::string path = folder / "log";
  const std::string block = std::string(1'000'000, 'x') + "\r\n";
  std::vector<std::size_t> sizes;
  writes = &sizes;
  EXPECT_FALSE(AppendLines(path, block));
  EXPECT_FALSE(AppendLines(path, "y\r\n"));
  writes = nullptr;
  EXPECT_THAT(sizes, ElementsAre(1'000'002U, 3U));
  EXPECT_EQ(Content(path), block + "y\r\n");
}

TEST(AppendLines, ALastLineThatWasCutIsEndedInTheSameWrite) {
  TempFolder folder;
  const std::string path = folder / "log";
  // A log that a kill left after each of its bytes.
  const std::string whole = "one\r\ntwo\r\n";
  const std::vector<std::string> ended = {
      "",        "o\r\n",        "on\r\n",        "one\r\n",        "one\r\n",
      "one\r\n", "one\r\nt\r\n", "one\r\ntw\r\n", "one\r\ntwo\r\n", "one\r\ntwo\r\n",
      whole};
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    WriteContent(path, whole.substr(0, size));
    std::vector<std::size_t> sizes;
    writes = &sizes;
    EXPECT_FALSE(AppendLines(path, "next\r\n"));
    writes = nullptr;
    EXPECT_EQ(sizes.size(), 1U);
    EXPECT_EQ(Content(path), ended[size] + "next\r\n") << size;
  }
}

TEST(AppendLines, AFullDiskLeavesAPartThatTheNextOneEnds) {
  TempFolder folder;
  const std::string path = folder / "log";
  WriteContent(path, "one\r\n");
  {
    const test::FileSizeLimit full(8);
    EXPECT_EQ(AppendLines(path, "two\r\n")->Number, EFBIG);
  }
  EXPECT_EQ(Content(path), "one\r\ntwo");
  EXPECT_FALSE(AppendLines(path, "three\r\n"));
  EXPECT_EQ(Content(path), "one\r\ntwo\r\nthree\r\n");
}

TEST(AppendLines, WhatIsNoPlainFileIsAnErrorAndNotWaitedFor) {
  TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::filesystem::create_directory(folder / "folder");
  std::filesystem::create_symlink("/dev/null", folder / "device");
  EXPECT_EQ(AppendLines(folder / "pipe", "x\r\n")->Number, ENOTSUP);
  EXPECT_EQ(AppendLines(folder / "folder", "x\r\n")->Number, EISDIR);
  EXPECT_EQ(AppendLines(folder / "device", "x\r\n")->Number, ENOTSUP);
}

TEST(AppendLines, FollowsALink) {
  TempFolder folder;
  WriteContent(folder / "real", "one\r\n");
  std::filesystem::create_symlink("real", folder / "link");
  EXPECT_FALSE(AppendLines(folder / "link", "two\r\n"));
  EXPECT_EQ(Content(folder / "real"), "one\r\ntwo\r\n");
}

}  // namespace
}  // namespace morvane
