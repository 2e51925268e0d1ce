#include "poker/card_text.h"

#include "text/suit_signs.h"
#include "wire/machine_card.h"

namespace morvane::poker {

CardText CardTextOf(int number) {
  if (number <= 0) return {};
  if (number > kCards) return {0, {}, "JK", false};
  const int card = wire::MachineCard(number).Card();
  const int suit = CardSuit(card);
  const auto rank = static_cast<std::size_t>(RankPosition(card) - 1);
  return {.Suit = suit,
          .Sign = SuitSigns[static_cast<std::size_t>(suit)],
          .Rank = CardLetters.substr(rank, 1),
          .Red = suit == 2 || suit == 3};
}

}  // namespace morvane::poker
