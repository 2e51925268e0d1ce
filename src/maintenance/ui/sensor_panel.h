#pragma once

#include <QWidget>
#include <array>

#include "maintenance/readings.h"
#include "maintenance/trace.h"

class QGroupBox;

namespace morvane::maintenance {

class SensorCell;

/// What all sensors of the machine say, each at its own place.
class SensorPanel final : public QWidget {
 public:
  explicit SensorPanel(QWidget* parent);
  /// Puts the picture of the last half minute under each measure.
  void AddTraces();
  /// `unlit`: the flip plate is not known for want of light.
  void Show(const Readings& now, bool unlit);
  /// The traces go on.
  void Follow(Trace::Time time, const Readings& now);

 private:
  QGroupBox* MakePhotos();
  QGroupBox* MakeSwitches();
  QGroupBox* MakeMotors();
  QGroupBox* MakeInside();
  QGroupBox* MakeLabel();

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
