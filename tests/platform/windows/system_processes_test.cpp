#include "platform/system_processes.h"

#include <windows.h>
// It needs its types.
#include <shellapi.h>

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

/// Writes the names of the test's variables in the order in which they came.
TEST(ToldProcess, DISABLED_TellsTheOrder) {
  std::string told;
  wchar_t* const block = GetEnvironmentStringsW();
  for (const wchar_t* at = block; *at != L'\0'; at += std::wcslen(at) + 1) {
    const std::string variable = Utf8(at);
    constexpr std::string_view kOurs = "Morvane_Order_";
    if (variable.starts_with(kOurs)) told += variable.substr(kOurs.size()) + " ";
  }
  FreeEnvironmentStringsW(block);
  WriteContent(OtherProcess::About(), told);
}

TEST(SystemProcesses, ArgumentsAndVariablesArriveAsTheyWereGiven) {
  TempFolder folder;
  const std::string found = folder / "żółć found";
  SetEnvironmentVariableW(L"MORVANE_TEST_ABOUT", L"ours");
  SetEnvironmentVariableW(L"MORVANE_TEST_OURS", L"kept");
  const OtherProcess other("ToldProcess.DISABLED_Tells", found,
                           {"NSA", "a b", "", "\"'%HOME%*", "ends in \\", "a\\\"b\\\\", "♠"});
  SetEnvironmentVariableW(L"MORVANE_TEST_ABOUT", nullptr);
  SetEnvironmentVariableW(L"MORVANE_TEST_OURS", nullptr);
  ASSERT_TRUE(other.Ends());
  EXPECT_EQ(Content(found),
            "<NSA>\n<a b>\n<>\n<\"'%HOME%*>\n<ends in \\>\n<a\\\"b\\\\>\n<♠>\nkept, hidden");
}

TEST(SystemProcesses, VariablesArriveInTheOrderOfTheirNames) {
  TempFolder folder;
  SetEnvironmentVariableW(L"Morvane_Order_a", L"1");
  SetEnvironmentVariableW(L"Morvane_Order_D", L"4");
  const OtherProcess other("ToldProcess.DISABLED_TellsTheOrder", folder / "found", {},
                           {"Morvane_Order_c=3", "Morvane_Order_B=2", "Morvane_Order_B1=2"});
  SetEnvironmentVariableW(L"Morvane_Order_a", nullptr);
  SetEnvironmentVariableW(L"Morvane_Order_D", nullptr);
  ASSERT_TRUE(other.Ends());
  EXPECT_EQ(Content(folder / "found"), "a=1 B=2 B1=2 c=3 D=4 ");
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
