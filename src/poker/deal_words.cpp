#include "poker/deal_words.h"

#include <array>

#include "poker/card_text.h"
#include "poker/slot_names.h"

namespace morvane::poker {
namespace {

constexpr std::array<std::string_view, 5> kSuitWords{"", "spades", "hearts", "diamonds", "clubs"};

std::string CardInWords(int number) {
  if (number == 0) return "empty";
  const CardText card = CardTextOf(number);
  if (card.Suit == 0) return "joker";
  return std::string(kSuitWords[static_cast<std::size_t>(card.Suit)]) + " " +
         std::string(card.Rank);
}

}  // namespace

std::string SlotsInWords(const PokerDeal& deal, int first, int last) {
  std::string words;
  for (int slot = first; slot <= last; ++slot) {
    const std::string_view name = SlotName(slot);
    words.append(words.empty() ? "" : " ").append(std::to_string(slot));
    if (!name.empty()) words.append(" ").append(name);
    words.append(": ").append(CardInWords(deal[static_cast<std::size_t>(slot)])).append(".");
  }
  return words;
}

}  // namespace morvane::poker
