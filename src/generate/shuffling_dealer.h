#pragma once

#include <array>
#include <cstdint>

#include "model/board.h"
#include "model/riffle.h"

namespace morvane::generate {

/// The shuffling generator: riffles a deck in packets whose sizes a 128-bit shift register gives.
class ShufflingDealer {
 public:
  ShufflingDealer() { NewDeck(); }

  /// One step of the register; sets `ShuffleStep` to 1..8.
  void LfsrStep();
  /// One candidate, cards only. The deck goes on from where the last deal left it.
  void NextShuffledDeal(Board& board);
  /// Puts the deck in order, 1..52.
  void NewDeck();

  std::array<std::uint32_t, 4> LfsrState{};  ///< word 0 is the most significant
  CardDeck Deck{};                           ///< the editor's random fill shuffles the same one
  std::uint32_t ShuffleStep = 0;             ///< the current packet size

 private:
  std::uint32_t NextPacket(std::size_t from);
};

}  // namespace morvane::generate
