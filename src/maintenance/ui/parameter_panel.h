#pragma once

#include <QWidget>
#include <array>

#include "maintenance/parameter_boxes.h"

class QCheckBox;
class QGridLayout;
class QPushButton;

namespace morvane {
class ShownText;
class ShownValue;
}  // namespace morvane

namespace morvane::maintenance {

class Maintenance;
class OptionGroup;
class ValueEdit;

/// The machine's parameters: read, edited and written back.
class ParameterPanel final : public QWidget {
 public:
  ParameterPanel(Maintenance& maintenance, QWidget* parent);
  void Show();
  /// What is being typed counts as it will when the box is left.
  void LeaveBox();

 private:
  QWidget* MakePlaces();
  QWidget* MakeThresholds();
  QWidget* MakeVideo();
  QWidget* MakeBoardSwitch();
  QWidget* MakeSwitches();
  QWidget* MakeBody();
  QWidget* MakeId();
  QWidget* MakeButtons();
  ValueEdit* Add(Parameter parameter, const QString& spokenName);
  void AddPair(QGridLayout& grid, const char* caption, Parameter first, Parameter second);
  QCheckBox* AddSwitch(const char* name, const char* caption, void (ParameterBoxes::*set)(bool on));
  void ShowSwitches();
  void ShowMarks();

  Maintenance& maintenance_;
  OptionGroup* index_ = nullptr;
  std::array<ValueEdit*, kParameters> boxes_{};  ///< [Parameter]
  QWidget* video_ = nullptr;
  QWidget* boardSwitch_ = nullptr;
  QPushButton* Calibrate_Board_Switch_ = nullptr;
  QCheckBox* Ignore_flip_ = nullptr;
  QCheckBox* Ignore_box_ = nullptr;
  QCheckBox* Use_Board_ = nullptr;
  ShownText* param_ID_ = nullptr;
  ShownValue* edited_ = nullptr;
  QPushButton* Get_param_ = nullptr;
  QPushButton* save_param_ = nullptr;
};

}  // namespace morvane::maintenance
