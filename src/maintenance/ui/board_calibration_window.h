#pragma once

#include "maintenance/board_calibration_view.h"
#include "maintenance/ui/work_dialog.h"

class QLabel;
class QProgressBar;

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class BoardCalibration;
class BoardCurve;

/// `Board_calibration`: the sweeps as they go, as a curve. Escape and the close box cancel them.
class BoardCalibrationWindow final : public WorkDialog, public BoardCalibrationView {
 public:
  BoardCalibrationWindow(BoardCalibration& calibration, QWidget* parent);

  void ShowCalibration() override;

  void reject() override;

 private:
  QWidget* MakeBody();
  QWidget* MakeLabels();

  BoardCalibration& calibration_;
  QProgressBar* ProgressBar1_ = nullptr;
  QLabel* Label1_ = nullptr;
  ShownValue* Label2_ = nullptr;
  ShownValue* Label3_ = nullptr;
  BoardCurve* curve_ = nullptr;
};

}  // namespace morvane::maintenance
