#include "machine/ui/deal_buttons.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "machine/board_run.h"
#include "machine/ui/run_widgets.h"

namespace morvane::machine {

DealButtons::DealButtons(BoardRun& run, QWidget* parent)
    : QWidget(parent),
      cmdDeal_(NewButton(
          "cmdDeal", run.Kind() == RunKind::kRead ? "&Read" : "&Deal", [&run] { run.cmdDeal(); },
          this)),
      Deal_next_(NewButton(
          "Deal_next", run.Kind() == RunKind::kRead ? "Read ne&xt" : "Deal ne&xt",
          [&run] { run.Deal_next(); }, this)),
      cmdBreak_(NewBreakButton(
          "cmdBreak", [&run] { run.cmdBreak(); }, this)),
      cmdClear_(NewButton(
          "cmdClear", "&Clear", [&run] { run.cmdClear(); }, this)) {
  cmdClear_->setVisible(run.Kind() == RunKind::kRead);
  cmdClear_->setAutoDefault(false);
  for (QPushButton* button : {cmdDeal_, Deal_next_}) {
    button->setFont(Enlarged(button->font(), 1.1));
    button->setMinimumWidth(4 * kBigButton);
  }
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kRunSpacing);
  for (QPushButton* button : {cmdDeal_, Deal_next_, cmdBreak_, cmdClear_}) row->addWidget(button);
}

void DealButtons::Show(const RunControls& now) {
  cmdDeal_->setEnabled(now.cmdDeal);
  Deal_next_->setEnabled(now.Deal_next);
  cmdBreak_->setEnabled(now.cmdBreak);
  cmdClear_->setEnabled(now.cmdClear);
}

void DealButtons::TakeDefault(const RunControls& now) {
  (now.Deal_next ? Deal_next_ : cmdDeal_)->setDefault(true);
  if (now.cmdDeal && window()->focusWidget() == nullptr) cmdDeal_->setFocus();
}

void DealButtons::FocusNext() { Deal_next_->setFocus(); }

}  // namespace morvane::machine
