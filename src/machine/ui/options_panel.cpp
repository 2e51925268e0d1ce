#include "machine/ui/options_panel.h"

#include <QCheckBox>
#include <QVBoxLayout>

#include "machine/machine_run.h"
#include "machine/ui/card_options.h"
#include "machine/ui/run_widgets.h"

namespace morvane::machine {

OptionsPanel::OptionsPanel(MachineRun& run, QWidget* parent)
    : QWidget(parent),
      run_(run),
      cards_(new CardOptions(run, this)),
      Start_from_box_(AddCheckBox("Start_from_box", "Start when a board is &inserted",
                                  &RunOptions::SetStart_from_box)),
      Check_board_(
          AddCheckBox("Check_board", "Chec&k the board number", &RunOptions::SetCheck_board)) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kRunSpacing);
  column->addWidget(cards_);
  column->addWidget(Start_from_box_);
  column->addWidget(Check_board_);
  // A sort has no board. What starts it stays as it is set.
  Start_from_box_->setVisible(run.Kind() != RunKind::kSort);
  Check_board_->setVisible(run.Kind() != RunKind::kSort);
}

QCheckBox* OptionsPanel::AddCheckBox(const char* name, const char* caption,
                                     void (RunOptions::*set)(bool)) {
  auto* box = new QCheckBox(caption, this);
  box->setObjectName(name);
  connect(box, &QCheckBox::clicked, this, [this, set](bool on) { run_.Change(set, on); });
  return box;
}

void OptionsPanel::Show() {
  setEnabled(run_.Window().Controls.Options);
  cards_->Show(run_.Options().Cards);
  Start_from_box_->setChecked(run_.Options().AutoStartEnabled);
  Check_board_->setChecked(run_.Options().Check_board);
}

}  // namespace morvane::machine
