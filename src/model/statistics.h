#pragma once

#include <array>
#include <cstdint>

#include "model/board_set.h"
#include "model/similarity.h"

namespace morvane {

inline constexpr int kMostPoints = 37;  ///< of a hand: the four aces, kings and queens, a jack

/// What the hands of a shape add to the totals.
struct ShapeTraits {
  int Balanced = 0;
  int Voids = 0;
  int Singletons = 0;
  int LongSuits = 0;  ///< 1 for any number of suits of seven or more
  bool operator==(const ShapeTraits&) const = default;
};
/// Of a hand of shape index 1..39; nothing of index 0.
[[nodiscard]] ShapeTraits TraitsOf(int shape);

/// The totals of complete boards; others count nowhere.
struct SetTotals {
  using ByHand = std::array<int, kHands + 1>;

  int CompletedBoards = 0;
  ByHand HcpTotal{};
  ByHand BalancedHands{};
  ByHand VoidCount{};
  ByHand SingletonCount{};
  ByHand LongSuitCount{};
  std::array<std::int16_t, ShapeTable::kCapacity + 1> ShapeCount{};          ///< over all hands
  std::array<std::array<std::int16_t, kHands + 1>, kCards + 1> CardCount{};  ///< [card][hand]
  std::array<int, kMostPoints + 1> HandsByHcp{};                             ///< over all hands

  void Add(const Board& board);
};
/// Of the boards `first`..`last` of the set; none when `last` is below `first`.
[[nodiscard]] SetTotals TotalsOf(const BoardSet& set, int first, int last);

/// How many shapes, from the most frequent on, are expected at least once in `boards` boards.
[[nodiscard]] int ListedShapes(int boards);

/// How often a card came to a hand.
struct CardFrequency {
  int Count = 0;
  int Card = 0;
  int Hand = 0;
  bool operator==(const CardFrequency&) const = default;
};
/// The extremes, hand by hand and card by card: the first stands among equals. Of no boards at all
/// they mean nothing.
struct CardExtremes {
  CardFrequency Most;
  CardFrequency Least;
};
[[nodiscard]] CardExtremes CardExtremesOf(const SetTotals& totals);

/// The most alike hands of two boards of the set, complete or not: the first pair among equals, the
/// later board in front. No pair when none has a card in common.
[[nodiscard]] AlikePair InnerSimilarity(const BoardSet& set);

}  // namespace morvane
