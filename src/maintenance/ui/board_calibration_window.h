#pragma once

#include "maintenance/board_calibration_view.h"
#include "maintenance/ui/service_dialog.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class BoardCalibration;
class BoardCurve;

/// `Board_calibration`: the sweeps as they go, as a curve. Escape and the close box cancel them.
class BoardCalibrationWindow final : public ServiceDialog, public BoardCalibrationView {
 public:
  BoardCalibrationWindow(BoardCalibration& calibration, QWidget* parent);
  BoardCalibrationWindow(const BoardCalibrationWindow&) = delete;
  BoardCalibrationWindow& operator=(const BoardCalibrationWindow&) = delete;
  ~BoardCalibrationWindow() override;

  void ShowCalibration() override;

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* MakeBody();
  QWidget* MakeLabels();
  QWidget* MakeButtons();

  BoardCalibration& calibration_;
  QProgressBar* ProgressBar1_ = nullptr;
  QLabel* Label1_ = nullptr;
  ShownValue* Label2_ = nullptr;
  ShownValue* Label3_ = nullptr;
  BoardCurve* curve_ = nullptr;
  QPushButton* Command1_ = nullptr;
};

}  // namespace morvane::maintenance
