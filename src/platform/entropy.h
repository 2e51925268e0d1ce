#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/runtime_error.h"

namespace morvane {

/// The system's random source, and the platform's plain pseudo-random one for what needs no secret.
class Entropy {
 public:
  struct Answer {
    bool Ok = false;
    std::optional<RuntimeError> Error;  ///< the call itself failed
  };
  virtual ~Entropy() = default;
  /// Fills `bytes` from the operating system's cryptographic source.
  virtual Answer SystemRandom(std::span<std::uint8_t> bytes) = 0;
  /// Starts the pseudo-random source anew.
  virtual void Seed(std::uint64_t seed) = 0;
  /// The next pseudo-random number in [0, 1).
  virtual double Random() = 0;
};

}  // namespace morvane
