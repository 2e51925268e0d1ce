#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace morvane {

// Numbering used everywhere. Hands 1 North .. 4 West, 0 = none. Suits 1 Spades .. 4 Clubs. Cards
// 1..52 suit by suit, each from Ace (rank position 1) to Two (13). Arrays indexed by hand, suit or
// card leave element 0 without meaning, so that the index is the number itself.

inline constexpr int kNorth = 1;
inline constexpr int kEast = 2;
inline constexpr int kSouth = 3;
inline constexpr int kWest = 4;
inline constexpr int kHands = 4;
inline constexpr int kSuits = 4;
inline constexpr int kCards = 52;
inline constexpr int kRanks = 13;
inline constexpr int kFullHand = kCards / kHands;  ///< the cards of a hand in a complete board
inline constexpr int kMaxBoards = 640;
/// 0 no-trump, 1 Spades .. 4 Clubs.
inline constexpr int kDenominations = 5;
inline constexpr int kResults = kHands * kDenominations;  ///< of a double-dummy analysis

inline constexpr std::string_view CardLetters = "AKQJT98765432";

/// Spade, Heart, Diamond, Club in the OEM character set, for boxes set in the Terminal font.
inline constexpr std::string_view SuitGlyphsTerminal = "\x06\x03\x04\x05";
/// The same four in the Symbol font.
inline constexpr std::string_view SuitGlyphsSymbol = "\xAA\xA9\xA8\xA7";

inline constexpr std::array<std::string_view, 5> HandName{"", "North", "East", "South", "West"};
inline constexpr std::array<std::string_view, 5> VulName{"", "None", "NS", "EW", "All"};
inline constexpr std::array<std::string_view, 5> VulNameLong{"", "None", "N-S", "E-W", "Both"};

/// The machine's pocket of each hand, and its inverse; pockets are 1 South, 2 West, 3 East, 4
/// North.
inline constexpr std::array<std::uint8_t, 5> PocketOfHand{0, 4, 3, 1, 2};
inline constexpr std::array<std::uint8_t, 5> HandOfPocket{0, 3, 4, 2, 1};

/// 1 Spades .. 4 Clubs of card 1..52.
[[nodiscard]] constexpr int CardSuit(int card) { return (card + 12) / 13; }
/// 1 Ace .. 13 Two of card 1..52.
[[nodiscard]] constexpr int RankPosition(int card) { return (card - 1) % 13 + 1; }
[[nodiscard]] constexpr char CardLetter(int card) {
  return CardLetters[static_cast<std::size_t>(RankPosition(card) - 1)];
}
/// The card 1..52 of suit 1..4 and the letter of its rank; 0 when there is none.
[[nodiscard]] constexpr int CardOf(int suit, char letter) {
  const std::size_t rank = CardLetters.find(letter);
  if (suit < 1 || suit > kSuits || rank == std::string_view::npos) return 0;
  return (suit - 1) * kRanks + static_cast<int>(rank) + 1;
}
/// High-card points of card 1..52: A 4, K 3, Q 2, J 1.
[[nodiscard]] constexpr int CardHcp(int card) {
  return RankPosition(card) <= 4 ? 5 - RankPosition(card) : 0;
}
/// "N", "E", "S" or "W" of hand 1..4.
[[nodiscard]] constexpr char HandLetter(int hand) {
  return HandName[static_cast<std::size_t>(hand)][0];
}

/// The hand 1..4 of its letter in either case, 0 for any other character.
[[nodiscard]] constexpr int HandOfLetter(char letter) {
  for (int hand = kNorth; hand <= kWest; ++hand) {
    if (letter == HandLetter(hand) || letter == HandLetter(hand) - 'A' + 'a') return hand;
  }
  return 0;
}

/// Where the result of declarer 1..4 in denomination 0..4 stands in `Board::Tricks`.
[[nodiscard]] constexpr std::size_t TricksIndex(int declarer, std::size_t denomination) {
  return static_cast<std::size_t>((declarer - 1) * kDenominations) + denomination;
}

/// The next hand clockwise: 1, 2, 3, 4, 1, ...
[[nodiscard]] constexpr int NextHand(int hand) { return hand % kHands + 1; }

/// 1 North .. 4 West, the dealer of board `n`.
[[nodiscard]] constexpr int DealerOfNumber(int n) { return ((n - 1) & 3) + 1; }
/// 1 None, 2 NS, 3 EW, 4 All: the vulnerability of board `n` in the 16-board duplicate cycle.
[[nodiscard]] constexpr int VulOfNumber(int n) {
  const int v = (n - 1) & 15;
  return ((v + v / 4) & 3) + 1;
}

}  // namespace morvane
