#include "simulator/ui/sensor_box.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QStringList>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "platform/qt/number_edit.h"
#include "platform/qt/shown_value.h"
#include "simulator/ui/pile_text.h"
#include "wire/machine_card.h"
#include "wire/service_commands.h"

namespace morvane::simulator {
namespace {

constexpr int kTenths = 10;
constexpr int kJoker = kCards + 1;  ///< the first of three that look the same

struct SwitchWords {
  Sensors::Switch Which;
  const char* Name;
  const char* Caption;
};

constexpr std::array<SwitchWords, 3> kSwitches{{
    {Sensors::Switch::Front, "chkFront", "Front s&witch"},
    {Sensors::Switch::Cover, "chkCover", "Co&ver closed"},
    {Sensors::Switch::FlipPlate, "chkFlip", "F&lip plate closed"},
}};

struct OutputWord {
  unsigned Bit;
  const char* Word;
};

using Outputs = wire::OutputsCommand;
constexpr std::array<unsigned, 3> kGates{Outputs::kGate1, Outputs::kGate2, Outputs::kGate3};
constexpr std::array<OutputWord, 5> kOutputs{{{Outputs::kMotors, "motors"},
                                              {Outputs::kCamLeds, "LEDs"},
                                              {Outputs::kCamPower, "camera"},
                                              {Outputs::kFrontGreenLed, "green"},
                                              {Outputs::kFrontRedLed, "red"}}};

/// All of them fit in a line.
QString OutputsText(unsigned outputs) {
  QStringList on;
  for (const OutputWord& output : kOutputs) {
    if ((outputs & output.Bit) != 0) on += output.Word;
  }
  QStringList gates;
  for (std::size_t gate = 0; gate < kGates.size(); ++gate) {
    if ((outputs & kGates[gate]) != 0) gates += QString::number(gate + 1);
  }
  if (!gates.isEmpty()) on += (gates.size() > 1 ? "gates " : "gate ") + gates.join(" ");
  return on.isEmpty() ? QString("No output is on") : "On: " + on.join(", ");
}

}  // namespace

SensorBox::SensorBox(WiredMachine& machine, QWidget* parent)
    : QWidget(parent),
      machine_(machine),
      outputs_(new ShownValue("lblOutputs", "Outputs that are on", this)) {
  outputs_->setWordWrap(true);
  auto* column = new QVBoxLayout(this);
  column->addLayout(MakePhotos());
  column->addLayout(MakeSwitches());
  column->addLayout(MakeNumbers());
  column->addLayout(MakeCard());
  column->addWidget(outputs_);
  column->addStretch();
  ShowMachine();
}

QCheckBox* SensorBox::AddCheck(const char* name, const QString& caption, Take take) {
  auto* check = new QCheckBox(caption, this);
  check->setObjectName(name);
  connect(check, &QCheckBox::clicked, this, [take = std::move(take)](bool on) { take(on); });
  return check;
}

QLayout* SensorBox::MakePhotos() {
  auto* row = new QHBoxLayout;
  row->addWidget(new QLabel("Photo sensors covered:", this));
  for (int photo = 1; photo <= Sensors::kPhotos; ++photo) {
    QCheckBox* const check =
        AddCheck(qPrintable(QString("chkPhoto_%1").arg(photo)), QString("&%1").arg(photo),
                 [this, photo](bool on) { machine_.Opened().Cover(photo, on); });
    check->setAccessibleName(QString("Photo sensor %1 covered").arg(photo));
    row->addWidget(check);
    photos_[static_cast<std::size_t>(photo - 1)] = check;
  }
  row->addStretch();
  return row;
}

QLayout* SensorBox::MakeSwitches() {
  auto* row = new QHBoxLayout;
  for (const SwitchWords& words : kSwitches) {
    QCheckBox* const check =
        AddCheck(words.Name, words.Caption,
                 [this, which = words.Which](bool on) { machine_.Opened().Set(which, on); });
    row->addWidget(check);
    switches_[static_cast<std::size_t>(words.Which)] = check;
  }
  row->addStretch();
  return row;
}

NumberEdit* SensorBox::AddNumber(const char* name, const char* caption, int limit, QLayout& row) {
  auto* box = new NumberEdit(limit, this);
  box->setObjectName(name);
  box->setFixedWidth(box->fontMetrics().horizontalAdvance("0000000"));
  auto* label = new QLabel(caption, this);
  label->setBuddy(box);
  box->setAccessibleName(label->text().remove('&'));
  row.addWidget(label);
  row.addWidget(box);
  return box;
}

QLayout* SensorBox::MakeNumbers() {
  auto* row = new QHBoxLayout;
  Sensors& sensors = machine_.Opened();
  NumberEdit* const speed = AddNumber("txtSpeed", "Sp&eed", Sensors::kHighestSpeed, *row);
  speed->ShowNumber(Sensors::kUsualSpeed);
  speed->OnChange = [&sensors, speed](const std::string&) {
    for (int motor = 1; motor <= Sensors::kMotors; ++motor) {
      sensors.SetSpeed(motor, speed->Number());
    }
  };
  NumberEdit* const degrees =
      AddNumber("txtDegrees", "De&grees", Sensors::kHighestTemperature / kTenths, *row);
  degrees->ShowNumber(sensors.TemperatureSet() / kTenths);
  degrees->OnChange = [&sensors, degrees](const std::string&) {
    sensors.SetTemperature(degrees->Number() * kTenths);
  };
  NumberEdit* const volts =
      AddNumber("txtVolts", "Volt&s", Sensors::kHighestSupply / kTenths, *row);
  volts->ShowNumber(sensors.SupplySet() / kTenths);
  volts->OnChange = [&sensors, volts](const std::string&) {
    sensors.SetSupply(volts->Number() * kTenths);
  };
  row->addStretch();
  return row;
}

QLayout* SensorBox::MakeCard() {
  card_ = new QComboBox(this);
  card_->setObjectName("cboCard");
  card_->setAccessibleName("Card at the camera");
  card_->addItem("none", 0);
  for (int card = 1; card <= kCards; ++card) {
    card_->addItem(CardText(card), wire::MachineCard::Of(card).Number());
  }
  card_->addItem(CardText(0), kJoker);
  connect(card_, &QComboBox::activated, this,
          [this](int at) { machine_.ShowCard(card_->itemData(at).toInt()); });
  auto* label = new QLabel("Card a&t the camera", this);
  label->setBuddy(card_);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(card_);
  row->addStretch();
  return row;
}

void SensorBox::ShowCard() {
  if (card_->view()->isVisible()) return;
  card_->setCurrentIndex(card_->findData(std::min(machine_.CardShown(), kJoker)));
}

void SensorBox::ShowMachine() {
  const Sensors& sensors = std::as_const(machine_).Opened();
  for (int photo = 1; photo <= Sensors::kPhotos; ++photo) {
    photos_[static_cast<std::size_t>(photo - 1)]->setChecked(sensors.Covered(photo));
  }
  for (const SwitchWords& words : kSwitches) {
    switches_[static_cast<std::size_t>(words.Which)]->setChecked(sensors.On(words.Which));
  }
  ShowCard();
  outputs_->Show(OutputsText(sensors.Outputs()));
}

}  // namespace morvane::simulator
