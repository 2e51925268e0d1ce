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

int CardsMissing(const Board& board, const wire::CardBytes& cardLog) {
  const wire::CardBytes pockets = HandListOf(board);
  int missing = 0;
  for (std::size_t place = 0; place < pockets.Bytes.size(); ++place) {
    if (pockets.Bytes[place] != 0 && cardLog.Bytes[place] == 0) ++missing;
  }
  return missing;
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
