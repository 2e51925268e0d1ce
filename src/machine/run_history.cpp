#include "machine/run_history.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "text/text.h"

namespace morvane::machine {
namespace {

double Median(std::vector<double> values) {
  const auto middle = static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), values.begin() + middle, values.end());
  const double upper = values[static_cast<std::size_t>(middle)];
  if (values.size() % 2 == 1) return upper;
  return (*std::max_element(values.begin(), values.begin() + middle) + upper) / 2;
}

}  // namespace

/// Rounded up: who is told of seven minutes is not kept waiting in the eighth.
std::string About(double seconds) {
  constexpr int kMinute = 60;
  if (seconds <= kMinute) return "less than a minute";
  const int minutes = static_cast<int>(std::ceil(seconds / kMinute));
  if (minutes < kMinute) return "about " + std::to_string(minutes) + " minutes";
  const int rest = minutes % kMinute;
  return "about " + std::to_string(minutes / kMinute) + " h" +
         (rest == 0 ? "" : " " + std::to_string(rest) + " min");
}

void RunHistory::Add(Entry entry, double now) {
  if (entry.Good) {
    if (lastGood_) {
      intervals_.push_back(now - *lastGood_);
    } else {
      firstSeconds_ = entry.Seconds;
    }
    lastGood_ = now;
  }
  ++count_;
  entries_.push_front(std::move(entry));
  if (entries_.size() > kMost) entries_.pop_back();
}

bool RunHistory::HasJustDone(const std::string& what) const {
  return !entries_.empty() && entries_.front().Good && entries_.front().What == what;
}

std::optional<double> RunHistory::SecondsEach() const {
  if (!lastGood_) return std::nullopt;
  return intervals_.empty() ? firstSeconds_ : Median(intervals_);
}

std::string HistoryLine(const RunHistory::Entry& entry) {
  const std::string seconds = entry.Good ? FixedPoint(entry.Seconds, 1) + " s   " : "";
  return entry.What + "   " + seconds + entry.Outcome;
}

int LeftBehind(const RunMemory& range, int board, int copy) {
  const int copies = std::max<int>(range.NumberOfCopies, 1);
  const int boards = std::max(range.RunLast - board, 0);
  return boards * copies + std::max(copies - copy, 0);
}

std::string LeftLine(int left, std::optional<double> secondsEach) {
  if (left == 0) return "No board left";
  const std::string boards = left == 1 ? "1 board left" : std::to_string(left) + " boards left";
  return secondsEach ? boards + ", " + About(left * *secondsEach) : boards;
}

}  // namespace morvane::machine
