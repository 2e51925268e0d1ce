#include "support/virtual_time.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace morvane::test {

using std::chrono::microseconds;
using std::chrono::milliseconds;

LocalTime VirtualClock::Now() const {
  using namespace std::chrono;
  const sys_days date = year(start_.Year) / month(static_cast<unsigned>(start_.Month)) /
                        day(static_cast<unsigned>(start_.Day));
  const auto time = sys_time<milliseconds>(date) + hours(start_.Hour) + minutes(start_.Minute) +
                    seconds(start_.Second) + milliseconds(start_.Millisecond) +
                    duration_cast<milliseconds>(elapsed_);
  const auto today = floor<days>(time);
  const year_month_day ymd(today);
  const hh_mm_ss clock(time - today);
  return {static_cast<int>(ymd.year()),
          static_cast<int>(static_cast<unsigned>(ymd.month())),
          static_cast<int>(static_cast<unsigned>(ymd.day())),
          static_cast<int>(clock.hours().count()),
          static_cast<int>(clock.minutes().count()),
          static_cast<int>(clock.seconds().count()),
          static_cast<int>(clock.subseconds().count())};
}

class VirtualEventLoop::Handle final : public Timer {
 public:
  explicit Handle(std::shared_ptr<Entry> entry) : entry_(std::move(entry)) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() override { entry_->Stopped = true; }  // its own tick may hold the entry a while longer

 private:
  std::shared_ptr<Entry> entry_;
};

bool VirtualEventLoop::Pump() {
  if (OnPump) OnPump();
  for (std::size_t pending = events_.size(); pending > 0 && !events_.empty(); --pending) {
    const auto event = std::move(events_.front());
    events_.pop_front();
    event();
  }
  FireDue();
  return !quitting_;
}

void VirtualEventLoop::WaitMs(int ms) {
  const microseconds end = clock_.Elapsed() + milliseconds(ms);
  while (Pump() && clock_.Elapsed() < end) Advance(end);
}

void VirtualEventLoop::RunUntil(const std::function<bool()>& done) {
  const microseconds patience = clock_.Elapsed() + std::chrono::hours(1);
  while (Pump() && !done()) {
    if (clock_.Elapsed() > patience) {
      ADD_FAILURE() << "the loop has waited for an hour";
      Quit();
      return;
    }
    if (!events_.empty()) continue;
    const auto next = NextDue();
    if (!next && !OnPump) {
      ADD_FAILURE() << "the loop waits for something that can no longer happen";
      return;
    }
    Advance(next ? next->Due : clock_.Elapsed() + milliseconds(1));
  }
}

std::unique_ptr<Timer> VirtualEventLoop::StartTimer(int intervalMs, std::function<void()> tick) {
  const microseconds interval = milliseconds(std::max(1, intervalMs));
  auto entry =
      std::make_shared<Entry>(Entry{clock_.Elapsed() + interval, interval, std::move(tick)});
  timers_.push_back(entry);
  return std::make_unique<Handle>(std::move(entry));
}

void VirtualEventLoop::After(int ms, std::function<void()> event) {
  auto entry = std::make_shared<Entry>(
      Entry{clock_.Elapsed() + milliseconds(ms), microseconds(0), std::move(event)});
  timers_.push_back(entry);
  once_.push_back(std::move(entry));
}

void VirtualEventLoop::Advance(microseconds limit) {
  const auto next = NextDue();
  const microseconds to = next ? std::min(next->Due, limit) : limit;
  if (to > clock_.Elapsed()) clock_.Spend(to - clock_.Elapsed());
}

std::shared_ptr<VirtualEventLoop::Entry> VirtualEventLoop::NextDue() {
  std::shared_ptr<Entry> next;
  std::erase_if(timers_, [](const auto& timer) { return timer.expired(); });
  for (const auto& timer : timers_) {
    const auto entry = timer.lock();
    if (entry->Stopped || entry->Ticking) continue;
    if (!next || entry->Due < next->Due) next = entry;
  }
  return next;
}

void VirtualEventLoop::FireDue() {
  // A timer that fell due several times during one read ticks once, as a real loop's would.
  const microseconds now = clock_.Elapsed();
  for (auto next = NextDue(); next && next->Due <= now; next = NextDue()) {
    if (next->Interval.count() == 0) {
      std::erase(once_, next);
      const auto tick = std::move(next->Tick);
      std::erase_if(timers_, [&](const auto& timer) { return timer.lock() == next; });
      tick();
      continue;
    }
    while (next->Due <= now) next->Due += next->Interval;
    next->Ticking = true;
    next->Tick();
    next->Ticking = false;
  }
}

}  // namespace morvane::test
