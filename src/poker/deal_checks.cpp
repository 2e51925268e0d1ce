#include "poker/deal_checks.h"

#include <algorithm>

#include "poker/card_text.h"

namespace morvane::poker {
namespace {

std::string Faulty(std::size_t slot, const std::string& how) {
  return "      Slot " + std::to_string(slot) + " of this deal " + how +
         "      \r\n\r\n      A deal that is to be stacked needs 28 different cards.      ";
}

}  // namespace

std::string WhyNotStacked(const PokerDeal& deal) {
  for (auto slot = deal.begin() + 1; slot != deal.end(); ++slot) {
    const auto number = static_cast<std::size_t>(slot - deal.begin());
    if (*slot == 0) return Faulty(number, "is empty.");
    const auto same = std::find(deal.begin() + 1, slot, *slot);
    if (same == slot) continue;
    return Faulty(number, "holds the card of slot " + std::to_string(same - deal.begin()) + ".");
  }
  return "";
}

std::string CardsNotSeen(const PokerDeal& deal, const wire::CardBytes& log) {
  std::string cards;
  for (auto slot = deal.begin() + 1; slot != deal.end(); ++slot) {
    if (log[wire::MachineCard(*slot)] != 0) continue;
    const CardText card = CardTextOf(*slot);
    cards += cards.empty() ? "" : ", ";
    cards += std::string(card.Sign) + std::string(card.Rank);
  }
  return cards;
}

}  // namespace morvane::poker
