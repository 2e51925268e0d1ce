#pragma once

#include <QWidget>
#include <array>
#include <functional>

#include "simulator/wired_machine.h"

class QCheckBox;
class QComboBox;
class QLayout;

namespace morvane {
class NumberEdit;
class ShownValue;
}  // namespace morvane

namespace morvane::simulator {

/// What a technician's hands do at the open machine, and which of its outputs are on.
class SensorBox final : public QWidget {
 public:
  SensorBox(WiredMachine& machine, QWidget* parent);

  void ShowMachine();

 private:
  using Take = std::function<void(bool on)>;
  QCheckBox* AddCheck(const char* name, const QString& caption, Take take);
  NumberEdit* AddNumber(const char* name, const char* caption, int limit, QLayout& row);
  QLayout* MakePhotos();
  QLayout* MakeSwitches();
  QLayout* MakeNumbers();
  QLayout* MakeCard();
  void ShowCard();

  WiredMachine& machine_;
  std::array<QCheckBox*, Sensors::kPhotos> photos_{};
  std::array<QCheckBox*, 3> switches_{};  ///< [Sensors::Switch]
  QComboBox* card_ = nullptr;
  ShownValue* outputs_;
};

}  // namespace morvane::simulator
