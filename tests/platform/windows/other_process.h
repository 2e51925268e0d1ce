#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/system_processes.h"
#include "platform/windows/wide.h"
#include "support/fakes.h"

namespace morvane::test {

/// False after half a minute.
template <typename Condition>
bool Until(Condition condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
  }
  return true;
}

/// This program once more, for one part in a test: a test that is disabled for everybody else. What
/// the part is about is handed on in a variable.
class OtherProcess {
 public:
  static constexpr const char* kAbout = "MORVANE_TEST_ABOUT";

  /// `words` and `variables`: more for the part.
  OtherProcess(const std::string& part, const std::string& about,
               const std::vector<std::string>& words = {},
               std::vector<std::string> variables = {}) {
    std::vector<std::string> all = {"--gtest_also_run_disabled_tests", "--gtest_filter=" + part};
    all.insert(all.end(), words.begin(), words.end());
    // It is no shard of the tests, though this program may be one.
    variables.insert(variables.end(),
                     {kAbout + ("=" + about), "GTEST_TOTAL_SHARDS=1", "GTEST_SHARD_INDEX=0"});
    started_ = SystemProcesses().Start({Program(), all, variables});
    EXPECT_TRUE(started_.Child) << started_.Error->Description;
  }
  [[nodiscard]] bool Lives() const { return started_.Child && started_.Child->Lives(); }
  [[nodiscard]] bool Ends() const {
    return Until([this] { return !Lives(); });
  }

  /// The part's side.
  [[nodiscard]] static std::string About() {
    const wchar_t* const text = _wgetenv(L"MORVANE_TEST_ABOUT");
    return text == nullptr ? "" : Utf8(text);
  }
  /// Ends as if it were killed: nothing is closed or given back by the program itself.
  [[noreturn]] static void Die() {
    TerminateProcess(GetCurrentProcess(), 9);
    std::abort();
  }

 private:
  static std::string Program() {
    std::wstring path(1000, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return Utf8(path);
  }

  StartedProcess started_;
};

}  // namespace morvane::test
