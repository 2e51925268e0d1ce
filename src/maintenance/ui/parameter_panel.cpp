#include "maintenance/ui/parameter_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "maintenance/calibration_command.h"
#include "maintenance/maintenance.h"
#include "maintenance/parameter_transfer.h"
#include "maintenance/ui/option_group.h"
#include "maintenance/ui/service_widgets.h"
#include "maintenance/ui/value_edit.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/scrolling_part.h"
#include "platform/qt/shown_text.h"
#include "platform/qt/shown_value.h"
#include "text/text.h"

namespace morvane::maintenance {
namespace {

constexpr const char* kEditedText = "Not written yet: bold";

/// The names of two columns over their boxes.
void AddHead(QGridLayout& grid, const char* first, const char* second, QWidget* parent) {
  grid.addWidget(new QLabel(first, parent), 0, 1, Qt::AlignHCenter);
  grid.addWidget(new QLabel(second, parent), 0, 2, Qt::AlignHCenter);
}

/// Why nobody can type in the box though the machine is known; empty: one can.
QString WhyOff(const Maintenance& maintenance, Parameter parameter) {
  if (maintenance.Parameters().Boxes.Box(parameter).Known()) return {};
  const machine::VersionGate* gate = GateOf(parameter);
  if (gate == nullptr || Passes(maintenance.TheMachine(), *gate)) {
    return "The machine has not told this value; read again";
  }
  return "Machines have this since firmware 2." + ToQt(Hex2(gate->Minor));
}

}  // namespace

ParameterPanel::ParameterPanel(Maintenance& maintenance, QWidget* parent)
    : QWidget(parent), maintenance_(maintenance) {
  QWidget* body = MakeBody();
  Fill(*this, body, MakeButtons());
}

QWidget* ParameterPanel::MakeBody() {
  auto* body = new QWidget(this);
  index_ = new OptionGroup(
      "Card Index:", 3,
      {{"Card_Index_st", "Standard"}, {"Card_Index_j", "&Jumbo"}, {"Card_Index_sm", "&Small"}},
      [this](int index) { maintenance_.SelectIndex(index); }, body);
  QGridLayout* const grid = NewGrid(body);
  grid->setSpacing(kServiceSpacing);
  grid->addWidget(index_, 0, 0, 1, 2);
  grid->addWidget(MakePlaces(), 1, 0, 3, 1);
  grid->addWidget(MakeThresholds(), 1, 1);
  grid->addWidget(MakeVideo(), 2, 1);
  grid->addWidget(MakeSwitches(), 4, 0, 1, 2);
  grid->addWidget(MakeBoardSwitch(), 5, 0, 1, 2);
  grid->addWidget(MakeId(), 6, 0, 1, 2);
  grid->setRowStretch(7, 1);
  grid->setColumnStretch(1, 1);
  return body;
}

ValueEdit* ParameterPanel::Add(Parameter parameter, const QString& spokenName) {
  auto* box = new ValueEdit(maintenance_.Boxes().Box(parameter),
                            std::string(NameOf(parameter)).c_str(), spokenName, this);
  box->OnChange = [this] { ShowMarks(); };
  boxes_[static_cast<std::size_t>(parameter)] = box;
  return box;
}

void ParameterPanel::AddPair(QGridLayout& grid, const char* caption, Parameter first,
                             Parameter second) {
  const int row = grid.rowCount();
  const auto spoken = [&grid, caption](int column) {
    const auto* head = static_cast<QLabel*>(grid.itemAtPosition(0, column)->widget());
    return QString(caption) + " " + head->text();
  };
  grid.addWidget(new QLabel(caption, this), row, 0);
  grid.addWidget(Add(first, spoken(1)), row, 1);
  grid.addWidget(Add(second, spoken(2)), row, 2);
}

QWidget* ParameterPanel::MakePlaces() {
  auto* group = new QGroupBox("On the card", this);
  QGridLayout* const grid = NewGrid(group);
  AddHead(*grid, "x", "y", group);
  AddPair(*grid, "Position", Parameter::pos_x, Parameter::pos_y);
  AddPair(*grid, "Start point", Parameter::start_x, Parameter::start_y);
  AddPair(*grid, "Symbol min", Parameter::Sym_x_min, Parameter::Sym_y_min);
  AddPair(*grid, "Symbol max", Parameter::Sym_x_max, Parameter::Sym_y_max);
  AddPair(*grid, "Suit min", Parameter::Suit_x_min, Parameter::Suit_y_min);
  AddPair(*grid, "Suit max", Parameter::Suit_x_max, Parameter::Suit_y_max);
  grid->setColumnStretch(3, 1);
  grid->setRowStretch(grid->rowCount(), 1);
  return group;
}

QWidget* ParameterPanel::MakeThresholds() {
  auto* group = new QGroupBox("Thresholds", this);
  QGridLayout* const grid = NewGrid(group);
  AddHead(*grid, "Symbol", "Suit", group);
  AddPair(*grid, "Bold", Parameter::Bold_th_txt, Parameter::Bold_th1_txt);
  AddPair(*grid, "Fine", Parameter::Fine_th_txt, Parameter::Fine_th1_txt);
  auto* option = Add(Parameter::Reco_option_txt, "Recognize option");
  grid->addWidget(NewLabelOf(option, "Recognize option", group), 3, 0, 1, 2);
  grid->addWidget(option, 3, 2);
  grid->setColumnStretch(3, 1);
  return group;
}

QWidget* ParameterPanel::MakeVideo() {
  video_ = new QGroupBox("Camera", this);
  QGridLayout* const grid = NewGrid(video_);
  auto* brightness = Add(Parameter::Video_Brightness, "Brightness of the camera");
  auto* contrast = Add(Parameter::Video_Contrast, "Contrast of the camera");
  grid->addWidget(NewLabelOf(brightness, "Brightness", video_), 0, 0);
  grid->addWidget(brightness, 0, 1);
  grid->addWidget(NewLabelOf(contrast, "Contrast", video_), 1, 0);
  grid->addWidget(contrast, 1, 1);
  grid->setColumnStretch(2, 1);
  return video_;
}

QWidget* ParameterPanel::MakeBoardSwitch() {
  boardSwitch_ = new QWidget(this);
  auto* row = new QHBoxLayout(boardSwitch_);
  row->setContentsMargins(0, 0, 0, 0);
  auto* box = Add(Parameter::Board_Sen, "Board Switch Sensitivity");
  row->addWidget(NewLabelOf(box, "Board Switch Sensitivity", boardSwitch_));
  row->addWidget(box);
  Calibrate_Board_Switch_ = NewServiceButton(
      "Calibrate_Board_Switch", "Calibrate Board Switch",
      [this] { maintenance_.Calibrate_Board_Switch(); }, boardSwitch_);
  row->addWidget(Calibrate_Board_Switch_);
  row->addStretch();
  return boardSwitch_;
}

QCheckBox* ParameterPanel::AddSwitch(const char* name, const char* caption,
                                     void (ParameterBoxes::*set)(bool on)) {
  auto* box = new QCheckBox(caption, this);
  box->setObjectName(name);
  KeepWidthOfMark(*box);
  connect(box, &QCheckBox::clicked, this, [this, set](bool on) {
    (maintenance_.Boxes().*set)(on);
    ShowSwitches();
    ShowMarks();
  });
  return box;
}

QWidget* ParameterPanel::MakeSwitches() {
  auto* group = new QGroupBox("Switches", this);
  Ignore_flip_ =
      AddSwitch("Ignore_flip", "Disable Flip Plate Switc&h", &ParameterBoxes::SetIgnore_flip);
  Ignore_box_ = AddSwitch("Ignore_box", "Disable &Board Switch", &ParameterBoxes::SetIgnore_box);
  Use_Board_ = AddSwitch("Use_Board", "&Use Board Number Reader as Board Switch",
                         &ParameterBoxes::SetUse_Board);
  QGridLayout* const grid = NewGrid(group);
  grid->addWidget(Ignore_flip_, 0, 0);
  grid->addWidget(Ignore_box_, 1, 0);
  grid->addWidget(Use_Board_, 2, 0);
  grid->setColumnStretch(1, 1);
  return group;
}

QWidget* ParameterPanel::MakeId() {
  auto* id = new QWidget(this);
  param_ID_ = new ShownText("param_ID", "Cannot be changed", id);
  param_ID_->setAccessibleName("Parameters ID");
  param_ID_->setFixedWidth(param_ID_->fontMetrics().horizontalAdvance("00000000"));
  auto* row = new QHBoxLayout(id);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(NewLabelOf(param_ID_, "Parameters ID", id));
  row->addWidget(param_ID_);
  row->addStretch();
  return id;
}

QWidget* ParameterPanel::MakeButtons() {
  auto* buttons = new QWidget(this);
  Get_param_ = NewServiceButton(
      "Get_param", "&Read from machine", [this] { maintenance_.Get_param(); }, buttons);
  save_param_ = NewServiceButton(
      "save_param", "Sa&ve to machine",
      [this] {
        LeaveBox();
        maintenance_.save_param();
      },
      buttons);
  edited_ = new ShownValue("lblEdited", "Changes", buttons);
  KeepSizeFor(*edited_, {kEditedText});
  // Above each other: a narrow screen has no room for more in sight.
  QGridLayout* const grid = NewGrid(buttons);
  grid->addWidget(edited_, 0, 0, 1, 2);
  grid->addWidget(Get_param_, 1, 0);
  grid->addWidget(save_param_, 2, 0);
  grid->setColumnStretch(1, 1);
  return buttons;
}

void ParameterPanel::LeaveBox() {
  for (ValueEdit* box : boxes_) {
    if (box->hasFocus()) box->Leave();
  }
}

void ParameterPanel::Show() {
  const ServiceControls& now = maintenance_.Controls();
  index_->setEnabled(now.MachineKnown);
  index_->Show(maintenance_.Parameters().CardSelection.CardIndex);
  for (std::size_t i = 0; i < kParameters; ++i) {
    const QString whyOff = WhyOff(maintenance_, static_cast<Parameter>(i));
    boxes_[i]->setEnabled(now.MachineKnown && whyOff.isEmpty());
    boxes_[i]->setToolTip(now.MachineKnown ? whyOff : "");
    boxes_[i]->Show();
  }
  video_->setVisible(now.Video);
  boardSwitch_->setVisible(now.Board_Sen);
  const std::string whyNot = WhyNoCalibration(maintenance_.TheMachine());
  Calibrate_Board_Switch_->setEnabled(now.MachineKnown && whyNot.empty());
  Calibrate_Board_Switch_->setToolTip(
      whyNot.empty() ? "Finds the sensitivity that a problem board needs" : ToQt(whyNot));
  param_ID_->setText(ToQt(maintenance_.Boxes().param_ID));
  Get_param_->setEnabled(now.MachineKnown);
  save_param_->setEnabled(now.MachineKnown && maintenance_.Parameters().Known());
  ShowSwitches();
  ShowMarks();
}

void ParameterPanel::ShowSwitches() {
  const ParameterBoxes& boxes = maintenance_.Boxes();
  const bool known = maintenance_.Controls().MachineKnown;
  const auto show = [&](QCheckBox* box, bool wire::SwitchBlock::*value, bool on) {
    box->setChecked(boxes.Switches().*value);
    box->setEnabled(known && on);
    MarkEdited(*box, boxes.Edited(value));
  };
  show(Ignore_flip_, &wire::SwitchBlock::IgnoreFlip, boxes.SwitchesOn);
  show(Ignore_box_, &wire::SwitchBlock::IgnoreBox, boxes.SwitchesOn);
  show(Use_Board_, &wire::SwitchBlock::UseBoard, boxes.UseBoardOn());
}

void ParameterPanel::ShowMarks() {
  const QString text = maintenance_.Boxes().Edited() ? kEditedText : "";
  if (edited_->text() != text) edited_->Show(text);
}

}  // namespace morvane::maintenance
