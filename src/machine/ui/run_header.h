#pragma once

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
class StateBox;

/// How the run stands, to be read across the room: the board, `txtStatus` and `lblProgress`, the
/// pockets; and `txtDealTime`.
class RunHeader final : public QWidget {
 public:
  RunHeader(const MachineRun& run, QWidget* parent);

  /// Repaints at once what has changed.
  void ShowState();
  void ShowBoard(int number, const BoardDisplay& display);

 private:
  void MakeProgress();
  void MakeDealTime();
  QLayout* PlaceState();
  QLayout* PlaceRun();

  const MachineRun& run_;
  BoardNumber* number_;
  StateBox* txtStatus_ = nullptr;
  ShownValue* lblProgress_ = nullptr;
  ShownValue* txtDealTime_ = nullptr;
  QLabel* lblSeconds_ = nullptr;
  PocketRow* pockets_;
};

}  // namespace morvane::machine
