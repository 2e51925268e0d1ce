#include "machine/ui/walk_buttons.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "machine/board_run.h"
#include "machine/ui/run_widgets.h"

namespace morvane::machine {

WalkButtons::WalkButtons(BoardRun& run, QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kRunSpacing);
  const auto add = [this, &run, row](const char* name, const char* caption, const char* tip,
                                     BoardWalk::Step step) {
    auto* button = NewSmallButton(
        name, caption, tip, [&run, step] { run.Walk(step); }, this);
    row->addWidget(button);
    return button;
  };
  cmdFirst_ = add("cmdFirst", "&First", "First board of the run", BoardWalk::Step::kFirst);
  cmdPrev_ = add("cmdPrev", "&Previous", "One board back", BoardWalk::Step::kPrev);
  cmdNext_ = add("cmdNext", "&Next", "One board on", BoardWalk::Step::kNext);
  cmdLast_ = add("cmdLast", "&Last", "Last board of the run", BoardWalk::Step::kLast);
}

void WalkButtons::Show(const RunControls& now) {
  cmdFirst_->setEnabled(now.cmdFirst);
  cmdPrev_->setEnabled(now.cmdPrev);
  cmdNext_->setEnabled(now.cmdNext);
  cmdLast_->setEnabled(now.cmdLast);
}

}  // namespace morvane::machine
