#pragma once

#include "machine/ui/run_dialog.h"
#include "poker/poker.h"
#include "poker/ui/poker_buttons.h"

namespace morvane::machine {
class TestPanel;
}

namespace morvane::poker {

class DealSide;
class Head;
class OrderBox;

/// `Poker`: an order of prepared deals, and the machine that stacks packs by it.
class PokerWindow final : public machine::RunDialog {
 public:
  PokerWindow(Program& program, Poker& poker, QWidget* parent);
  PokerWindow(const PokerWindow&) = delete;
  PokerWindow& operator=(const PokerWindow&) = delete;
  ~PokerWindow() override;

  void ShowState() override;
  void ShowBoard() override;
  void ShowControls() override;
  void FocusNext() override;

  /// Escape does what the close box does.
  void reject() override;
  bool eventFilter(QObject* button, QEvent* event) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeBody();
  QWidget* MakeCommands();
  /// Nothing is under way, neither cards nor a box.
  [[nodiscard]] bool IsFree() const { return poker_.IsOn(PokerButton::Poker_print_setup); }

  Poker& poker_;
  PokerButtons buttons_;
  Head* head_ = nullptr;
  DealSide* deal_ = nullptr;
  OrderBox* order_ = nullptr;
  machine::TestPanel* test_ = nullptr;
};

}  // namespace morvane::poker
