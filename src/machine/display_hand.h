#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/board.h"

namespace morvane::machine {

class BoardRun;

/// What `Picture1` shows of the current board.
struct BoardDisplay {
  struct Card {
    std::string_view Letter;
    bool Dealt = true;  ///< drawn in full colour; otherwise the machine has not dealt it: pale
  };
  using Suit = std::vector<Card>;

  std::string Board;   ///< " Board: 7"
  std::string Copy;    ///< " Copy: 1/2"; empty where there are no copies
  std::string Vul;     ///< "Vul: NS"
  std::string Dealer;  ///< "Dealer: North"
  int VulNumber = 1;
  int DealerNumber = kNorth;
  bool HandsShown = false;                                     ///< off: nothing below is drawn
  std::array<std::array<Suit, kSuits + 1>, kHands + 1> Hands;  ///< [hand][suit]
  std::array<std::string, kHands + 1> lblHCP;                  ///< [hand]; empty when not shown
  bool Analyzed = false;
  std::array<std::uint8_t, 21> Tricks{};  ///< as in `Board`
};

/// `number` is the current board's number.
[[nodiscard]] BoardDisplay DisplayHand(const BoardRun& run, int number);

}  // namespace morvane::machine
