#include "machine/ui/copies_box.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "machine/board_run.h"
#include "machine/ui/run_widgets.h"
#include "platform/qt/number_edit.h"

namespace morvane::machine {

CopiesBox::CopiesBox(BoardRun& run, QWidget* parent)
    : QWidget(parent),
      run_(run),
      NumberCopies_(NewNumberBox("NumberCopies", "Copies to deal of each board",
                                 BoardWalk::kMostCopies, this)),
      PrevCopy_(NewSmallButton(
          "PrevCopy", "<", "One copy back", [&run] { run.Walk(BoardWalk::Step::kPrevCopy); },
          this)),
      NextCopy_(NewSmallButton(
          "NextCopy", ">", "One copy on", [&run] { run.Walk(BoardWalk::Step::kNextCopy); }, this)) {
  PlaceControls();
  NumberCopies_->OnChange = [&run](const std::string& text) { run.SetNumberCopies(text); };
  NumberCopies_->OnLeave = [this](const std::string&) {
    NumberCopies_->ShowNumber(run_.Place().Range().NumberOfCopies);
  };
}

void CopiesBox::PlaceControls() {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* label = new QLabel("&Copies:", this);
  label->setBuddy(NumberCopies_);
  for (QPushButton* button : {PrevCopy_, NextCopy_}) {
    button->setFixedWidth(2 * button->sizeHint().height());
    button->setAccessibleName(button->toolTip());
  }
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(label);
  row->addWidget(NumberCopies_);
  row->addWidget(PrevCopy_);
  row->addWidget(NextCopy_);
}

void CopiesBox::Show() {
  const RunWindowState& window = run_.Window();
  PrevCopy_->setEnabled(window.Controls.PrevCopy);
  NextCopy_->setEnabled(window.Controls.NextCopy);
  NumberCopies_->setEnabled(window.Controls.Options);
  setVisible(window.CopiesShown);
  ShowNumber();
}

void CopiesBox::ShowNumber() {
  // An empty box counts as 1 and stays empty while it is being typed in.
  const bool typing = NumberCopies_->hasFocus() && NumberCopies_->text().isEmpty();
  if (!typing) ShowNumberIn(*NumberCopies_, run_.Place().Range().NumberOfCopies);
}

}  // namespace morvane::machine
