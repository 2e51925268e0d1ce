#pragma once

namespace morvane::analysis {

/// What a bar shows, in percent, after `ticks` of a board that is expected to take `estimate`. It
/// slows down, rather than stops, when the board takes longer.
[[nodiscard]] constexpr double SoftProgress(int ticks, int estimate) {
  constexpr double kFirstKnee = 40;
  constexpr double kSecondKnee = 80;
  double percent = 100.0 * ticks / (estimate < 1 ? 1 : estimate);
  if (percent > kFirstKnee) percent = kFirstKnee + (percent - kFirstKnee) / 4;
  if (percent > kSecondKnee) percent = kSecondKnee + (percent - kSecondKnee) / 10;
  return percent > 100 ? 100 : percent;
}

}  // namespace morvane::analysis
