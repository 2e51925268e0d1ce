#include "machine/hand_list.h"

#include <algorithm>
#include <array>

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

wire::CardBytes PocketsInTurn(int dealer) {
  constexpr std::array<std::uint8_t, kHands + 1> kNext{0, 3, 1, 4, 2};
  wire::CardBytes pockets;
  std::uint8_t pocket = PocketOfHand[static_cast<std::size_t>(dealer)];
  for (std::size_t place = 0; place < kCards; ++place) {
    pockets.Bytes[place] = pocket;
    pocket = kNext[pocket];
  }
  return pockets;
}

wire::CardBytes PocketsOfPlayedBoard() {
  wire::CardBytes pockets;
  for (std::size_t place = 0; place < kPlayedPlaces; ++place) {
    const std::size_t pocket = std::min<std::size_t>(place / kFullHand + 1, kHands);
    pockets.Bytes[place] = static_cast<std::uint8_t>(pocket);
  }
  return pockets;
}

void TakeHandList(const wire::CardBytes& pockets, Board& board) {
  for (int card = 1; card <= kCards; ++card) {
    const std::size_t pocket = pockets[MachineCard::Of(card)];
    board.Cards[static_cast<std::size_t>(card)] =
        pocket < HandOfPocket.size() ? HandOfPocket[pocket] : std::uint8_t{0};
  }
  board.Tricks = {};
  AnalyzeBoard(board);
}

}  // namespace morvane::machine
