#pragma once

#include <cstddef>

#include "model/tables.h"

namespace morvane::wire {

/// A card as the machine numbers it: 1 the Two of Spades to 52 the Ace of Clubs, suit by suit, each
/// from the Two up to the Ace; 53 to 55 are jokers.
class MachineCard {
 public:
  static constexpr int kLast = 55;

  /// `number` is 1..55.
  explicit constexpr MachineCard(int number) : number_(number) {}
  /// The machine's number of a set's card 1..52.
  [[nodiscard]] static constexpr MachineCard Of(int card) { return MachineCard(Turned(card)); }

  [[nodiscard]] constexpr int Number() const { return number_; }
  /// The set's card 1..52; 0 for a joker.
  [[nodiscard]] constexpr int Card() const { return number_ <= kCards ? Turned(number_) : 0; }

 private:
  /// Each suit is turned round, which is the same step both ways.
  [[nodiscard]] static constexpr int Turned(int number) {
    return kRanks * CardSuit(number) - RankPosition(number) + 1;
  }

  int number_;
};

}  // namespace morvane::wire
