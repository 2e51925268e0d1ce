#pragma once

#include <cstdint>
#include <deque>

#include "support/scripted_bridge.h"

namespace morvane::maintenance {

/// A machine on paper that deals a deck of known order: each status frame gets what comes next, the
/// last of it for ever.
struct PaperDeck {
  struct Status {
    std::uint8_t Byte = 0;
    std::uint8_t Cards = 0;  ///< byte 5 as it is on the wire
    bool Pedal = false;
  };
  std::deque<Status> Plan;
  /// What it says of the card that it stopped at: the nine of spades, which was the wrong one.
  test::Bytes Verdict{0x25, 0, 7, 9, 1, 46, 62};

  /// The plain reply; empty: no command of a test deal.
  [[nodiscard]] test::Bytes PlainReplyTo(const test::Bytes& plain) {
    switch (plain[0]) {
      case 0x9F:
      case 0x98:
        return test::Short({0x18});
      case 0x19:
        return test::Short(NextStatus());
      case 0x1A:
        return test::Short({0x1A, 2, 0x90, 1, 5, 0});
      case 0x25:
        return test::Short(Verdict);
      default:
        return {};
    }
  }
  /// The same on the wire.
  [[nodiscard]] test::Bytes ReplyTo(const test::Bytes& plain) {
    const test::Bytes reply = PlainReplyTo(plain);
    return reply.empty() ? reply : test::OnTheWire(reply, 21);
  }

 private:
  test::Bytes NextStatus() {
    const Status now = Plan.front();
    if (Plan.size() > 1) Plan.pop_front();
    const std::uint8_t pedal = now.Pedal ? 8 : 0;
    return {0x19, now.Byte, 0, 0, 0, now.Cards, pedal};
  }
};

}  // namespace morvane::maintenance
