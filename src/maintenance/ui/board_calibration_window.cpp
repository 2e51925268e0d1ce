#include "maintenance/ui/board_calibration_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "maintenance/board_calibration.h"
#include "maintenance/ui/board_curve.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {

BoardCalibrationWindow::BoardCalibrationWindow(BoardCalibration& calibration, QWidget* parent)
    : WorkDialog("Board_calibration", "Morvane - Calibrate Board Switch", parent),
      calibration_(calibration) {
  Place(MakeBody(), "Command1");
  Open();
}

QWidget* BoardCalibrationWindow::MakeBody() {
  auto* body = new QWidget(this);
  ProgressBar1_ = NewBar("ProgressBar1", body);
  curve_ = new BoardCurve(calibration_, body);
  StayFree(*curve_);  // what has been measured is to be seen beside the question
  auto* column = new QVBoxLayout(body);
  column->setContentsMargins(kServiceMargin, kServiceMargin, kServiceMargin, kServiceMargin);
  column->setSpacing(kServiceSpacing);
  column->addWidget(ProgressBar1_);
  column->addWidget(MakeLabels());
  column->addWidget(curve_, 1);
  return body;
}

QWidget* BoardCalibrationWindow::MakeLabels() {
  auto* labels = new QWidget(this);
  Label1_ = new QLabel(labels);  // changes too often to be read out
  Label1_->setObjectName("Label1");
  Label1_->setAccessibleName("Sensitivity on trial, and whether the board is seen");
  Label2_ = new ShownValue("Label2", "Where the sweep down has ended", labels);
  Label3_ = new ShownValue("Label3", "Where the sweep up has ended", labels);
  KeepSizeFor(*Label1_, {"Check: 255    0"});
  KeepSizeFor(*Label2_, {"On: 255"});
  KeepSizeFor(*Label3_, {"Off: 255"});
  auto* row = new QHBoxLayout(labels);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2 * kServiceMargin);
  for (QLabel* label : {Label1_, static_cast<QLabel*>(Label2_), static_cast<QLabel*>(Label3_)}) {
    row->addWidget(label);
  }
  row->addStretch();
  return labels;
}

void BoardCalibrationWindow::ShowCalibration() {
  ProgressBar1_->setValue(calibration_.Progress());
  Label1_->setText(ToQt(calibration_.Label1()));
  ShowChanged(*Label2_, ToQt(calibration_.Label2()));
  ShowChanged(*Label3_, ToQt(calibration_.Label3()));
  curve_->Show();
  CancelButton().setVisible(!calibration_.Over());
}

/// It goes when the step has ended.
void BoardCalibrationWindow::reject() { calibration_.Cancel(); }

}  // namespace morvane::maintenance
