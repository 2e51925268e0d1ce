#include "maintenance/ui/output_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

#include "maintenance/maintenance.h"
#include "maintenance/ui/service_widgets.h"
#include "platform/qt/shown_value.h"

namespace morvane::maintenance {
namespace {

constexpr int kColumns = 3;

}  // namespace

OutputPanel::OutputPanel(Maintenance& maintenance, int serviceLevel, QWidget* parent)
    : QGroupBox("Outputs", parent), maintenance_(maintenance) {
  QGridLayout* const grid = NewGrid(this);
  for (std::size_t i = 0; i < kOutputBoxes.size(); ++i) {
    auto* box = new QCheckBox(kOutputBoxes[i].Caption, this);
    box->setObjectName(kOutputBoxes[i].Name);
    connect(box, &QCheckBox::clicked, this,
            [this, i](bool on) { Switch(kOutputBoxes[i].Bit, on); });
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
  for (std::size_t i = 0; i < kOutputBoxes.size(); ++i) {
    outputs_[i]->setChecked((maintenance_.Console().Outputs & kOutputBoxes[i].Bit) != 0);
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
