#pragma once

#include <QWidget>

class QPushButton;

namespace morvane {
class NumberEdit;
}

namespace morvane::machine {

class BoardRun;

/// How many copies of each board are dealt, `NumberCopies`, and from copy to copy: `PrevCopy` and
/// `NextCopy`.
class CopiesBox final : public QWidget {
 public:
  CopiesBox(BoardRun& run, QWidget* parent);
  void Show();

 private:
  void PlaceControls();
  void ShowNumber();

  BoardRun& run_;
  NumberEdit* NumberCopies_;
  QPushButton* PrevCopy_;
  QPushButton* NextCopy_;
};

}  // namespace morvane::machine
