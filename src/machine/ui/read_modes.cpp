#include "machine/ui/read_modes.h"

#include <QAbstractButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "machine/machine_run.h"

namespace morvane::machine {

ReadModes::ReadModes(MachineRun& run, QWidget* parent) : QWidget(parent), run_(run) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  const auto add = [&](int id, const char* name, const char* caption) {
    auto* button = new QRadioButton(caption, this);
    button->setObjectName(name);
    modes_.addButton(button, id);
    column->addWidget(button);
  };
  add(RunOptions::kSimulateDealing, "read_mode1",
      "Simulate hand dealing (single card to every hand)");
  add(RunOptions::kPlayedBoards, "read_mode2",
      "Read already played boards (cards sort in top-N-E-W-S-bottom order) ");
  connect(&modes_, &QButtonGroup::idClicked, this,
          [&run](int mode) { run.Change(&RunOptions::SetReadMode, mode); });
}

void ReadModes::Show() {
  setVisible(run_.Window().ReadModesShown);
  setEnabled(run_.Window().Controls.Options);
  modes_.button(run_.Options().ReadMode)->setChecked(true);
}

}  // namespace morvane::machine
