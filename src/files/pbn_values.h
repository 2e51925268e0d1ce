#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/board.h"
#include "model/messages.h"

namespace morvane::files {

// The two long values of PBN, each read and written in one place. A parser returns a text of
// `texts` with its placeholder `***` filled, or an empty text for success.

/// "N:AKQ.J..T98 ...": the first hand's letter, ":", then the hands clockwise from it, each as
/// spades.hearts.diamonds.clubs, "-" for a hand without cards. `dealer` is the first hand, 1..4.
[[nodiscard]] std::string FormatPbnDeal(const Board& board, int dealer);
/// Gives the cards to the hands of `board`. Neither four hands nor 13 cards are asked for.
[[nodiscard]] std::string ParsePbnDeal(std::string_view value, Board& board, const Messages& texts);

/// The declarers in the order in which `DoubleDummyTricks` has them.
inline constexpr std::array<int, kHands> kTricksDeclarers{kNorth, kSouth, kEast, kWest};

/// Twenty characters: `kTricksDeclarers`, denominations no-trump, spades, hearts, diamonds, clubs
/// in each; each the tricks made in hexadecimal, "1" where no level makes.
[[nodiscard]] std::string FormatPbnTricks(const Board& board);
[[nodiscard]] std::string ParsePbnTricks(std::string_view value, Board& board,
                                         const Messages& texts);

}  // namespace morvane::files
