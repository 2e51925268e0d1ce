#pragma once

#include <QGroupBox>
#include <array>

namespace morvane {
class ShownText;
}

namespace morvane::maintenance {

class Maintenance;
class SensorCell;

/// What the machine took the last card for.
class VerdictPanel final : public QGroupBox {
 public:
  static constexpr std::size_t kTexts = 5;
  VerdictPanel(const Maintenance& maintenance, int serviceLevel, QWidget* parent);
  void Show();

 private:
  const Maintenance& maintenance_;
  std::array<SensorCell*, kTexts> texts_{};
  ShownText* Focus_ = nullptr;  ///< technicians have it
};

}  // namespace morvane::maintenance
