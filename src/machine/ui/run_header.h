#pragma once

#include <QColor>
#include <QWidget>

#include "machine/display_hand.h"

class QLabel;
class QLayout;

namespace morvane {
class ShownValue;
}

namespace morvane::machine {

class BoardNumber;
class MachineRun;
class PocketRow;

/// How the run stands, to be read across the room: the board, `txtStatus` and `lblProgress`, the
/// pockets; and `txtDealTime`.
class RunHeader final : public QWidget {
 public:
  RunHeader(const MachineRun& run, QWidget* parent);

  /// Repaints at once what has changed.
  void ShowState();
  void ShowBoard(int number, const BoardDisplay& display);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeStatus();
  void MakeProgress();
  void MakeDealTime();
  QLayout* PlaceState();
  QLayout* PlaceRun();
  void ShowStatus(int state);
  void FitStatus();
  void ShowGround();

  const MachineRun& run_;
  BoardNumber* number_;
  ShownValue* txtStatus_ = nullptr;
  ShownValue* lblProgress_ = nullptr;
  ShownValue* txtDealTime_ = nullptr;
  QLabel* lblSeconds_ = nullptr;
  PocketRow* pockets_;
  QColor ground_;
  int leastLetters_ = 0;  ///< of the state, in pixels
  int letters_ = 0;
};

}  // namespace morvane::machine
