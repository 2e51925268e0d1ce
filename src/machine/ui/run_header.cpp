#include "machine/ui/run_header.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "machine/run_status.h"
#include "machine/ui/board_number.h"
#include "machine/ui/pocket_row.h"
#include "machine/ui/run_colours.h"
#include "machine/ui/run_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_value.h"
#include "platform/qt/window_place.h"

namespace morvane::machine {
namespace {

constexpr int kMostLetters = 56;  // of the state, in pixels

QColor ColourOf(int state) {
  switch (state) {
    case Machine::kIdle:
      return kGreenGround;
    case Machine::kBusy:
      return kBlueGround;
    case Machine::kError:
      return kRedGround;
    default:
      return kGreyGround;
  }
}

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
  MakeStatus();
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

void RunHeader::MakeStatus() {
  txtStatus_ = new ShownValue("txtStatus", "State of the machine", this);
  txtStatus_->setAlignment(Qt::AlignCenter);
  txtStatus_->setFont(Enlarged(txtStatus_->font(), 2));
  txtStatus_->setMinimumWidth(txtStatus_->fontMetrics().horizontalAdvance("Illegal (0)") + 16);
  // The letters follow the box and not the other way round.
  leastLetters_ = txtStatus_->fontInfo().pixelSize();
  txtStatus_->setMinimumHeight(txtStatus_->sizeHint().height());
  txtStatus_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
}

/// To be read across the room, as large as the box allows and smaller than the board's number.
void RunHeader::FitStatus() {
  const int high = txtStatus_->height() / 2;
  const int wide =
      leastLetters_ * (txtStatus_->width() - 16) / std::max(1, txtStatus_->minimumWidth() - 16);
  const int letters = std::clamp(std::min(wide, high), leastLetters_, kMostLetters);
  if (letters == letters_) return;
  letters_ = letters;
  ShowGround();
}

void RunHeader::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layout()->activate();
  FitStatus();
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
  ShowStatus(run_.TheMachine().MachineState);
  ShowNow(*txtDealTime_, ToQt(run_.Cards().txtDealTime));
  lblSeconds_->setText(txtDealTime_->text().isEmpty() ? "" : "s");
  ShowNow(*lblProgress_, ToQt(StatusLine(StatusOf(run_))));
  pockets_->ShowCounts();
}

void RunHeader::ShowBoard(int number, const BoardDisplay& display) {
  number_->Show(number, display.Copy);
  pockets_->ShowHcp(display);
}

void RunHeader::ShowStatus(int state) {
  const QString text = ToQt(StatusText(state));
  if (txtStatus_->text() == text) return;
  ground_ = ColourOf(state);
  ShowGround();
  ShowNow(*txtStatus_, text);
}

void RunHeader::ShowGround() {
  txtStatus_->setStyleSheet(QString("background:%1; color:white; border-radius:4px; padding:0px;"
                                    "font-weight:bold; font-size:%2px;")
                                .arg(ground_.name())
                                .arg(std::max(letters_, leastLetters_)));
}

}  // namespace morvane::machine
