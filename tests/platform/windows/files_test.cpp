#include "platform/files.h"

#include <windows.h>

#include <filesystem>
#include <thread>

#include "platform/file_beside.h"
#include "platform/file_lock.h"
#include "platform/ini_settings.h"
#include "platform/put_aside.h"
#include "platform/utf8_of_path.h"
#include "platform/windows/file_beside.h"
#include "platform/windows/handle.h"
#include "platform/windows/opening.h"
#include "platform/windows/other_process.h"
#include "platform/write_check.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

std::vector<std::string> NamesIn(const TempFolder& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder.Path())) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

/// Somebody who has the file open, and says what others may do meanwhile.
OpenedHandle Reader(const std::string& path, DWORD others) {
  return TakeHandle(CreateFileW(PathOfUtf8(path).c_str(), GENERIC_READ, others, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

TEST(Files, ASaveReplacesAndLeavesNothingBeside) {
  TempFolder folder;
  WriteContent(folder / "set.pbn", "one, and long");
  WriteContent(folder / "set.pbn", "two");
  EXPECT_EQ(Content(folder / "set.pbn"), "two");
  EXPECT_THAT(NamesIn(folder), ElementsAre("set.pbn"));
}

TEST(Files, NamesOfAnyAlphabetAreFoundUnderThem) {
  TempFolder folder;
  const std::string path = folder / "Żółć ♠ 牌.pbn";
  WriteContent(path, "one");
  EXPECT_FALSE(AppendLines(path, "two\r\n"));
  EXPECT_EQ(Content(path), "one\r\ntwo\r\n");
  const OpenedHandle byItsName = TakeHandle(
      CreateFileW((fs::path(folder.Path()) / L"\u017B\u00F3\u0142\u0107 \u2660 \u724C.pbn").c_str(),
                  GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_TRUE(byItsName);
}

TEST(Files, EachWayToAFileTakesNamesOfAnyAlphabet) {
  const TempFolder folder;
  const std::string data = folder / "\u00E4 \u6F22 \U0001F600";
  EXPECT_FALSE(MakePrivateFolder(data));
  const std::string path = JoinPath(data, "\U0001F0A1.ini");
  EXPECT_FALSE(CheckWritable(path));
  IniSettings store(path);
  EXPECT_TRUE(store.Set({"Setup", "Text", ""}, "kept"));
  EXPECT_EQ(IniSettings(path).Get({"Setup", "Text", ""}), "kept");
  EXPECT_FALSE(WriteLockedFile(path, "damaged"));
  EXPECT_EQ(PutAside(path), path + ".damaged");
  EXPECT_EQ(Content(path + ".damaged"), "damaged");
  EXPECT_EQ(FileBehind(path + ".damaged"), path + ".damaged");
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(PathOfUtf8(data))) {
    names.push_back(Utf8OfPath(entry.path().filename()));
  }
  EXPECT_THAT(names, UnorderedElementsAre("\U0001F0A1.ini.damaged", "\U0001F0A1.ini.lock"));
}

/// Known to the system since 2017, and not to what stands in for it.
bool KnowsRenamingOverOpenFiles(const std::string& path) {
  constexpr auto kRenameWithFlags = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
  const OpenedHandle file = OpenShared(path, GENERIC_READ | DELETE, OPEN_EXISTING);
  FILE_RENAME_INFO order{};
  return !SetFileInformationByHandle(file.get(), kRenameWithFlags, &order, sizeof order) &&
         GetLastError() != ERROR_INVALID_PARAMETER;
}

TEST(Files, ASaveIsNotHinderedByWhoReadsAndLetsOthersAtIt) {
  TempFolder folder;
  WriteContent(folder / "set.pbn", "old");
  if (!KnowsRenamingOverOpenFiles(folder / "set.pbn")) {
    GTEST_SKIP() << "this system puts no file in the place of one that is open";
  }
  const OpenedHandle reader =
      Reader(folder / "set.pbn", FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
  ASSERT_TRUE(reader);
  EXPECT_FALSE(WriteFile(folder / "set.pbn", "new"));
  std::array<char, 10> got{};
  DWORD size = 0;
  EXPECT_TRUE(::ReadFile(reader.get(), got.data(), 10, &size, nullptr));
  EXPECT_EQ(std::string(got.data(), size), "old") << "it reads on what it has opened";
  EXPECT_EQ(Content(folder / "set.pbn"), "new");
}

TEST(Files, WhoKeepsAFileToHimselfForAMomentIsWaitedFor) {
  TempFolder folder;
  WriteContent(folder / "set.pbn", "old");
  OpenedHandle reader = Reader(folder / "set.pbn", FILE_SHARE_READ);
  ASSERT_TRUE(reader);
  EXPECT_FALSE(CheckWritable(folder / "set.pbn"));
  // The new content stands beside; it needs its name.
  std::thread scanner([&] {
    EXPECT_TRUE(Until([&] { return NamesIn(folder).size() == 2; }));
    reader.reset();
  });
  EXPECT_FALSE(WriteFile(folder / "set.pbn", "new"));
  scanner.join();
  EXPECT_EQ(Content(folder / "set.pbn"), "new");
  EXPECT_THAT(NamesIn(folder), ElementsAre("set.pbn"));
}

TEST(Files, WhatAnotherProgramKeepsToItselfIsNotReplaced) {
  TempFolder folder;
  WriteContent(folder / "set.pbn", "old");
  {
    const OpenedHandle reader = Reader(folder / "set.pbn", FILE_SHARE_READ);
    ASSERT_TRUE(reader);
    EXPECT_THAT(WriteFile(folder / "set.pbn", "new")->Number, ::testing::AnyOf(EBUSY, EACCES));
  }
  EXPECT_EQ(Content(folder / "set.pbn"), "old");
  EXPECT_THAT(NamesIn(folder), ElementsAre("set.pbn"));
}

TEST(Files, AWriteProtectedFileIsNotReplaced) {
  TempFolder folder;
  WriteContent(folder / "set.pbn", "old");
  SetFileAttributesW(PathOfUtf8(folder / "set.pbn").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(WriteFile(folder / "set.pbn", "new")->Number, EACCES);
  EXPECT_EQ(CheckWritable(folder / "set.pbn")->Number, EACCES);
  SetFileAttributesW(PathOfUtf8(folder / "set.pbn").c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(Content(folder / "set.pbn"), "old");
}

TEST(Files, FoldersAndWhatIsMissingAreErrors) {
  TempFolder folder;
  WriteContent(folder / "file", "");
  std::string bytes;
  EXPECT_EQ(ReadFile(folder / "none", bytes)->Number, ENOENT);
  EXPECT_EQ(ReadFile(folder.Path(), bytes)->Number, EISDIR);
  EXPECT_EQ(WriteFile(folder / "none/set.pbn", "x")->Number, ENOENT);
  EXPECT_EQ(WriteFile(folder.Path(), "x")->Number, EISDIR);
  EXPECT_EQ(AppendLines(folder / "none/log", "x\r\n")->Number, ENOENT);
  EXPECT_EQ(AppendLines(folder.Path(), "x\r\n")->Number, EISDIR);
  EXPECT_EQ(CheckWritable(folder / "file/set.pbn")->Number, ENOTDIR);
  EXPECT_FALSE(fs::exists(folder / "none"));
}

TEST(Files, NamesThatMeanDevicesAreNoFiles) {
  const TempFolder folder;
  std::string bytes;
  for (const char* name : {"NUL", "CON", "nul"}) {
    const auto read = ReadFile(name, bytes);
    ASSERT_TRUE(read) << name;
    EXPECT_EQ(read->Number, ENOTSUP) << name;
    EXPECT_EQ(AppendLines(name, "x\r\n")->Number, ENOTSUP) << name;
    EXPECT_EQ(WriteFile(name, "x")->Description, "Operation not supported") << name;
    EXPECT_TRUE(CheckWritable(name)) << name;
  }
  EXPECT_TRUE(WriteFile(folder / "COM1", "x"));
  EXPECT_THAT(NamesIn(folder), IsEmpty());
}

TEST(Files, ANameThatIsTooLongIsToldSo) {
  const TempFolder folder;
  const std::string name = folder / std::string(300, 'n');
  std::string bytes;
  EXPECT_EQ(ReadFile(name, bytes)->Number, ENAMETOOLONG);
  EXPECT_EQ(WriteFile(name, "x")->Number, ENAMETOOLONG);
  EXPECT_EQ(AppendLines(name, "x\r\n")->Number, ENAMETOOLONG);
  EXPECT_THAT(NamesIn(folder), IsEmpty());
}

TEST(Files, APathMayBeLongWhereTheSystemAllowsIt) {
  const TempFolder folder;
  std::string path = folder.Path();
  for (int i = 0; i < 8; ++i) path = JoinPath(path, std::string(40, 'a'));
  std::error_code failure;
  fs::create_directories(PathOfUtf8(path), failure);
  if (failure) GTEST_SKIP() << "long paths are not switched on here: " << failure.message();
  path = JoinPath(path, "set.pbn");
  ASSERT_GT(path.size(), 320U);
  WriteContent(path, "one");
  WriteContent(path, "two");
  EXPECT_FALSE(AppendLines(path, "three\r\n"));
  EXPECT_EQ(Content(path), "two\r\nthree\r\n");
  EXPECT_FALSE(CheckWritable(path));
  EXPECT_TRUE(FileLock::Try(path + ".lock"));
}

TEST(Files, ALastLineThatWasCutIsEnded) {
  TempFolder folder;
  const std::string path = folder / "log";
  const std::string whole = "one\r\ntwo\r\n";
  const std::vector<std::string> ended = {
      "",        "o\r\n",        "on\r\n",        "one\r\n",        "one\r\n",
      "one\r\n", "one\r\nt\r\n", "one\r\ntw\r\n", "one\r\ntwo\r\n", "one\r\ntwo\r\n",
      whole};
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    WriteContent(path, whole.substr(0, size));
    EXPECT_FALSE(AppendLines(path, "next\r\n"));
    EXPECT_EQ(Content(path), ended[size] + "next\r\n") << size;
  }
}

/// Adds its name to the log many times over.
TEST(AppendingProcess, DISABLED_Appends) {
  for (int i = 0; i < 300; ++i)
    EXPECT_FALSE(AppendLines(OtherProcess::About(), "a line of mine\r\n"));
}

TEST(Files, LinesOfSeveralProcessesStayWhole) {
  TempFolder folder;
  const std::string path = folder / "log";
  const OtherProcess one("AppendingProcess.DISABLED_Appends", path);
  const OtherProcess two("AppendingProcess.DISABLED_Appends", path);
  ASSERT_TRUE(one.Ends());
  ASSERT_TRUE(two.Ends());
  std::string expected;
  for (int i = 0; i < 600; ++i) expected += "a line of mine\r\n";
  EXPECT_EQ(Content(path), expected);
}

/// In the middle of a save.
TEST(SavingProcess, DISABLED_Dies) {
  const FileBeside beside = OpenBeside(OtherProcess::About(), NewFile::kOpen);
  std::fputs("half", beside.File.get());
  std::fflush(beside.File.get());
  OtherProcess::Die();
}

TEST(FileBeside, WhatAKilledSaveLeftGoesWithTheNextSaveIntoTheFolder) {
  TempFolder folder;
  WriteContent(folder / "set.pbn", "old");
  ASSERT_TRUE(OtherProcess("SavingProcess.DISABLED_Dies", folder / "set.pbn").Ends());
  EXPECT_THAT(NamesIn(folder), SizeIs(2));
  EXPECT_EQ(Content(folder / "set.pbn"), "old");
  WriteContent(folder / "third.pbn", "new");
  EXPECT_THAT(NamesIn(folder), UnorderedElementsAre("set.pbn", "third.pbn"));
}

TEST(FileBeside, AWriterIsAliveUntilItsFileHasItsLastName) {
  TempFolder folder;
  FileBeside beside = OpenBeside(folder / "set.pbn", NewFile::kOpen);
  ASSERT_TRUE(beside.File);
  beside.File.reset();  // written, but not renamed yet
  WriteContent(folder / "mine.pbn", "new");
  EXPECT_TRUE(fs::exists(beside.Name));
  beside.Alive.reset();
  WriteContent(folder / "mine.pbn", "newer");
  EXPECT_FALSE(fs::exists(beside.Name));
}

TEST(FileBeside, TheLockIsHeldUntilTheFileHasItsLastName) {
  TempFolder folder;
  WriteContent(folder / "set.pbn", "old");
  FileBeside beside = OpenBeside(folder / "set.pbn", NewFile::kOpen);
  ASSERT_TRUE(beside.File);
  std::fputs("new", beside.File.get());
  beside.File.reset();
  EXPECT_FALSE(Rename(beside, folder / "set.pbn"));
  // Another save that has opened it under its first name.
  const OpenedHandle other = OpenShared(folder / "set.pbn", GENERIC_READ, OPEN_EXISTING);
  EXPECT_FALSE(TakeLock(other.get()));
  beside = {};
  EXPECT_TRUE(TakeLock(other.get()));
  EXPECT_EQ(Content(folder / "set.pbn"), "new");
  EXPECT_THAT(NamesIn(folder), UnorderedElementsAre("set.pbn"));
}

TEST(FileBeside, IsRemovedByItsOwnOpening) {
  TempFolder folder;
  {
    FileBeside beside = OpenOwnBeside(folder / "set.pbn", NewFile::kOpen);
    ASSERT_TRUE(beside.File);
    beside.File.reset();
    Discard(beside);
  }
  EXPECT_THAT(NamesIn(folder), IsEmpty());
}

TEST(CheckWritable, LeavesNothing) {
  TempFolder folder;
  EXPECT_FALSE(CheckWritable(folder / "new.pbn"));
  EXPECT_THAT(NamesIn(folder), IsEmpty());
}

TEST(Files, NamesComeApartAtEitherSeparatorAndTheDrive) {
  EXPECT_EQ(FileTitle("C:\\a\\b/c.pbn"), "c.pbn");
  EXPECT_EQ(FileTitle("C:\\a/b\\c.pbn"), "c.pbn");
  EXPECT_EQ(FileTitle("a:b.pbn"), "b.pbn");
  EXPECT_EQ(FolderOf("C:\\a\\c.pbn"), "C:\\a\\");
  EXPECT_EQ(JoinPath("C:\\a", "c.pbn"), "C:\\a\\c.pbn");
  EXPECT_EQ(JoinPath("C:\\a\\", "c.pbn"), "C:\\a\\c.pbn");
  EXPECT_EQ(JoinPath("C:/a/", "c.pbn"), "C:/a/c.pbn");
}

}  // namespace
}  // namespace morvane::test
