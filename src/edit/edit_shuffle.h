#pragma once

#include <cstdint>

#include "model/board.h"
#include "model/riffle.h"
#include "platform/entropy.h"

namespace morvane::edit {

/// What the random fill draws on. All of it goes on from where the last fill left it, as long as
/// the program runs; the deck is the shuffling generator's.
struct EditChance {
  Entropy& Random;
  std::uint32_t& StartParamMouse;  ///< state of the small generator, with
  std::int32_t& StartParamDays;
  CardDeck& Deck;
};

/// One step of the small generator; a packet size 1..8.
std::uint32_t SmallRandomStep(EditChance& chance);
/// Ten riffles of the deck.
void ShuffleForEdit(EditChance& chance);
/// Gives the cards of `board` that no hand holds, in the deck's order, round the table to the hands
/// that have fewer than 13.
void FillFromDeck(Board& board, const CardDeck& deck);

}  // namespace morvane::edit
