#pragma once

#include <QWidget>

class QPushButton;

namespace morvane::machine {

class DealingRun;
struct RunControls;

/// `cmdFirst`, `cmdPrev`, `cmdNext` and `cmdLast`: from board to board.
class WalkButtons final : public QWidget {
 public:
  WalkButtons(DealingRun& run, QWidget* parent);
  void Show(const RunControls& now);

 private:
  QPushButton* cmdFirst_;
  QPushButton* cmdPrev_;
  QPushButton* cmdNext_;
  QPushButton* cmdLast_;
};

}  // namespace morvane::machine
