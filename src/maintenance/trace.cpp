#include "maintenance/trace.h"

#include <algorithm>

namespace morvane::maintenance {

bool Trace::Add(Time now, double value) {
  const std::int64_t step = now / kStep;
  const bool begins = step != newest_;
  // Steps without a value are empty.
  constexpr auto kAll = static_cast<std::int64_t>(kSteps);
  for (std::int64_t next = std::max(newest_, step - kAll) + 1; next <= step; ++next) {
    if (next >= 0) spans_[PlaceOf(next)].reset();
  }
  newest_ = step;
  auto& span = spans_[PlaceOf(step)];
  if (!span) span = Span{value, value};
  span->Low = std::min(span->Low, value);
  span->High = std::max(span->High, value);
  return begins;
}

std::optional<Trace::Span> Trace::At(std::size_t stepsAgo) const {
  const std::int64_t step = newest_ - static_cast<std::int64_t>(stepsAgo);
  if (stepsAgo >= kSteps || step < 0) return std::nullopt;
  return spans_[PlaceOf(step)];
}

std::optional<Trace::Span> Trace::Whole() const {
  std::optional<Span> whole;
  for (const auto& span : spans_) {
    if (!span) continue;
    if (!whole) whole = span;
    whole->Low = std::min(whole->Low, span->Low);
    whole->High = std::max(whole->High, span->High);
  }
  return whole;
}

}  // namespace morvane::maintenance
