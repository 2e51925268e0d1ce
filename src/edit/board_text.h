#pragma once

#include <string>
#include <string_view>

#include "model/board.h"

namespace morvane::edit {

// The sixteen suit boxes, index 0..15: hand by hand, and in each from the spades down.

inline constexpr int kSuitBoxes = kHands * kSuits;
[[nodiscard]] constexpr int HandOfBox(int box) { return box / kSuits + 1; }
[[nodiscard]] constexpr int SuitOfBox(int box) { return (box & 3) + 1; }

/// The rank letters that the box's hand holds in the box's suit, in card order.
[[nodiscard]] std::string SuitText(const Board& board, int box);
/// The rank letters of the suit's cards that no hand holds.
[[nodiscard]] std::string MissingText(const Board& board, int suit);
/// Gives the box's hand exactly the cards of the box's suit whose letters stand in `text`, in
/// either case; a card that another hand held goes over. Other characters are ignored.
void ParseSuit(Board& board, int box, std::string_view text);

/// The number of cards in a hand, with a sign that says whether it is right and what is off.
[[nodiscard]] std::string CountText(int cards);
/// "N: ", "E: ", "S: " or "W: " and the hand's suits, joined by ".".
[[nodiscard]] std::string HandLine(const Board& board, int hand);

}  // namespace morvane::edit
