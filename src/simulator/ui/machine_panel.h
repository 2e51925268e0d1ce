#pragma once

#include <QWidget>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>

#include "model/tables.h"
#include "platform/event_loop.h"
#include "simulator/pack_source.h"
#include "simulator/simulated_machine.h"

class QLayout;
class QPushButton;

namespace morvane {
class NumberEdit;
class ShownValue;
}  // namespace morvane

namespace morvane::simulator {

class FeederBox;
class FrameBox;
class SensorBox;

/// The front of the simulated machine: what a person can do to it and see of it. A window of its
/// own that no other blocks; it stays as long as the program does.
class MachinePanel final : public QWidget {
 public:
  MachinePanel(EventLoop& loop, SimulatedMachine& machine, PackSource& packs);
  ~MachinePanel() override;

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QPushButton* AddButton(const char* name, const char* caption, std::function<void()> press);
  NumberEdit* AddNumberBox(const char* name, const char* spokenName, int limit);
  QLayout* MakeState();
  QWidget* MakeTrouble();
  QWidget* MakeSlot();
  QWidget* MakeFault();
  QWidget* MakeTabs();
  QWidget* MakePockets();

  void InsertBoard(int number);
  void RemoveBoard();
  void SwitchPower();
  void ShowFault();
  void ShowMachine();
  void ShowTrouble();
  void ShowPockets();

  SimulatedMachine& machine_;
  PackSource& packs_;
  int inserted_ = 0;  ///< the board in the slot, 0 when it is empty
  int lastInserted_ = 0;
  std::uint64_t shown_ = ~std::uint64_t{0};

  ShownValue* state_ = nullptr;
  QPushButton* power_ = nullptr;
  ShownValue* trouble_ = nullptr;
  QPushButton* pedal_ = nullptr;
  ShownValue* slot_ = nullptr;
  NumberEdit* board_ = nullptr;
  QPushButton* remove_ = nullptr;
  NumberEdit* code_ = nullptr;
  ShownValue* fault_ = nullptr;
  QPushButton* causeFault_ = nullptr;
  std::array<ShownValue*, kHands + 1> pockets_{};
  FeederBox* feeder_ = nullptr;
  FrameBox* frames_ = nullptr;
  SensorBox* sensors_ = nullptr;
  std::unique_ptr<Timer> refresh_;
};

}  // namespace morvane::simulator
