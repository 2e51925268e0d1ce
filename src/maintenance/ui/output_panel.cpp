#include "maintenance/ui/output_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

#include "maintenance/maintenance.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/shown_value.h"

namespace morvane::maintenance {
namespace {

using wire::OutputsCommand;

struct Output {
  std::uint8_t Bit;
  const char* Name;
  const char* Caption;
};

constexpr std::array<Output, OutputPanel::kOutputs> kTable{{
    {OutputsCommand::kMotors, "Motors", "&Motors on"},
    {OutputsCommand::kGate1, "Gate1", "Gate &1"},
    {OutputsCommand::kGate2, "Gate2", "Gate &2"},
    {OutputsCommand::kGate3, "Gate3", "Gate &3"},
    {OutputsCommand::kCamLeds, "Cam_leds", "Camera &LEDs"},
    {OutputsCommand::kCamPower, "Cam_power", "Camera Po&wer"},
    {OutputsCommand::kFrontGreenLed, "Front_green_led", "Front &Green LED"},
    {OutputsCommand::kFrontRedLed, "Front_Red_Led", "Fro&nt Red LED"},
}};
constexpr int kColumns = 3;

}  // namespace

OutputPanel::OutputPanel(Maintenance& maintenance, int serviceLevel, QWidget* parent)
    : QGroupBox("Outputs", parent), maintenance_(maintenance) {
  QGridLayout* const grid = NewGrid(this);
  for (std::size_t i = 0; i < kOutputs; ++i) {
    auto* box = new QCheckBox(kTable[i].Caption, this);
    box->setObjectName(kTable[i].Name);
    connect(box, &QCheckBox::clicked, this, [this, i](bool on) { Switch(kTable[i].Bit, on); });
    outputs_[i] = box;
    const int place = static_cast<int>(i);
    grid->addWidget(box, place / kColumns, place % kColumns);
  }
  Feed_card_ = NewServiceButton(
      "Feed_card", "&Feed card", [this] { maintenance_.Feed_card(); }, this);
  Feed_card_->setToolTip("Moves one card past the camera");
  grid->addWidget(Feed_card_, 2, 2);
  if (serviceLevel >= 2) MakeGateTest();
}

void OutputPanel::MakeGateTest() {
  GateTest_ = new QCheckBox("G&ate test", this);
  GateTest_->setObjectName("GateTest");
  GateTest_->setToolTip("Fires the gates in turn");
  connect(GateTest_, &QCheckBox::clicked, this,
          [this](bool on) { maintenance_.Console().GateTest = on; });
  GateTestText_ = new ShownValue("GateTestText", "Rounds of the gates", this);
  KeepSizeFor(*GateTestText_, {"88888888"});
  auto* grid = static_cast<QGridLayout*>(layout());
  grid->addWidget(GateTest_, 3, 0);
  grid->addWidget(GateTestText_, 3, 1);
}

void OutputPanel::Switch(std::uint8_t output, bool on) {
  std::uint8_t& outputs = maintenance_.Console().Outputs;
  outputs = static_cast<std::uint8_t>(on ? outputs | output : outputs & ~output);
}

void OutputPanel::Show() {
  setEnabled(maintenance_.Controls().MachineKnown);
  for (std::size_t i = 0; i < kOutputs; ++i) {
    outputs_[i]->setChecked((maintenance_.Console().Outputs & kTable[i].Bit) != 0);
  }
  if (GateTest_ != nullptr) GateTest_->setChecked(maintenance_.Console().GateTest);
  ShowReadings();
}

void OutputPanel::ShowReadings() {
  if (GateTestText_ == nullptr) return;
  const int cycles = maintenance_.Console().GateCycles();
  const QString text = cycles == 0 ? QString() : QString::number(cycles);
  ShowChanged(*GateTestText_, text);
}

}  // namespace morvane::maintenance
