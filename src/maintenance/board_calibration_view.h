#pragma once

namespace morvane::maintenance {

/// What the calibration of the board switch needs of its window. Everything shown is read from
/// `BoardCalibration`; the call says that it changed. As it stands here it shows nothing.
class BoardCalibrationView {
 public:
  virtual ~BoardCalibrationView() = default;
  /// After each step, and when a sweep is over.
  virtual void ShowCalibration() {}
};

}  // namespace morvane::maintenance
