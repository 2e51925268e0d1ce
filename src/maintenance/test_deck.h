#pragma once

#include <string>

#include "maintenance/test_deal.h"

// What is shown of a test deal, in a window or on a terminal.

namespace morvane::maintenance {

/// What is known of a place in the deck.
enum class DeckMark : std::uint8_t {
  kAhead,
  kSeen,      ///< it has passed the camera and was the one expected
  kExpected,  ///< the machine stopped where this one was due
  kTakenFor,  ///< it took that card for this one
};
/// Of the machine's card 1..52.
[[nodiscard]] DeckMark MarkOf(const TestDeal& deal, int number);

/// How far the deal is, or what has come of it.
[[nodiscard]] std::string StateText(const TestDeal& deal);

}  // namespace morvane::maintenance
