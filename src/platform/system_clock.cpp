#include "platform/system_clock.h"

#include <ctime>
#include <thread>

namespace morvane {
namespace {

std::tm LocalParts(std::time_t time) {
  std::tm parts{};
#ifdef _WIN32
  localtime_s(&parts, &time);
#else
  localtime_r(&time, &parts);
#endif
  return parts;
}

}  // namespace

LocalTime SystemClock::Now() const {
  using namespace std::chrono;
  const auto now = system_clock::now();
  const auto second = floor<seconds>(now);
  const std::tm parts = LocalParts(system_clock::to_time_t(second));
  return {parts.tm_year + 1900,
          parts.tm_mon + 1,
          parts.tm_mday,
          parts.tm_hour,
          parts.tm_min,
          parts.tm_sec,
          static_cast<int>(floor<milliseconds>(now - second).count())};
}

std::chrono::microseconds SystemClock::Elapsed() const {
  return std::chrono::floor<std::chrono::microseconds>(std::chrono::steady_clock::now() - start_);
}

void SystemClock::Spend(std::chrono::microseconds time) {
  std::this_thread::sleep_until(std::chrono::steady_clock::now() + time);
}

}  // namespace morvane
