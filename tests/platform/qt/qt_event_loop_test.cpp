#include "platform/qt/qt_event_loop.h"

#include <gmock/gmock.h>
#include <sys/time.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <csignal>
#include <thread>

namespace morvane {
namespace {

using std::chrono::steady_clock;
using testing::ElementsAre;

/// Posts `event` to the loop, as a click would be.
void Post(std::function<void()> event) {
  QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(event), Qt::QueuedConnection);
}

double MsSince(steady_clock::time_point start) {
  return std::chrono::duration<double, std::milli>(steady_clock::now() - start).count();
}

class QtEventLoopTest : public testing::Test {
 protected:
  QtEventLoop loop_;
};

TEST_F(QtEventLoopTest, WhoPumpsOftenLetsEventsThroughSoonAndNotEachTime) {
  bool waited = false;
  for (int attempt = 0; attempt < 1000 && !waited; ++attempt) {
    int events = 0;
    const auto start = steady_clock::now();
    loop_.Pump();
    Post([&] { ++events; });
    EXPECT_TRUE(loop_.PumpOften());
    // A process that was held up in between pumps at once, and rightly.
    if (MsSince(start) < 9.0) {
      EXPECT_EQ(events, 0);
      waited = true;
    }
    while (events == 0 && MsSince(start) < 1000) EXPECT_TRUE(loop_.PumpOften());
    EXPECT_EQ(events, 1);
  }
  EXPECT_TRUE(waited);
  loop_.Quit();
  EXPECT_FALSE(loop_.PumpOften()) << "told at once";
}

TEST_F(QtEventLoopTest, PumpLetsPendingEventsThroughAndDoesNotWait) {
  int events = 0;
  Post([&] { ++events; });
  Post([&] { ++events; });
  EXPECT_TRUE(loop_.Pump());
  EXPECT_EQ(events, 2);
  EXPECT_TRUE(loop_.Pump());
}

TEST_F(QtEventLoopTest, NoTimerTicksWhileTheWindowsPaint) {
  int ticks = 0;
  const auto timer = loop_.StartTimer(1, [&] { ++ticks; });
  std::this_thread::sleep_for(std::chrono::milliseconds(3));
  for (int i = 0; i < 3; ++i) loop_.Paint();
  EXPECT_EQ(ticks, 0);
  loop_.RunUntil([&] { return ticks > 0; });
}

TEST_F(QtEventLoopTest, TimersTickInTheOrderInWhichTheyFallDue) {
  std::string order;
  const auto late = loop_.StartTimer(7, [&] { order += 'c'; });
  const auto soon = loop_.StartTimer(2, [&] {
    if (order.empty()) order += 'a';
  });
  const auto middle = loop_.StartTimer(4, [&] {
    if (order == "a") order += 'b';
  });
  loop_.RunUntil([&] { return order.ends_with('c'); });
  EXPECT_EQ(order, "abc");
}

TEST_F(QtEventLoopTest, ATimerTicksAgainAndAgain) {
  int ticks = 0;
  const auto start = steady_clock::now();
  const auto timer = loop_.StartTimer(2, [&] { ++ticks; });
  loop_.RunUntil([&] { return ticks == 4; });
  EXPECT_GE(MsSince(start), 7.0);
}

TEST_F(QtEventLoopTest, ADestroyedTimerTicksNoMore) {
  int ticks = 0;
  auto timer = loop_.StartTimer(1, [&] { ++ticks; });
  timer.reset();
  loop_.WaitMs(4);
  EXPECT_EQ(ticks, 0);
}

TEST_F(QtEventLoopTest, ATickMayDestroyItsOwnTimer) {
  int ticks = 0;
  auto held = std::make_shared<int>(5);
  const std::weak_ptr<int> gone = held;
  std::unique_ptr<Timer> timer;
  timer = loop_.StartTimer(1, [&ticks, &timer, held = std::move(held)] {
    timer.reset();
    ticks += *held;  // what the tick holds is still there
  });
  loop_.WaitMs(6);
  EXPECT_EQ(ticks, 5);
  EXPECT_TRUE(gone.expired());
}

TEST_F(QtEventLoopTest, ATickMayDestroyItsTimerAndStillWait) {
  std::string order;
  std::unique_ptr<Timer> timer;
  timer = loop_.StartTimer(1, [&] {
    order += '(';
    timer.reset();
    loop_.WaitMs(4);
    order += ')';
  });
  loop_.RunUntil([&] { return order.ends_with(')'); });
  loop_.WaitMs(3);
  EXPECT_EQ(order, "()");
}

TEST_F(QtEventLoopTest, ATickMayBeStoppedByAnotherThatRunsInsideIt) {
  std::string order;
  std::unique_ptr<Timer> outer;
  std::unique_ptr<Timer> inner;
  outer = loop_.StartTimer(1, [&] {
    order += '(';
    inner = loop_.StartTimer(1, [&] {
      inner.reset();
      outer.reset();
    });
    loop_.RunUntil([&] { return outer == nullptr; });
    loop_.WaitMs(3);  // back in the outer tick, whose timer has gone
    order += ')';
  });
  loop_.RunUntil([&] { return order.ends_with(')'); });
  loop_.WaitMs(3);
  EXPECT_EQ(order, "()");
}

TEST_F(QtEventLoopTest, ATickMayReplaceItsOwnTimer) {
  int first = 0;
  int second = 0;
  std::unique_ptr<Timer> timer;
  timer = loop_.StartTimer(1, [&] {
    ++first;
    timer = loop_.StartTimer(1, [&] { ++second; });
  });
  loop_.RunUntil([&] { return second == 2; });
  EXPECT_EQ(first, 1);
}

TEST_F(QtEventLoopTest, ATickThatWaitsIsNotEnteredAgainWhileOtherTimersGoOn) {
  int depth = 0;
  int deepest = 0;
  int ticks = 0;
  int others = 0;
  const auto timer = loop_.StartTimer(1, [&] {
    deepest = std::max(deepest, ++depth);
    const int before = others;
    loop_.RunUntil([&] { return others > before + 1; });
    --depth;
    ++ticks;
  });
  const auto other = loop_.StartTimer(1, [&] { ++others; });
  loop_.RunUntil([&] { return ticks == 2; });
  EXPECT_EQ(deepest, 1);
}

TEST_F(QtEventLoopTest, ATimerMayOutliveItsLoop) {
  std::unique_ptr<Timer> timer;
  {
    QtEventLoop shortLived;
    timer = shortLived.StartTimer(1, [] { FAIL() << "ticked without its loop"; });
  }
  loop_.WaitMs(3);
  timer.reset();
}

TEST_F(QtEventLoopTest, WaitMsWaitsItsTimeWhileEventsGoOn) {
  int ticks = 0;
  const auto timer = loop_.StartTimer(2, [&] { ++ticks; });
  const auto start = steady_clock::now();
  loop_.WaitMs(8);
  EXPECT_GE(MsSince(start), 7.9);
  EXPECT_GE(ticks, 1);
}

TEST_F(QtEventLoopTest, AWaitOfNothingEndsAtOnce) {
  const auto start = steady_clock::now();
  loop_.WaitMs(0);
  loop_.WaitMs(-5);
  EXPECT_LT(MsSince(start), 1000.0);
}

TEST_F(QtEventLoopTest, RunUntilDoesNotWaitForWhatAlreadyHolds) {
  loop_.RunUntil([] { return true; });
}

TEST_F(QtEventLoopTest, RunUntilLooksAfterEachEventAndSleepsBetween) {
  int looks = 0;
  int ticks = 0;
  const auto timer = loop_.StartTimer(5, [&] { ++ticks; });
  loop_.RunUntil([&] {
    ++looks;
    return ticks == 3;
  });
  EXPECT_EQ(ticks, 3);
  EXPECT_LT(looks, 30);  // a loop that spins looks thousands of times in 15 ms
}

TEST_F(QtEventLoopTest, WhatOneEventPostsOfTheNextIsSeenBeforeTheLoopSleeps) {
  bool over = false;
  Post([&] { Post([&] { Post([&] { over = true; }); }); });
  loop_.RunUntil([&] { return over; });
}

TEST_F(QtEventLoopTest, AnInnerWaitSleepsThoughTheOuterOneHasWhatItWaitsFor) {
  int sleeps = 0;
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                   qApp, [&] { ++sleeps; });
  bool over = false;
  QEventLoop dialog;
  Post([&] {
    over = true;
    loop_.WaitMs(15);
    QTimer::singleShot(15, &dialog, &QEventLoop::quit);
    dialog.exec();
  });
  loop_.RunUntil([&] { return over; });
  QAbstractEventDispatcher::instance()->disconnect(qApp);
  EXPECT_GE(sleeps, 2);
  EXPECT_LT(sleeps, 30);  // a loop that is woken at once sleeps thousands of times in 30 ms
}

