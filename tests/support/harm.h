#pragma once

#include "support/scripted_bridge.h"

namespace morvane::test {

/// What is done to a reply on its way.
enum class Harm { kLost, kCorrupted, kCut };

/// What of the wire image arrives.
inline Bytes Harmed(Harm harm, Bytes wire) {
  switch (harm) {
    case Harm::kLost:
      return {};
    case Harm::kCorrupted:
      wire[2] ^= 0x10;
      return wire;
    case Harm::kCut:
      wire.resize(wire.size() - 5);
      return wire;
  }
  return wire;
}

}  // namespace morvane::test
