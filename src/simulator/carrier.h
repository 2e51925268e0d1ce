#pragma once

#include <array>
#include <utility>

#include "simulator/carry.h"
#include "simulator/deck.h"

namespace morvane::simulator {

/// The person who, between two stacking runs, carries the piles back to the feeder. What he is told
/// to do wrong he does once.
class Carrier {
 public:
  using Pockets = std::array<Pile, kHands + 1>;  ///< [pocket 1..4]

  explicit Carrier(Carry first) : next_(first) {}
  void Next(Carry way) { next_ = way; }
  [[nodiscard]] Carry Next() const { return next_; }

  /// The piles become what lies in the feeder; the carried pockets are empty then.
  void CarryBack(Pockets& pockets, Feeder& feeder);

 private:
  Carry next_;
};

}  // namespace morvane::simulator
