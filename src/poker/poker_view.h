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
inline constexpr std::size_t kPokerButtons = 17;

/// What poker needs of its window. `ShowBoard` shows the deal; `ShowControls` also the texts.
class PokerView : public machine::RunView {
 public:
  virtual void Focus(PokerButton button) = 0;
};

class PokerDialog {
 public:
  virtual ~PokerDialog() = default;
  /// Shows the window and gives it away; it goes when it is destroyed. Nothing: this program has no
  /// such window.
  [[nodiscard]] virtual std::unique_ptr<PokerView> OpenPoker(Poker& /*poker*/) { return nullptr; }
};

}  // namespace morvane::poker