TEST_F(QtEventLoopTest, RunUntilWakesByAnEvent) {
  bool clicked = false;
  Post([&] { clicked = true; });
  loop_.RunUntil([&] { return clicked; });
}

TEST_F(QtEventLoopTest, QuitIsReportedByPumpFromNowOn) {
  EXPECT_FALSE(loop_.Quitting());
  loop_.Quit();
  EXPECT_TRUE(loop_.Quitting());
  EXPECT_FALSE(loop_.Pump());
  EXPECT_FALSE(loop_.Pump());
}

TEST_F(QtEventLoopTest, QuitInATickEndsNestedRunUntilAndWaitMs) {
  std::vector<std::string> ends;
  Post([&] {
    Post([&] {
      loop_.WaitMs(10000);
      ends.push_back("WaitMs");
    });
    loop_.RunUntil([] { return false; });
    ends.push_back("inner");
  });
  const auto timer = loop_.StartTimer(3, [&] { loop_.Quit(); });
  loop_.RunUntil([] { return false; });
  ends.push_back("outer");
  EXPECT_THAT(ends, ElementsAre("WaitMs", "inner", "outer"));
}

TEST_F(QtEventLoopTest, AfterQuitNothingWaitsAnyMore) {
  loop_.Quit();
  const auto start = steady_clock::now();
  loop_.WaitMs(10000);
  loop_.RunUntil([] { return false; });
  EXPECT_LT(MsSince(start), 1000.0);
}

