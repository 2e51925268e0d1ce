#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "model/board.h"
#include "poker/poker_order.h"

namespace morvane::cli {

/// How a run on the machine goes. What is empty means what the set or the settings say.
struct RunRequest {
  std::optional<int> From;
  std::optional<int> To;
  std::optional<int> Copies;
  std::optional<int> ReadMode;  ///< `RunOptions::ReadModes`
  bool Auto = false;            ///< nobody starts the boards at the machine
  bool Yes = false;
  poker::PokerOrder Order{};  ///< of a poker run, from its current deal on
};

/// What lies in the four pockets, held against the board.
struct Verdict {
  std::string Text;  ///< empty where nobody can look
  bool Right = true;
};

/// What can be seen and done at the machine itself; each may be empty.
struct MachineSide {
  std::function<Verdict(const Board& board)> Judge;
  std::function<void()> PressPedal;
  std::function<poker::PokerDeal()> Stacked{};  ///< the top cards of North's pile
};

/// How one board of a run ended.
struct RunBoard {
  int Number = 0;
  int Copy = 1;
  double Seconds = 0;
  bool Ok = false;
  Verdict Pockets;
};

/// What a run leaves behind; its window is gone by then.
struct RunReport {
  std::vector<RunBoard> Boards;  ///< that were begun, in order
  bool Sorted = false;           ///< a sort came to its end
  poker::PokerOrder Order;       ///< as poker runs have left it
  int DealsDone = 0;             ///< of it, that were stacked or read
  int DealsWrong = 0;            ///< of these, that lie in another order, where it can be seen
};

}  // namespace morvane::cli
