#pragma once

#include <array>

#include "poker/poker_dialog.h"

class QPushButton;
class QWidget;

namespace morvane::poker {

inline constexpr std::size_t kPokerButtons = static_cast<std::size_t>(PokerButton::ReadNext) + 1;

/// The buttons of the window. Each is made where its turn comes for the tab key, and belongs to its
/// parent.
class PokerButtons {
 public:
  explicit PokerButtons(Poker& poker) : poker_(poker) {}

  /// A high one, for a run of cards.
  QPushButton* MakeHigh(PokerButton button, QWidget* parent);
  QPushButton* Make(PokerButton button, QWidget* parent);

  /// Which are on; Enter presses the one that goes on with the work.
  void Show();
  /// Brings the operator to that one.
  void FocusNext();

 private:
  [[nodiscard]] QPushButton* Of(PokerButton button) const {
    return buttons_[static_cast<std::size_t>(button)];
  }

  Poker& poker_;
  std::array<QPushButton*, kPokerButtons> buttons_{};
};

}  // namespace morvane::poker
