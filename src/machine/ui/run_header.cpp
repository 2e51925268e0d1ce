#include "machine/ui/run_header.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "machine/run_status.h"
#include "machine/ui/board_number.h"
#include "machine/ui/pocket_row.h"
#include "machine/ui/run_widgets.h"
#include "machine/ui/state_box.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::machine {
namespace {

/// Events wait while the machine is asked, so a changed text is painted at once.
void ShowNow(ShownValue& label, const QString& text) {
  if (label.text() == text) return;
  label.Show(text);
  label.repaint();
}

}  // namespace

RunHeader::RunHeader(const MachineRun& run, QWidget* parent)
    : QWidget(parent),
      run_(run),
      number_(new BoardNumber(this)),
      pockets_(new PocketRow(run, this)) {
  txtStatus_ = new StateBox(this);
  MakeProgress();
  MakeDealTime();
  if (run.Kind() == RunKind::kSort) number_->hide();
  StayFree(*number_);
  StayFree(*txtStatus_);
  StayFree(*lblProgress_);
  // The line below has the room of both: it is the longest text.
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(kRunSpacing);
  grid->setVerticalSpacing(2);
  const bool board = run.Kind() != RunKind::kSort;
  if (board) grid->addWidget(number_, 0, 0);
  grid->addLayout(PlaceState(), 0, board ? 1 : 0, 1, board ? 1 : 2);
  grid->addWidget(lblProgress_, 1, 0, 1, 2);
  grid->addWidget(pockets_, 0, 2, 2, 1);
  grid->setColumnStretch(1, 1);
  if (!board) grid->setColumnStretch(2, 2);
  grid->setRowStretch(0, 1);
}

void RunHeader::MakeProgress() {
  lblProgress_ = new ShownValue("lblProgress", "Progress of the run", this);
  lblProgress_->setFont(Enlarged(lblProgress_->font(), 1.1));
}

void RunHeader::MakeDealTime() {
  txtDealTime_ = new ShownValue("txtDealTime", "Deal time in seconds", this);
  txtDealTime_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  txtDealTime_->setFont(Enlarged(txtDealTime_->font(), 1.2));
  // Of one size: a tenth of a second more must not lay out the window anew.
  txtDealTime_->setText("0000.0");
  txtDealTime_->setFixedSize(txtDealTime_->sizeHint());
  txtDealTime_->clear();
}

QLayout* RunHeader::PlaceState() {
  auto* state = new QVBoxLayout;
  state->setSpacing(4);
  state->addLayout(PlaceRun());
  state->addWidget(txtStatus_, 1);
  return state;
}

QLayout* RunHeader::PlaceRun() {
  auto* lblRun = new QLabel(ToQt(run_.Words().Status), this);
  lblRun->setObjectName("lblRun");
  lblRun->setFont(Enlarged(lblRun->font(), 1.1));
  auto* row = new QHBoxLayout;
  row->setSpacing(3);
  row->addWidget(lblRun);
  row->addStretch();
  row->addWidget(txtDealTime_);
  lblSeconds_ = new QLabel("s", this);
  lblSeconds_->setObjectName("lblSeconds");
  lblSeconds_->setMinimumWidth(lblSeconds_->sizeHint().width());  // nothing moves
  row->addWidget(lblSeconds_);
  return row;
}

void RunHeader::ShowState() {
  txtStatus_->ShowState(run_.TheMachine().MachineState);
  ShowNow(*txtDealTime_, ToQt(run_.Cards().txtDealTime));
  lblSeconds_->setText(txtDealTime_->text().isEmpty() ? "" : "s");
  ShowNow(*lblProgress_, ToQt(StatusLine(StatusOf(run_))));
  pockets_->ShowCounts();
}

void RunHeader::ShowBoard(int number, const BoardDisplay& display) {
  number_->Show(number, display.Copy);
  pockets_->ShowHcp(display);
}

}  // namespace morvane::machine
