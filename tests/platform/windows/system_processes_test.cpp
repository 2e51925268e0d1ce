#include "platform/system_processes.h"

#include <windows.h>
// It needs its types.
#include <shellapi.h>

#include <algorithm>
#include <cwchar>
#include <filesystem>

#include "platform/files.h"
#include "platform/windows/other_process.h"

namespace morvane::test {
namespace {

/// Writes how it was called into the file that it is about.
TEST(ToldProcess, DISABLED_Tells) {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::string told;
  for (int i = 3; i < count; ++i) told += "<" + Utf8(words[i]) + ">\n";
  LocalFree(words);
  const wchar_t* const kept = _wgetenv(L"MORVANE_TEST_OURS");
  told += kept != nullptr ? Utf8(kept) : "nothing";
  told += GetConsoleWindow() == nullptr ? ", hidden" : ", in a window";
  WriteContent(OtherProcess::About(), told);
}

std::vector<std::wstring> NamesOfVariables() {
  std::vector<std::wstring> names;
  wchar_t* const block = GetEnvironmentStringsW();
  for (const wchar_t* at = block; *at != L'\0'; at += std::wcslen(at) + 1) {
    const std::wstring variable = at;
    names.push_back(variable.substr(0, variable.find(L'=', 1)));
  }
  FreeEnvironmentStringsW(block);
  return names;
}

bool IsBefore(const std::wstring& one, const std::wstring& other) {
  return CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_LESS_THAN;
}

/// Writes whether its variables came in the order of their names.
TEST(ToldProcess, DISABLED_TellsTheOrder) {
  const auto names = NamesOfVariables();
  WriteContent(OtherProcess::About(),
               std::is_sorted(names.begin(), names.end(), IsBefore) ? "sorted" : "as they come");
}

TEST(SystemProcesses, VariablesArriveInTheOrderOfTheirNames) {
  TempFolder folder;
  const OtherProcess other("ToldProcess.DISABLED_TellsTheOrder", folder / "found");
  ASSERT_TRUE(other.Ends());
  EXPECT_EQ(Content(folder / "found"), "sorted");
}

std::string ThisProgram() {
  std::wstring path(1000, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return Utf8(path);
}

TEST(SystemProcesses, ArgumentsAndVariablesArriveAsTheyWereGiven) {
  TempFolder folder;
  const std::string found = folder / "żółć found";
  SetEnvironmentVariableW(L"MORVANE_TEST_ABOUT", L"ours");
  SetEnvironmentVariableW(L"MORVANE_TEST_OURS", L"kept");
  const StartedProcess started = SystemProcesses().Start(
      {ThisProgram(),
       {"--gtest_also_run_disabled_tests", "--gtest_filter=ToldProcess.DISABLED_Tells", "NSA",
        "a b", "", "\"'%HOME%*", "ends in \\", "a\\\"b\\\\", "♠"},
       {"MORVANE_TEST_ABOUT=" + found}});
  SetEnvironmentVariableW(L"MORVANE_TEST_ABOUT", nullptr);
  SetEnvironmentVariableW(L"MORVANE_TEST_OURS", nullptr);
  ASSERT_TRUE(started.Child) << started.Error->Description;
  ASSERT_TRUE(Until([&] { return !started.Child->Lives(); }));
  EXPECT_EQ(Content(found),
            "<NSA>\n<a b>\n<>\n<\"'%HOME%*>\n<ends in \\>\n<a\\\"b\\\\>\n<♠>\nkept, hidden");
}

TEST(SystemProcesses, AProgramThatIsMissingOrNoneIsAnError) {
  TempFolder folder;
  const StartedProcess missing = SystemProcesses().Start({folder / "none.exe", {}, {}});
  EXPECT_FALSE(missing.Child);
  ASSERT_TRUE(missing.Error);
  EXPECT_EQ(missing.Error->Number, ENOENT);
  WriteContent(folder / "text.exe", "no program");
  const StartedProcess none = SystemProcesses().Start({folder / "text.exe", {}, {}});
  EXPECT_FALSE(none.Child);
  EXPECT_TRUE(none.Error);
}

}  // namespace
}  // namespace morvane::test
