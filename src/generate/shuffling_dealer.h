#pragma once

#include <array>
#include <cstdint>

#include "model/board.h"
#include "model/tables.h"

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

  std::array<std::uint32_t, 4> LfsrState{};    ///< word 0 is the most significant
  std::array<std::int8_t, kCards + 1> Deck{};  ///< [1..52]: a card
  std::uint32_t ShuffleStep = 0;               ///< the current packet size

 private:
  using Pile = std::array<std::int8_t, kCards>;
  void Riffle();
  std::size_t MovePacket(std::size_t from, Pile& pile, std::size_t height);
};

}  // namespace morvane::generate
