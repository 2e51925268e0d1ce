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

void Note(const char* name) { WriteContent(JoinPath(OtherProcess::About(), name), ""); }

/// Has its console send the event, as the key does.
TEST(ToldProcess, DISABLED_EndsWhenItIsTold) {
  VirtualClock clock;
  ToldLoop loop(clock);
  QuitOnEndSignals(loop);
  ASSERT_TRUE(GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, 0));
  if (Until([&loop] { return loop.Told(); })) Note("told");
}

TEST(ToldProcess, DISABLED_DoesNotEnd) {
  VirtualClock clock;
  ToldLoop loop(clock);
  QuitOnEndSignals(loop);
  ASSERT_TRUE(GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, 0));
  Until([] { return false; });
  Note("alive");
}

TEST(EndSignals, AnEventOfTheConsoleEndsTheLoop) {
  TempFolder folder;
  const OtherProcess other("ToldProcess.DISABLED_EndsWhenItIsTold", folder.Path());
  ASSERT_TRUE(other.Ends());
  EXPECT_TRUE(std::filesystem::exists(folder / "told"));
}

TEST(EndSignals, WhatHasNotEndedAfterTwoSecondsTheSystemEnds) {
  TempFolder folder;
  const auto start = std::chrono::steady_clock::now();
  const OtherProcess other("ToldProcess.DISABLED_DoesNotEnd", folder.Path());
  ASSERT_TRUE(other.Ends());
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  EXPECT_FALSE(std::filesystem::exists(folder / "alive"));
}

}  // namespace
}  // namespace morvane::test
