#include "machine/hand_list.h"

namespace morvane::machine {

using wire::MachineCard;

wire::CardBytes HandListOf(const Board& board) {
  wire::CardBytes pockets;
  for (int card = 1; card <= kCards; ++card) {
    pockets[MachineCard::Of(card)] = PocketOfHand[board.Cards[static_cast<std::size_t>(card)]];
  }
  return pockets;
}

void TakeHandList(const wire::CardBytes& pockets, Board& board) {
  for (int card = 1; card <= kCards; ++card) {
    const std::size_t pocket = pockets[MachineCard::Of(card)];
    board.Cards[static_cast<std::size_t>(card)] =
        pocket < HandOfPocket.size() ? HandOfPocket[pocket] : std::uint8_t{0};
  }
  AnalyzeBoard(board);
}

}  // namespace morvane::machine
