#pragma once

#include <random>

#include "platform/entropy.h"

namespace morvane {

/// The operating system's cryptographic source; a Mersenne twister where no secret is needed.
class SystemEntropy final : public Entropy {
 public:
  Answer SystemRandom(std::span<std::uint8_t> bytes) override;
  void Seed(std::uint64_t seed) override { engine_.seed(seed); }
  double Random() override;

 private:
  std::mt19937_64 engine_;
};

}  // namespace morvane
