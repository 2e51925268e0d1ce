#pragma once

#include <algorithm>
#include <chrono>

namespace morvane::bench {

/// The shortest of `runs` runs of `work`, in milliseconds.
template <typename Work>
double Milliseconds(int runs, Work work) {
  double best = 1e9;
  for (int run = 0; run < runs; ++run) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    best = std::min(best, taken.count());
  }
  return best;
}

}  // namespace morvane::bench
