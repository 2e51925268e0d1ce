#include "morvane/guarded_application.h"

#include <QTimer>
#include <new>
#include <stdexcept>
#include <vector>

#include "platform/qt/qt_event_loop.h"

namespace morvane {
namespace {

/// An application whose faults are noted.
struct Guarded {
  Guarded() {
    Application.OnFault = [this](const std::string& what) { Told.push_back(what); };
  }
  char Name[6] = "guard";
  char* Words[2] = {Name, nullptr};
  int Count = 1;
  GuardedApplication Application{Count, Words};
  std::vector<std::string> Told;

  /// Lets the event loop do `work`.
  void InEvent(const std::function<void()>& work) {
    bool done = false;
    QTimer::singleShot(0, &Application, [&] {
      done = true;
      work();
    });
    QtEventLoop().RunUntil([&] { return done; });
  }
};

TEST(GuardedApplication, AnExceptionOfAnEventIsToldAndGetsNoFurther) {
  Guarded guarded;
  guarded.InEvent([] { throw std::runtime_error("no such card"); });
  EXPECT_EQ(guarded.Told, std::vector<std::string>{"no such card"});
}

TEST(GuardedApplication, WhatIsNoExceptionOfTheLibraryIsToldToo) {
  Guarded guarded;
  guarded.InEvent([] { throw 5; });
  EXPECT_EQ(guarded.Told, std::vector<std::string>{"unknown"});
}

TEST(GuardedApplication, OnlyTheFirstFaultIsTold) {
  Guarded guarded;
  guarded.InEvent([] { throw std::runtime_error("one"); });
  guarded.InEvent([] { throw std::runtime_error("two"); });
  EXPECT_EQ(guarded.Told, std::vector<std::string>{"one"});
}

TEST(GuardedApplication, WhatLetsEventsThroughGoesOnBehindThem) {
  Guarded guarded;
  bool outerEnded = false;
  guarded.InEvent([&] {
    guarded.InEvent([] { throw std::runtime_error("inner"); });
    outerEnded = true;
  });
  EXPECT_TRUE(outerEnded);
  EXPECT_EQ(guarded.Told, std::vector<std::string>{"inner"});
}

TEST(GuardedApplication, WorkOutsideOfEventsIsGuardedToo) {
  Guarded guarded;
  guarded.Application.Guard([] { throw std::runtime_error("start"); });
  EXPECT_EQ(guarded.Told, std::vector<std::string>{"start"});
}

TEST(GuardedApplication, AFaultOfWhoHearsOfTheFaultGetsNoFurtherEither) {
  Guarded guarded;
  int heard = 0;
  guarded.Application.OnFault = [&](const std::string&) {
    ++heard;
    throw std::bad_alloc();
  };
  EXPECT_NO_THROW(guarded.Application.Guard([] { throw std::runtime_error("first"); }));
  EXPECT_EQ(heard, 1);
}

TEST(GuardedApplication, ATimerTicksOnBehindATickThatHasThrown) {
  Guarded guarded;
  QtEventLoop loop;
  int ticks = 0;
  const auto timer = loop.StartTimer(1, [&] {
    if (++ticks == 1) throw std::runtime_error("first tick");
  });
  bool late = false;
  QTimer::singleShot(10000, &guarded.Application, [&] { late = true; });
  loop.RunUntil([&] { return ticks > 1 || late; });
  EXPECT_GT(ticks, 1);
  EXPECT_EQ(guarded.Told, std::vector<std::string>{"first tick"});
}

TEST(GuardedApplication, WithoutAFaultNothingIsTold) {
  Guarded guarded;
  guarded.InEvent([] {});
  EXPECT_TRUE(guarded.Told.empty());
}

}  // namespace
}  // namespace morvane
