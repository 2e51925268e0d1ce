#include "simulator/card_rank.h"

namespace morvane::simulator {

std::optional<int> MachineCardIn(std::string_view words) {
  constexpr std::string_view kSuitLetters = "SHDC";
  if (words == "none") return 0;
  if (words.size() != 2) return std::nullopt;
  const std::size_t suit = kSuitLetters.find(words[0]);
  if (suit == std::string_view::npos) return std::nullopt;
  const int card = CardOf(static_cast<int>(suit) + 1, words[1]);
  return card == 0 ? std::nullopt : std::optional(wire::MachineCard::Of(card).Number());
}

}  // namespace morvane::simulator
