#pragma once

#include <QWidget>

#include "simulator/pack_source.h"
#include "simulator/wired_machine.h"

class QComboBox;
class QLayout;
class QPushButton;

namespace morvane {
class ShownValue;
}

namespace morvane::simulator {

/// What the machine is fed with: the cards of the run, and the boards that lie ready to be read
/// and how the piles of a stacking run come back.
class FeederBox final : public QWidget {
 public:
  FeederBox(WiredMachine& machine, PackSource& packs, QWidget* parent);

  void ShowMachine();

 private:
  QLayout* MakeCarrier();
  void LoadInOrder();
  void LoadBoards();

  WiredMachine& machine_;
  PackSource& packs_;
  ShownValue* cards_;
  ShownValue* boards_;
  QPushButton* load_;
  QComboBox* carry_ = nullptr;
  QPushButton* putBack_ = nullptr;
};

}  // namespace morvane::simulator
