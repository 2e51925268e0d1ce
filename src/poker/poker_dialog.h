#pragma once

#include <cstdint>
#include <memory>

#include "machine/run_view.h"

namespace morvane::poker {

class Poker;

/// The buttons of the window `Poker`, by the system's names.
enum class PokerButton : std::uint8_t {
  Generate,
  Poker_Load,
  Poker_Save,
  Poker_Print,
  Poker_print_setup,
  First,
  Prevoius,
  Nextd,
  Last,
  FirstDeal,
  SecondDeal,
  ThirdDeal,
  FourthDeal,
  NextDeal,
  CancelDeal,
  Read,
  ReadNext,
};

class PokerDialog {
 public:
  virtual ~PokerDialog() = default;
  /// Shows the window and gives it away; it goes when it is destroyed. Nothing: this program has no
  /// such window. Its `ShowBoard` shows the deal, its `FocusNext` brings the operator to
  /// `Poker::NextButton`.
  [[nodiscard]] virtual std::unique_ptr<machine::RunView> OpenPoker(Poker& /*poker*/) {
    return nullptr;
  }
};

}  // namespace morvane::poker
