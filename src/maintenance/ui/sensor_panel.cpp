#include "maintenance/ui/sensor_panel.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "maintenance/ui/sensor_cell.h"
#include "maintenance/ui/service_widgets.h"

namespace morvane::maintenance {
namespace {

constexpr const char* kNoWord = "";
constexpr const char* kCovered = "covered";
constexpr const char* kFree = "free";
constexpr const char* kStill = "stands";
constexpr const char* kRight = "right speed";
constexpr const char* kWrong = "wrong speed";
constexpr const char* kNoLight = "LEDs off";
constexpr Trace::Span kRightSpeed{13001, 15999};

QString PhotoWord(const Reading& photo) {
  if (photo.Text.empty() || photo.Look == Shade::kUnknown) return kNoWord;
  return photo.Look == Shade::kGood ? kCovered : kFree;
}

QString MotorWord(const Reading& speed) {
  if (speed.Text.empty()) return kNoWord;
  return speed.Look == Shade::kGood ? kRight : speed.Look == Shade::kBad ? kWrong : kStill;
}

SensorCell::Kind Switch(const char* name, const char* caption) {
  return {name, caption, caption + QString(" switch"), "OFF", {}, {}};
}

/// The cells of a group beside each other.
QHBoxLayout* RowOf(QGroupBox* group) {
  auto* row = new QHBoxLayout(group);
  row->setContentsMargins(kGroupMargin, kGroupMargin, kGroupMargin, kGroupMargin);
  row->setSpacing(kServiceSpacing);
  return row;
}

}  // namespace

SensorPanel::SensorPanel(QWidget* parent) : QWidget(parent) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kServiceSpacing);
  column->addWidget(MakePhotos());
  column->addWidget(MakeSwitches());
  column->addWidget(MakeMotors());
  auto* row = new QHBoxLayout;
  row->setSpacing(kServiceSpacing);
  row->addWidget(MakeInside(), 1);
  row->addWidget(MakeLabel(), 1);
  column->addLayout(row);
}

QGroupBox* SensorPanel::MakePhotos() {
  auto* group = new QGroupBox("Photo sensors", this);
  auto* row = RowOf(group);
  for (std::size_t sensor = 1; sensor < photos_.size(); ++sensor) {
    const QString number = QString::number(sensor);
    photos_[sensor] = new SensorCell(
        {"Photo" + number, number, "Photo sensor " + number, "255", {kCovered, kFree}, {}}, group);
    row->addWidget(photos_[sensor]);
  }
  return group;
}

QGroupBox* SensorPanel::MakeSwitches() {
  auto* group = new QGroupBox("Switches", this);
  auto* row = RowOf(group);
  row->addWidget(Front_Switch_ = new SensorCell(Switch("Front_Switch", "Front"), group));
  row->addWidget(Cover_Switch_ = new SensorCell(Switch("Cover_Switch", "Cover"), group));
  row->addWidget(Box_Switch_ = new SensorCell(Switch("Box_Switch", "Board"), group));
  SensorCell::Kind flip = Switch("Flip_Switch", "Flip plate");
  flip.Words = {kNoLight};
  row->addWidget(Flip_Switch_ = new SensorCell(flip, group));
  return group;
}

QGroupBox* SensorPanel::MakeMotors() {
  auto* group = new QGroupBox("Motor speeds", this);
  auto* row = RowOf(group);
  for (std::size_t motor = 1; motor < motors_.size(); ++motor) {
    const QString number = QString::number(motor);
    motors_[motor] = new SensorCell({"Motor_speed_" + number,
                                     number,
                                     "Speed of motor " + number,
                                     "-32768",
                                     {kStill, kRight, kWrong},
                                     kStillGround},
                                    group);
    row->addWidget(motors_[motor]);
  }
  return group;
}

QGroupBox* SensorPanel::MakeInside() {
  auto* group = new QGroupBox("Inside", this);
  auto* row = RowOf(group);
  Inside_temp_ = new SensorCell(
      {"Inside_temp", "Temperature \u00B0C", "Temperature inside", "88888.8", {}, {}}, group);
  Supply_volt_ = new SensorCell({"Supply_volt", "Supply V", "Supply", "8888.8", {}, {}}, group);
  row->addWidget(Inside_temp_);
  row->addWidget(Supply_volt_);
  return group;
}

QGroupBox* SensorPanel::MakeLabel() {
  auto* group = new QGroupBox("Board label", this);
  auto* row = RowOf(group);
  Board_no_txt_ =
      new SensorCell({"Board_no_txt", "Board", "Board by its label", "888", {}, {}}, group);
  Board_no_test_txt_ =
      new SensorCell({"Board_no_test_txt", "Label", "Label as read", "888", {}, {}}, group);
  row->addWidget(Board_no_txt_);
  row->addWidget(Board_no_test_txt_);
  return group;
}

void SensorPanel::AddTraces() {
  for (std::size_t motor = 1; motor < motors_.size(); ++motor) {
    motors_[motor]->AddTrace({1, kRightSpeed});
  }
  Inside_temp_->AddTrace({4, {}});
  Supply_volt_->AddTrace({2, {}});
}

void SensorPanel::Show(const Readings& now, bool unlit) {
  for (std::size_t sensor = 1; sensor < photos_.size(); ++sensor) {
    photos_[sensor]->Show(now.Photo[sensor], PhotoWord(now.Photo[sensor]));
  }
  Front_Switch_->Show(now.Front_Switch);
  Cover_Switch_->Show(now.Cover_Switch);
  Box_Switch_->Show(now.Box_Switch);
  Flip_Switch_->Show(now.Flip_Switch, unlit ? kNoLight : kNoWord);
  for (std::size_t motor = 1; motor < motors_.size(); ++motor) {
    motors_[motor]->Show(now.Motor_speed[motor], MotorWord(now.Motor_speed[motor]));
  }
  Inside_temp_->Show(now.Inside_temp);
  Supply_volt_->Show(now.Supply_volt);
  Board_no_txt_->ShowText(now.Board_no_txt);
  Board_no_test_txt_->ShowText(now.Board_no_test_txt);
}

void SensorPanel::Follow(Trace::Time time, const Readings& now) {
  for (std::size_t motor = 1; motor < motors_.size(); ++motor) {
    motors_[motor]->Follow(time, now.Motor_speed[motor]);
  }
  Inside_temp_->Follow(time, now.Inside_temp);
  Supply_volt_->Follow(time, now.Supply_volt);
}

}  // namespace morvane::maintenance
