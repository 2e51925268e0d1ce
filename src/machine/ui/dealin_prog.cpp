#include "machine/ui/dealin_prog.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>

#include "machine/display_hand.h"
#include "machine/ui/board_picture.h"
#include "machine/ui/card_options.h"
#include "machine/ui/error_disp.h"
#include "machine/ui/pocket_gauge.h"
#include "platform/qt/number_edit.h"
#include "platform/qt/qt_text.h"

namespace morvane::machine {
namespace {

const char* ColourOf(int state) {
  switch (state) {
    case Machine::kIdle:
      return "#2e8b4f";
    case Machine::kBusy:
      return "#1f6fb5";
    case Machine::kError:
      return "#c0392b";
    default:
      return "#6f6f6f";
  }
}

/// Events wait while the machine is asked, so a changed text is painted at once.
void ShowNow(QLabel& label, const QString& text) {
  if (label.text() == text) return;
  label.setText(text);
  label.repaint();
}

void ShowNumberIn(NumberEdit& box, int number) {
  if (box.Number() != number) box.ShowNumber(number);
}

}  // namespace

// The box that has the focus is left when the window goes; it must still be a whole one then.
DealinProg::~DealinProg() { hide(); }

void DealinProg::ShowState() {
  const QString state = ToQt(StatusText(run_.TheMachine().MachineState));
  if (txtStatus_->text() != state) {
    txtStatus_->setStyleSheet(
        QString(
            "background:%1; color:white; font-weight:bold; border-radius:4px; padding:4px 12px;")
            .arg(ColourOf(run_.TheMachine().MachineState)));
    ShowNow(*txtStatus_, state);
  }
  ShowNow(*txtDealTime_, ToQt(run_.Cards().txtDealTime));
  ShowNow(*lblProgress_, Progress());
  ShowCounts();
}

const char* DealinProg::Progress() const {
  if (run_.Cards().Leaving()) return "Leaving when the machine has stopped ...";
  const bool fault = run_.TheMachine().MachineState == Machine::kError;
  if (run_.Running()) return fault ? "The machine has stopped" : "Dealing ...";
  switch (run_.LastOutcome()) {
    case DealingRun::Outcome::kDealt:
      return "Last board dealt";
    case DealingRun::Outcome::kStopped:
      return "Last board not finished";
    case DealingRun::Outcome::kLinkLost:
      return "Connection lost";
    default:
      return run_.Options().MachineKnown ? "Ready to deal" : "Waiting for the machine ...";
  }
}

std::optional<int> DealinProg::CountOf(int hand) const {
  if (!run_.Cards().CountsShown) return std::nullopt;
  return run_.TheMachine().CardCount[PocketOfHand[static_cast<std::size_t>(hand)]];
}

void DealinProg::ShowCounts() {
  const auto mood = run_.Running() ? PocketGauge::Mood::kDealing : PocketGauge::Mood::kWaiting;
  for (int hand = kNorth; hand <= kWest; ++hand) {
    pockets_[static_cast<std::size_t>(hand)]->ShowCount(CountOf(hand), mood);
  }
}

void DealinProg::ShowBoard() {
  BoardDisplay display = DisplayHand(run_, program_.Set.CurrentBoard);
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    pockets_[hand]->ShowHcp(display.lblHCP[hand]);
  }
  Picture1_->Show(std::move(display));
}

void DealinProg::ShowControls() {
  const RunWindowState& window = run_.Window();
  const RunControls& now = window.Controls;
  // Disabling what has the focus would hand it on to the next control.
  if (!now.Options && focusWidget() != nullptr) focusWidget()->clearFocus();
  cmdDeal_->setEnabled(now.cmdDeal);
  Deal_next_->setEnabled(now.Deal_next);
  cmdBreak_->setEnabled(now.cmdBreak);
  cmdExit_->setEnabled(now.cmdExit);
  cmdFirst_->setEnabled(now.cmdFirst);
  cmdPrev_->setEnabled(now.cmdPrev);
  cmdNext_->setEnabled(now.cmdNext);
  cmdLast_->setEnabled(now.cmdLast);
  PrevCopy_->setEnabled(now.PrevCopy);
  NextCopy_->setEnabled(now.NextCopy);
  for (QWidget* option : {static_cast<QWidget*>(cards_), static_cast<QWidget*>(Start_from_box_),
                          static_cast<QWidget*>(Check_board_)}) {
    option->setVisible(window.SettingsShown);
    option->setEnabled(now.Options);
  }
  for (QWidget* option : {static_cast<QWidget*>(Disp_boards_), static_cast<QWidget*>(NumberCopies_),
                          static_cast<QWidget*>(Subfrom_), static_cast<QWidget*>(Subto_)}) {
    option->setEnabled(now.Options);
  }
  cards_->Show(run_.Options().Cards);
  Start_from_box_->setChecked(run_.Options().AutoStartEnabled);
  Check_board_->setChecked(run_.Options().Check_board);
  Disp_boards_->setText(window.ShowBoards ? "&Hide boards" : "&Show boards");
  Command1_->setVisible(window.Command1Shown);
  Command1_->setEnabled(now.Options);
  TestText_->setVisible(window.Command1Shown);
  TestText_->setPlainText(ToQt(window.TestText));
  copies_->setVisible(window.CopiesShown);
  subRange_->setVisible(window.SubRangeShown);
  txtFile_->setText(ToQt(program_.Set.BoardSetFile));
  ShowNumbers();
  (now.Deal_next ? Deal_next_ : cmdDeal_)->setDefault(true);
  if (now.cmdDeal && focusWidget() == nullptr) cmdDeal_->setFocus();
  ShowState();
}

void DealinProg::ShowNumbers() {
  const RunMemory& range = run_.Place().Range();
  // An empty box counts as 1 and stays empty while it is being typed in.
  const bool typing = NumberCopies_->hasFocus() && NumberCopies_->text().isEmpty();
  if (!typing) ShowNumberIn(*NumberCopies_, range.NumberOfCopies);
  ShowNumberIn(*Subfrom_, range.RunFirst);
  ShowNumberIn(*Subto_, range.RunLast);
  Subfrom_->SetLimit(program_.Set.LastBoard);
  Subto_->SetLimit(program_.Set.LastBoard);
  Subfirst_->setText(QString::number(program_.Set.FirstBoard));
  Sublast_->setText(QString::number(program_.Set.LastBoard));
}

void DealinProg::FocusDealNext() { Deal_next_->setFocus(); }

void DealinProg::ShowError(ErrorDialog& dialog) {
  ErrorDisp window(dialog, this);
  window.open();
  dialog.Open([&window] { window.hide(); });
  program_.Loop.RunUntil([&dialog] { return dialog.Closed(); });
}

void DealinProg::Close() { hide(); }

void DealinProg::closeEvent(QCloseEvent* event) {
  run_.Exit();
  event->setAccepted(run_.Closed());
}

}  // namespace morvane::machine
