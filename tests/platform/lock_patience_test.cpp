#include "platform/lock_patience.h"

#include "platform/runtime_error.h"
#include "support/fakes.h"

namespace morvane {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// An operator and a virtual clock, on which a wait can be measured.
struct LockDesk {
  test::TempFolder Folder;
  test::VirtualClock Clock;
  test::VirtualEventLoop Loop{Clock};
  test::FakeUi Ui;
  LockPatience Patience{Ui, Loop, Clock};
  const std::string Path = Folder / "lock";
  std::optional<FileLock> Other = FileLock::Try(Path);  ///< another program's

  bool Lock() { return Patience.Lock(Path, "things").has_value(); }
  /// How long one attempt takes.
  milliseconds Wait() {
    const auto start = Clock.Elapsed();
    EXPECT_FALSE(Lock());
    EXPECT_EQ(RuntimeError::Last().Number, ETIMEDOUT);
    return std::chrono::duration_cast<milliseconds>(Clock.Elapsed() - start);
  }
};

TEST(LockPatience, AHolderThatDoesNotLetGoIsWaitedForOnceAFlow) {
  LockDesk desk;
  EXPECT_EQ(desk.Wait(), milliseconds(10'000));
  for (int line = 0; line < 14; ++line) EXPECT_EQ(desk.Wait(), milliseconds(0));
  desk.Patience.Renew();
  EXPECT_EQ(desk.Wait(), milliseconds(10'000));
  EXPECT_EQ(desk.Wait(), milliseconds(0));
}

TEST(LockPatience, WhatAWaitThatWasNotInVainHasTakenIsGoneToo) {
  LockDesk desk;
  desk.Ui.OnWaiting = [&](const std::string& what) {
    if (what.empty()) return;
    desk.Clock.Spend(milliseconds(3800));
    desk.Other.reset();
  };
  EXPECT_TRUE(desk.Lock()) << "after 4 seconds";
  desk.Ui.OnWaiting = nullptr;
  desk.Other = FileLock::Try(desk.Path);
  EXPECT_EQ(desk.Wait(), milliseconds(5999)) << "it took a pause more";
}

TEST(LockPatience, IsOneForAllLocksOfAFlow) {
  LockDesk desk;
  EXPECT_EQ(desk.Wait(), milliseconds(10'000));
  const auto other = FileLock::Try(desk.Folder / "another");
  const auto start = desk.Clock.Elapsed();
  EXPECT_FALSE(desk.Patience.Lock(desk.Folder / "another", "things"));
  EXPECT_EQ(desk.Clock.Elapsed() - start, milliseconds(0));
}

TEST(LockPatience, IsOneForAProgramThatIsOneFlow) {
  LockDesk desk;
  desk.Patience.BeOneFlow();
  EXPECT_EQ(desk.Wait(), milliseconds(10'000));
  desk.Patience.Renew();
  EXPECT_EQ(desk.Wait(), milliseconds(0));
}

TEST(LockPatience, ALongWaitIsToldUntilItIsOver) {
  LockDesk desk;
  desk.Ui.OnWaiting = [&](const std::string& what) {
    if (!what.empty()) {
      EXPECT_EQ(desk.Clock.Elapsed(), milliseconds(200));
      desk.Other.reset();
    }
  };
  EXPECT_TRUE(desk.Lock());
  EXPECT_THAT(desk.Ui.Waits, ElementsAre("Waiting for another program: things", ""));
}

TEST(LockPatience, AWaitInVainIsToldOnceAndOver) {
  LockDesk desk;
  desk.Wait();
  desk.Wait();
  EXPECT_THAT(desk.Ui.Waits, ElementsAre("Waiting for another program: things", ""));
}

/// A loop that counts how often the windows may paint.
class PaintCount final : public test::VirtualEventLoop {
 public:
  using VirtualEventLoop::VirtualEventLoop;
  void Paint() override { ++Paints; }
  int Paints = 0;
};

TEST(LockPatience, TheWindowsPaintFiveTimesASecond) {
  LockDesk desk;
  PaintCount loop(desk.Clock);
  LockPatience patience(desk.Ui, loop, desk.Clock);
  EXPECT_FALSE(patience.Lock(desk.Path, "things"));
  EXPECT_EQ(loop.Paints, 49);  // from 200 to 9,800 milliseconds
}

TEST(LockPatience, AFreeLockIsHadWithoutAWord) {
  LockDesk desk;
  desk.Other.reset();
  EXPECT_TRUE(desk.Lock());
  EXPECT_THAT(desk.Ui.Waits, IsEmpty());
  EXPECT_EQ(desk.Clock.Elapsed(), milliseconds(0));
}

TEST(LockPatience, AProgramThatQuitsWaitsForNothing) {
  LockDesk desk;
  desk.Ui.OnWaiting = [&](const std::string&) { desk.Loop.Quit(); };
  EXPECT_EQ(desk.Wait(), milliseconds(200));
  desk.Patience.Renew();
  EXPECT_EQ(desk.Wait(), milliseconds(0));
}

TEST(LockPatience, WhatCannotBeHadAtAllIsNotWaitedForAndSaysWhy) {
  LockDesk desk;
  EXPECT_FALSE(desk.Patience.Lock(desk.Folder / "none/lock", "things"));
  EXPECT_EQ(RuntimeError::Last().Number, ENOENT);
  EXPECT_EQ(desk.Clock.Elapsed(), milliseconds(0));
}

TEST(FileLock, AHolderThatDoesNotLetGoIsNotWaitedForForEver) {
  const test::TempFolder folder;
  const auto first = FileLock::Wait(folder / "lock");
  ASSERT_TRUE(first);
  EXPECT_FALSE(FileLock::Wait(folder / "lock", std::chrono::milliseconds(0)));
  EXPECT_EQ(RuntimeError::Last().Number, ETIMEDOUT);
}

}  // namespace
}  // namespace morvane
