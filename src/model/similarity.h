#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "model/board.h"

namespace morvane {

/// The cards of each hand as a set: [hand 1..4 - 1], bit `card` (1..52). Two boards are compared by
/// counting bits, not cards.
struct HandMasks {
  std::array<std::uint64_t, kHands> Hands{};

  void Add(int hand, int card) {
    Hands[static_cast<std::size_t>(hand - 1)] |= std::uint64_t{1} << static_cast<unsigned>(card);
  }
  bool operator==(const HandMasks&) const = default;
};
[[nodiscard]] HandMasks MasksOf(const Board& board);

/// The most alike pair of hands of two boards: how many cards they have in common (0..13) and the
/// letter of each hand. Of equal pairs the first counts; without any common card both are 'N'.
struct Similarity {
  int Cards = 0;
  char HandA = 'N';
  char HandB = 'N';
};

[[nodiscard]] Similarity CompareHands(const HandMasks& a, const HandMasks& b);
[[nodiscard]] Similarity CompareHands(const Board& a, const Board& b);

/// A pair of boards with hands that are much alike.
struct AlikePair {
  int Cards = 0;  ///< in common; 0: there is no pair
  int Number = 0;
  char Hand = ' ';
  int OtherNumber = 0;
  char OtherHand = ' ';

  /// "9, 12N:5E"; empty without a pair.
  [[nodiscard]] std::string Text() const;
  bool operator==(const AlikePair&) const = default;
};

/// The index of the first of `boards` that has more than `than` (-1 or more) cards of a hand in
/// common with a hand of `board`; their number when none has. In the fastest way that this
/// processor knows.
[[nodiscard]] std::size_t FirstMoreAlike(const HandMasks& board, std::span<const HandMasks> boards,
                                         int than);

/// One way to do the work of `FirstMoreAlike`; all give the same answer.
struct SimilarityMethod {
  using Function = std::size_t (*)(const HandMasks& board, std::span<const HandMasks> boards,
                                   int than);
  const char* Name = "";
  Function FirstMoreAlike = nullptr;
};
/// The ways that this processor knows, the fastest last.
[[nodiscard]] std::span<const SimilarityMethod> SimilarityMethods();

}  // namespace morvane
