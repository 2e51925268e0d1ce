#pragma once

#include <QWidget>
#include <array>

#include "machine/display_hand.h"

namespace morvane::machine {

class MachineRun;
class PocketGauge;

/// The four pockets, North to West.
class PocketRow final : public QWidget {
 public:
  PocketRow(const MachineRun& run, QWidget* parent);

  /// Repaints at once what has changed.
  void ShowCounts();
  void ShowHcp(const BoardDisplay& display);

 private:
  const MachineRun& run_;
  std::array<PocketGauge*, kHands + 1> pockets_{};
};

}  // namespace morvane::machine
