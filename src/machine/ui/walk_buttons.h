#pragma once

#include <QWidget>

class QPushButton;

namespace morvane::machine {

class BoardRun;
struct RunControls;

/// `cmdFirst`, `cmdPrev`, `cmdNext` and `cmdLast`: from board to board.
class WalkButtons final : public QWidget {
 public:
  WalkButtons(BoardRun& run, QWidget* parent);
  void Show(const RunControls& now);

 private:
  QPushButton* cmdFirst_;
  QPushButton* cmdPrev_;
  QPushButton* cmdNext_;
  QPushButton* cmdLast_;
};

}  // namespace morvane::machine
