#pragma once

#include <QGroupBox>
#include <array>
#include <cstdint>

#include "wire/service_commands.h"

class QCheckBox;
class QPushButton;

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class Maintenance;

/// A check box of an output of the machine.
struct OutputBox {
  std::uint8_t Bit;
  const char* Name;
  const char* Caption;
};
inline constexpr std::array<OutputBox, 8> kOutputBoxes{{
    {wire::OutputsCommand::kMotors, "Motors", "&Motors on"},
    {wire::OutputsCommand::kGate1, "Gate1", "Gate &1"},
    {wire::OutputsCommand::kGate2, "Gate2", "Gate &2"},
    {wire::OutputsCommand::kGate3, "Gate3", "Gate &3"},
    {wire::OutputsCommand::kCamLeds, "Cam_leds", "Camera &LEDs"},
    {wire::OutputsCommand::kCamPower, "Cam_power", "Camera Po&wer"},
    {wire::OutputsCommand::kFrontGreenLed, "Front_green_led", "Front &Green LED"},
    {wire::OutputsCommand::kFrontRedLed, "Front_Red_Led", "Fro&nt Red LED"},
}};

/// Switches motors, gates and lights by hand.
class OutputPanel final : public QGroupBox {
 public:
  OutputPanel(Maintenance& maintenance, int serviceLevel, QWidget* parent);
  void Show();
  /// What each poll may change.
  void ShowReadings();

 private:
  void MakeGateTest();
  void Switch(std::uint8_t output, bool on);

  Maintenance& maintenance_;
  std::array<QCheckBox*, kOutputBoxes.size()> outputs_{};
  QPushButton* Feed_card_;
  QCheckBox* GateTest_ = nullptr;
  ShownValue* GateTestText_ = nullptr;
};

}  // namespace morvane::maintenance
