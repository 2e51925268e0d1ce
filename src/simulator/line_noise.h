#pragma once

#include <cstdint>
#include <random>
#include <span>

namespace morvane::simulator {

/// A bad cable: each byte that passes is changed with the same small chance. A generator of its own
/// keeps the packs of a seed the same whatever the noise.
class LineNoise {
 public:
  LineNoise(double chance, std::uint64_t seed) : chance_(chance), engine_(seed) {}

  void Pass(std::span<std::uint8_t> bytes) {
    if (chance_ <= 0.0) return;
    constexpr double kSteps = 9007199254740992.0;  // 2 to the 53rd
    for (std::uint8_t& byte : bytes) {
      const std::uint64_t number = engine_();
      if (static_cast<double>(number >> 11U) / kSteps >= chance_) continue;
      byte = static_cast<std::uint8_t>(byte ^ (1U + engine_() % 255U));
    }
  }

 private:
  double chance_;
  std::mt19937_64 engine_;
};

}  // namespace morvane::simulator
