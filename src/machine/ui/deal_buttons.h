#pragma once

#include <QWidget>

class QPushButton;

namespace morvane::machine {

class BoardRun;
struct RunControls;

/// `cmdDeal`, `Deal_next`, `cmdBreak` and, where boards are read, `cmdClear`.
class DealButtons final : public QWidget {
 public:
  DealButtons(BoardRun& run, QWidget* parent);

  void Show(const RunControls& now);
  /// Makes the button that deals next the window's default, and hands it a focus that nothing has.
  void TakeDefault(const RunControls& now);
  void FocusNext();

 private:
  QPushButton* cmdDeal_;
  QPushButton* Deal_next_;
  QPushButton* cmdBreak_;
  QPushButton* cmdClear_;
};

}  // namespace morvane::machine
