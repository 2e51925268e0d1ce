#include "machine/error_dialog.h"

#include "machine/error_sound.h"
#include "text/box_text.h"
#include "wire/machine_errors.h"

namespace morvane::machine {
namespace {

constexpr int kUnreadableLabel = 64;
constexpr int kWrongLabel = 65;

std::string PlaceOf(const Fault& fault) {
  std::string board = fault.Board == 0 ? "" : "Board " + std::to_string(fault.Board);
  if (fault.Card == 0) return board;
  return (board.empty() ? "Card " : board + ", card ") + std::to_string(fault.Card) + " of " +
         std::to_string(kCards);
}

/// The dialog's own exchange: one try a tick, and nothing but pedal and slot is taken from it.
/// Whether it reports the pedal; a press that started the run may still stand in `PedalFlag` where
/// no good reply comes.
bool PollReportsPedal(Machine& machine) {
  MachineLink& link = machine.Link;
  wire::Put(wire::DialogPollCommand{machine.Poll().Flags}, link.TxFrame);
  link.SendShortFrame();
  link.ReceiveFrame();
  if (link.RxStatus != MachineLink::kGood) {
    machine.ExpectLateReply();
    return false;
  }
  if (wire::CodeOf(link.RxFrame) != wire::StatusReply::Code) return false;
  machine.TakePedalAndBox(wire::Get<wire::StatusReply>(link.RxFrame));
  return machine.PedalFlag != 0;
}

}  // namespace

ErrorDialog::ErrorDialog(Program& program, Machine& machine, DialogAnswer dialogResult,
                         const Fault& fault)
    : Error_board(PlaceOf(fault)),
      DialogResult(dialogResult),
      program_(program),
      machine_(machine) {
  const int code = fault.Label ? NameWrongBoard(fault) : NameFault();
  Error_code = "Error Code: " + std::to_string(code);
  const bool board = ButtonMode == machine::ButtonMode::kBoardError;
  const bool single = ButtonMode == machine::ButtonMode::kSingle;
  Continue_button = {board ? "Try again" : "Continue", !single};
  Cancel_button = {"Cancel", !single};
  Cancel2 = {board ? "Deal to the current board" : "Cancel", board || single};
}

int ErrorDialog::NameFault() {
  const wire::MachineErrorText error = wire::TextOfError(machine_.MachineError);
  Error_label = error.Text;
  ButtonMode = error.CanGoOn ? machine::ButtonMode::kGoOnOrStop : machine::ButtonMode::kSingle;
  return machine_.MachineError;
}

int ErrorDialog::NameWrongBoard(const Fault& fault) {
  ButtonMode = machine::ButtonMode::kBoardError;
  if (*fault.Label == 0) {
    Error_label = program_.Texts.Msg077;
    return kUnreadableLabel;
  }
  Error_label = Fill(Fill(program_.Texts.Msg078, "***", std::to_string(fault.Board)), "###",
                     std::to_string(*fault.Label));
  return kWrongLabel;
}

std::string ErrorDialog::ErrorText() const {
  return ButtonMode == machine::ButtonMode::kBoardError ? WithoutPadding(Error_label) : Error_label;
}

void ErrorDialog::Open(std::function<void()> closed) {
  onClosed_ = std::move(closed);
  Error_Timer1_ = program_.Loop.StartTimer(kPollMs, [this] { Tick(); });
  SoundAFault(program_);
}

void ErrorDialog::PressCancel2() {
  Close(ButtonMode == machine::ButtonMode::kBoardError ? kDealAnyway : kStop);
}

void ErrorDialog::Tick() {
  if (closed_) return;
  const bool pressed = PollReportsPedal(machine_);
  if (machine_.Lost()) {
    // Worded unlike the run's own loss of the link: required.
    Error_Timer1_.reset();
    machine_.MachineState = Machine::kNotConnected;
    if (OnLinkLost) OnLinkLost();
    program_.Ask("            Lost Communication with Dealer  -  Dealing Aborted             ", 0,
                 "Morvane");
    Close(kStop);
    return;
  }
  if (!pressed) return;
  if (PedalFreesLink) machine_.PollLock = false;
  // Outside "go on or stop" the pedal leaves the answer as it stood at the opening: required.
  Close(ButtonMode == machine::ButtonMode::kGoOnOrStop ? kGoOn : DialogResult);
}

void ErrorDialog::Close(DialogAnswer answer) {
  if (closed_) return;
  closed_ = true;
  Error_Timer1_.reset();
  DialogResult = answer;
  if (onClosed_) onClosed_();
}

DialogAnswer AskAboutError(Program& program, Machine& machine, FaultView& view,
                           DialogAnswer standing, const Fault& fault, bool pedalFreesLink) {
  ErrorDialog dialog(program, machine, standing, fault);
  dialog.PedalFreesLink = pedalFreesLink;
  dialog.OnLinkLost = [&view] { view.ShowState(); };
  view.ShowError(dialog);
  return dialog.DialogResult;
}

}  // namespace morvane::machine
