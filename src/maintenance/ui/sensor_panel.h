#pragma once

#include <QWidget>
#include <array>

#include "platform/clock.h"

class QGroupBox;

namespace morvane::maintenance {

class Maintenance;
class SensorCell;

/// What all sensors of the machine say, each at its own place.
class SensorPanel final : public QWidget {
 public:
  /// `clock` says when a reading came.
  SensorPanel(const Maintenance& maintenance, const Clock& clock, QWidget* parent);
  void Show();

 private:
  QGroupBox* MakePhotos();
  QGroupBox* MakeSwitches();
  QGroupBox* MakeMotors();
  QGroupBox* MakeInside();
  QGroupBox* MakeLabel();

  const Maintenance& maintenance_;
  const Clock& clock_;
  std::array<SensorCell*, 6> photos_{};  ///< [1..5]
  SensorCell* Front_Switch_ = nullptr;
  SensorCell* Cover_Switch_ = nullptr;
  SensorCell* Box_Switch_ = nullptr;
  SensorCell* Flip_Switch_ = nullptr;
  std::array<SensorCell*, 5> motors_{};  ///< [1..4]
  SensorCell* Inside_temp_ = nullptr;
  SensorCell* Supply_volt_ = nullptr;
  SensorCell* Board_no_txt_ = nullptr;
  SensorCell* Board_no_test_txt_ = nullptr;
};

}  // namespace morvane::maintenance
