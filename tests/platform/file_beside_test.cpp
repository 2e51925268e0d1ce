// What a save leaves beside when it is killed, and who clears it.

#include "platform/file_beside.h"

#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "support/fakes.h"

namespace morvane {
namespace {

using test::Content;
using test::TempFolder;
using test::WriteContent;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

std::vector<std::string> NamesIn(const TempFolder& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

/// A process in the middle of saving `path`, and the file that it has open beside it.
struct SavingProcess {
  explicit SavingProcess(const std::string& path) {
    std::array<int, 2> told{};
    EXPECT_EQ(pipe(told.data()), 0);
    Id = fork();
    if (Id == 0) {
      const FileBeside beside = OpenBeside(path, NewFile::kOpen);
      const std::string name = FileTitle(beside.Name);
      std::fputs("half", beside.File.get());
      std::fflush(beside.File.get());
      if (write(told[1], name.data(), name.size()) < 0) _exit(1);
      while (true) pause();
    }
    close(told[1]);
    std::array<char, 100> name{};
    const ssize_t size = read(told[0], name.data(), name.size());
    close(told[0]);
    Beside = std::string(name.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  }
  SavingProcess(const SavingProcess&) = delete;
  SavingProcess& operator=(const SavingProcess&) = delete;
  ~SavingProcess() { Kill(); }
  void Kill() {
    if (Id > 0) {
      kill(Id, SIGKILL);
      waitpid(Id, nullptr, 0);
    }
    Id = 0;
  }
  pid_t Id = 0;
  std::string Beside;
};

TEST(FileBeside, WhatAKilledSaveLeftGoesWithTheNextSaveIntoTheFolder) {
  TempFolder folder;
  WriteContent(folder / "set.pbn", "old");
  {
    SavingProcess first(folder / "set.pbn");
    SavingProcess second(folder / "other.pbn");
    first.Kill();
    second.Kill();
    EXPECT_THAT(NamesIn(folder), UnorderedElementsAre("set.pbn", first.Beside, second.Beside));
  }
  WriteContent(folder / "third.pbn", "new");
  EXPECT_THAT(NamesIn(folder), UnorderedElementsAre("set.pbn", "third.pbn"));
  EXPECT_EQ(test::Content(folder / "set.pbn"), "old");
}

TEST(FileBeside, WhatALivingSaveWritesStays) {
  TempFolder folder;
  SavingProcess other(folder / "set.pbn");
  WriteContent(folder / "mine.pbn", "new");
  EXPECT_THAT(NamesIn(folder), UnorderedElementsAre("mine.pbn", other.Beside));
  EXPECT_EQ(test::Content(folder / other.Beside), "half");
}

TEST(FileBeside, AWriterIsAliveUntilItsFileHasItsLastName) {
  TempFolder folder;
  FileBeside beside = OpenBeside(folder / "set.pbn", NewFile::kOpen);
  ASSERT_TRUE(beside.File);
  beside.File.reset();  // written, but not renamed yet
  WriteContent(folder / "mine.pbn", "new");
  EXPECT_TRUE(std::filesystem::exists(beside.Name));
  beside.Alive.reset();
  WriteContent(folder / "mine.pbn", "newer");
  EXPECT_FALSE(std::filesystem::exists(beside.Name));
}

TEST(FileBeside, AUsersOwnFilesStayWhateverTheyAreCalled) {
  TempFolder folder;
  const std::vector<std::string> names = {"morvane.new",
                                          "morvane.new1",
                                          "morvane.new.1",
                                          "morvane.new.0123456789abcde",
                                          "morvane.new.0123456789abcdef0",
                                          "morvane.new.0123456789abcdeg",
                                          "morvane.new.0123456789ABCDEF",
                                          "xmorvane.new.0123456789abcdef"};
  for (const std::string& name : names) {
    EXPECT_EQ(mknod((folder / name).c_str(), S_IFREG | 0600, 0), 0);
  }
  const std::string folderOfThatName = "morvane.new.0000000000000001";
  const std::string linkOfThatName = "morvane.new.0000000000000002";
  std::filesystem::create_directory(folder / folderOfThatName);
  std::filesystem::create_symlink("morvane.new1", folder / linkOfThatName);
  WriteContent(folder / "set.pbn", "new");
  auto expected = names;
  expected.insert(expected.end(), {"set.pbn", folderOfThatName, linkOfThatName});
  EXPECT_THAT(NamesIn(folder), ::testing::UnorderedElementsAreArray(expected));
}

TEST(FileBeside, WhatAnotherUserLeftStays) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give files away";
  TempFolder folder;
  const std::string left = folder / "morvane.new.0123456789abcdef";
  EXPECT_EQ(mknod(left.c_str(), S_IFREG | 0600, 0), 0);
  ASSERT_EQ(chown(left.c_str(), 12345, 12345), 0);
  WriteContent(folder / "set.pbn", "new");
  EXPECT_TRUE(std::filesystem::exists(left));
}

TEST(FileBeside, EachSaveOfManyAtOnceSucceeds) {
  constexpr int kProcesses = 4;
  constexpr int kSaves = 100;
  TempFolder folder;
  std::vector<pid_t> children;
  for (int process = 0; process < kProcesses; ++process) {
    children.push_back(fork());
    if (children.back() != 0) continue;
    const std::string path = folder / ("set" + std::to_string(process));
    for (int n = 0; n < kSaves; ++n) {
      if (WriteFile(path, std::to_string(n))) _exit(1);
    }
    _exit(0);
  }
  for (const pid_t child : children) {
    int status = 1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  EXPECT_THAT(NamesIn(folder), UnorderedElementsAre("set0", "set1", "set2", "set3"));
}

TEST(OpenedFile, HasNoNameOfItsOwnInALink) {
  TempFolder folder;
  const OpenedFile file = OpenToWrite(folder / "b", Opening::kNew, NewFile::kPrivate);
  ASSERT_TRUE(file);
  std::filesystem::create_symlink(folder / "b", folder / "c");
  EXPECT_TRUE(LeadsTo(folder / "b", *file));
  EXPECT_FALSE(LeadsTo(folder / "c", *file));
}

}  // namespace
}  // namespace morvane