TEST_F(QtEventLoopTest, QuitEndsTheLoopOfADialogAndOfTheApplication) {
  QEventLoop dialog;
  std::vector<std::string> ends;
  QTimer::singleShot(1, &dialog, [&] {
    dialog.exec();
    ends.push_back("dialog");
  });
  const auto timer = loop_.StartTimer(4, [&] { loop_.Quit(); });
  QCoreApplication::exec();
  ends.push_back("application");
  EXPECT_THAT(ends, ElementsAre("dialog", "application"));
}

TEST_F(QtEventLoopTest, QuitWakesASleepingLoopFromAnotherThread) {
  // The loop has no timer and no event: only Quit can wake it.
  std::thread other([this] { loop_.Quit(); });
  loop_.RunUntil([] { return false; });
  other.join();
  EXPECT_TRUE(loop_.Quitting());
}

#ifndef _WIN32                     // there signals are another thread's
QtEventLoop* signalled = nullptr;  // a signal handler has no other way to its loop

TEST_F(QtEventLoopTest, QuitWakesASleepingLoopFromASignalHandler) {
  signalled = &loop_;
  const auto old = std::signal(SIGALRM, [](int) { signalled->Quit(); });
  itimerval soon{};
  soon.it_value.tv_usec = 3000;
  ASSERT_EQ(setitimer(ITIMER_REAL, &soon, nullptr), 0);
  loop_.RunUntil([] { return false; });
  EXPECT_TRUE(loop_.Quitting());
  std::signal(SIGALRM, old);
}
#endif

}  // namespace
}  // namespace morvane

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
