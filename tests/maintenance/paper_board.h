#pragma once

#include <vector>

#include "support/scripted_bridge.h"

namespace morvane::maintenance {

/// A board in the slot of a machine whose board switch is on paper. Trials are `13 0E 00 00 v 01`,
/// and the sensor is asked with `1B 05`.
struct PaperBoard {
  PaperBoard() = default;
  /// Seen from `seenFrom` on, lost at `lostAt` and below; between them it stays as it was.
  PaperBoard(int seenFrom, int lostAt) : SeenFrom(seenFrom), LostAt(lostAt) {}

  int SeenFrom = 131;
  int LostAt = 100;
  bool FlipPlate = false;
  bool Seen = true;
  std::vector<int> Trials;  ///< the values tried, in order

  /// Hears a frame. The plain reply to it; empty: it is not for the switch.
  test::Bytes ReplyTo(const test::Bytes& plain) {
    if (plain[0] == 0x13 && plain[1] == 14 && plain[5] == 1) Try(plain[4]);
    if (plain[0] != 0x1B || plain[1] != 5) return {};
    const std::uint8_t head = FlipPlate ? 0x85 : 0x05;
    return test::Short({0x1B, head, static_cast<std::uint8_t>(Seen ? 1 : 0)});
  }

 private:
  void Try(int sensitivity) {
    Trials.push_back(sensitivity);
    if (sensitivity >= SeenFrom) Seen = true;
    if (sensitivity <= LostAt) Seen = false;
  }
};

}  // namespace morvane::maintenance
