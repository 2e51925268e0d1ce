#include "platform/system_clock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <optional>

namespace morvane {
namespace {

using std::chrono::milliseconds;

/// Five and a half hours east of Greenwich while it stands.
class IndianTime {
 public:
  IndianTime() {
    if (const char* zone = std::getenv("TZ")) old_ = zone;
    setenv("TZ", "IST-5:30", 1);
    tzset();
  }
  IndianTime(const IndianTime&) = delete;
  IndianTime& operator=(const IndianTime&) = delete;
  ~IndianTime() {
    if (old_) {
      setenv("TZ", old_->c_str(), 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }

 private:
  std::optional<std::string> old_;
};

std::chrono::sys_seconds SecondsOf(const LocalTime& time) {
  using namespace std::chrono;
  const auto date = year(time.Year) / month(static_cast<unsigned>(time.Month)) /
                    day(static_cast<unsigned>(time.Day));
  return sys_days(date) + hours(time.Hour) + minutes(time.Minute) + seconds(time.Second);
}

TEST(LocalTime, MillisecondsOfDayCountFromMidnight) {
  EXPECT_EQ((LocalTime{2026, 3, 4, 0, 0, 0, 0}).MillisecondsOfDay(), 0);
  // 15 x 3,600,000 + 4 x 60,000 + 5 x 1000 + 678.
  EXPECT_EQ((LocalTime{2026, 3, 4, 15, 4, 5, 678}).MillisecondsOfDay(), 54'245'678);
  EXPECT_EQ((LocalTime{2026, 3, 4, 23, 59, 59, 999}).MillisecondsOfDay(), 86'399'999);
}

TEST(SystemClock, NowIsTheLocalTime) {
  using namespace std::chrono;
  const IndianTime zone;
  const SystemClock clock;
  const auto before = floor<seconds>(system_clock::now());
  const LocalTime now = clock.Now();
  const auto after = floor<seconds>(system_clock::now());
  // Worked from Greenwich time by the calendar of <chrono>, not by the C library's zones.
  EXPECT_GE(SecondsOf(now), before + hours(5) + minutes(30));
  EXPECT_LE(SecondsOf(now), after + hours(5) + minutes(30));
  EXPECT_GE(now.Millisecond, 0);
  EXPECT_LE(now.Millisecond, 999);
}

TEST(SystemClock, ElapsedStartsAtZeroAndNeverGoesBack) {
  const SystemClock clock;
  auto last = clock.Elapsed();
  EXPECT_GE(last.count(), 0);
  for (int i = 0; i < 1000; ++i) {
    const auto now = clock.Elapsed();
    EXPECT_GE(now, last);
    last = now;
  }
}

TEST(SystemClock, SpendTakesAtLeastItsTime) {
  SystemClock clock;
  const auto start = clock.Elapsed();
  clock.Spend(milliseconds(2));
  EXPECT_GE(clock.Elapsed() - start, milliseconds(2));
  clock.Spend(milliseconds(0));
  clock.Spend(milliseconds(-5));
}

}  // namespace
}  // namespace morvane
