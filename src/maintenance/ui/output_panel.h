#pragma once

#include <QGroupBox>
#include <array>

class QCheckBox;
class QPushButton;

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class Maintenance;

/// Switches motors, gates and lights by hand.
class OutputPanel final : public QGroupBox {
 public:
  static constexpr std::size_t kOutputs = 8;
  OutputPanel(Maintenance& maintenance, int serviceLevel, QWidget* parent);
  void Show();
  /// What each poll may change.
  void ShowReadings();

 private:
  void MakeGateTest();
  void Switch(std::uint8_t output, bool on);

  Maintenance& maintenance_;
  std::array<QCheckBox*, kOutputs> outputs_{};
  QPushButton* Feed_card_;
  QCheckBox* GateTest_ = nullptr;
  ShownValue* GateTestText_ = nullptr;
};

}  // namespace morvane::maintenance
