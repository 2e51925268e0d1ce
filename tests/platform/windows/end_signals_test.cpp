#include "end_signals.h"

#include <windows.h>

#include <atomic>
#include <filesystem>
#include <thread>

#include "platform/files.h"
#include "platform/windows/other_process.h"
#include "support/virtual_time.h"

namespace morvane::test {
namespace {

/// Told from the thread of the system's handler.
class ToldLoop final : public VirtualEventLoop {
 public:
  using VirtualEventLoop::VirtualEventLoop;
  void Quit() override { told_ = true; }
  [[nodiscard]] bool Told() const { return told_; }

 private:
  std::atomic<bool> told_ = false;
};

constexpr const char* kNotSent = "a console without a window sends no events here, as under wine";

void Note(const char* name) { WriteContent(JoinPath(OtherProcess::About(), name), ""); }

/// Has the part's console send it the event, as the key does. Some systems give a hidden program no
/// console that could.
bool Send() {
  if (GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, 0)) return true;
  Note("not sent");
  return false;
}

TEST(ToldProcess, DISABLED_EndsWhenItIsTold) {
  VirtualClock clock;
  ToldLoop loop(clock);
  QuitOnEndSignals(loop);
  if (Send() && Until([&loop] { return loop.Told(); })) Note("told");
}

TEST(ToldProcess, DISABLED_DoesNotEnd) {
  VirtualClock clock;
  ToldLoop loop(clock);
  QuitOnEndSignals(loop);
  if (!Send()) return;
  Until([] { return false; });
  Note("alive");
}

TEST(EndSignals, AnEventOfTheConsoleEndsTheLoop) {
  TempFolder folder;
  const OtherProcess other("ToldProcess.DISABLED_EndsWhenItIsTold", folder.Path());
  ASSERT_TRUE(other.Ends());
  if (std::filesystem::exists(folder / "not sent")) GTEST_SKIP() << kNotSent;
  EXPECT_TRUE(std::filesystem::exists(folder / "told"));
}

TEST(EndSignals, WhatHasNotEndedAfterTwoSecondsTheSystemEnds) {
  TempFolder folder;
  const auto start = std::chrono::steady_clock::now();
  const OtherProcess other("ToldProcess.DISABLED_DoesNotEnd", folder.Path());
  ASSERT_TRUE(other.Ends());
  if (std::filesystem::exists(folder / "not sent")) GTEST_SKIP() << kNotSent;
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  EXPECT_FALSE(std::filesystem::exists(folder / "alive"));
}

}  // namespace
}  // namespace morvane::test
