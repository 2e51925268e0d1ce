#include "simulator/line/paced_line.h"

#include <algorithm>

namespace morvane::simulator {
namespace {

/// As many as a bridge's small buffer hands over at a time.
constexpr std::size_t kBytesAtOnce = 16;

}  // namespace

PacedLine::Time PacedLine::WireTime(std::size_t bytes) const {
  return pace_ == Pace::kWire ? WiredMachine::WireTime(bytes) : Time(0);
}

PacedLine::Time PacedLine::ArrivalOf(std::size_t byte) const {
  return sayingSince_ + WireTime(taken_ + byte);
}

void PacedLine::Hear(std::span<const std::uint8_t> bytes, Time now) {
  heardUntil_ = std::max(heardUntil_, now) + WireTime(bytes.size());
  for (const std::uint8_t byte : bytes) {
    const auto saying = machine_.Hear(byte, now);
    if (!saying) continue;
    if (said_.Count() == 0) {
      sayingSince_ = heardUntil_ + (pace_ == Pace::kWire ? machine_.ThinkingTime() : Time(0));
      taken_ = 0;
    }
    said_.Push(saying->Wire);
    said_.Push(saying->Unasked);
  }
}

std::size_t PacedLine::Take(std::span<std::uint8_t> bytes, Time now) {
  const std::size_t most = std::min(bytes.size(), said_.Count());
  std::size_t arrived = 0;
  while (arrived < most && ArrivalOf(arrived + 1) <= now) ++arrived;
  said_.Take(bytes.first(arrived));
  taken_ += arrived;
  return arrived;
}

std::optional<PacedLine::Time> PacedLine::NextAt() const {
  if (said_.Count() == 0) return std::nullopt;
  // The head of a frame is waited for by itself.
  const std::size_t next = taken_ == 0 ? wire::kShortFrame : kBytesAtOnce;
  return ArrivalOf(std::min(next, said_.Count()));
}

void PacedLine::Clear() {
  said_.Clear();
  machine_.ForgetHalfHeard();
}

}  // namespace morvane::simulator
