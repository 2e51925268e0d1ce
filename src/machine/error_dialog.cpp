#include "machine/error_dialog.h"

#include <algorithm>
#include <array>

namespace morvane::machine {
namespace {

struct ErrorRow {
  int First;
  int Last;
  ErrorText Error;
};

// Code 5 has a blank behind it and code 21 none: required.
constexpr std::array<ErrorRow, 26> kErrors{{
    {1, 1, {"Card did not go to South"}},
    {2, 2, {"Card did not go to West"}},
    {3, 3, {"Card did not go to East"}},
    {4, 4, {"Card did not go to North"}},
    {5, 5, {"Extra Card in South "}},
    {6, 6, {"Extra Card in West"}},
    {7, 7, {"Extra Card in East"}},
    {8, 8, {"Extra Card in North"}},
    {9, 16, {"Card Jam Error"}},
    {17, 17, {"Card did not go to South"}},
    {18, 18, {"Card did not go to West"}},
    {19, 19, {"Card did not go to East"}},
    {20, 20, {"Card did not go to North"}},
    {21, 21, {"Extra Card in South"}},
    {22, 22, {"Extra Card in West"}},
    {23, 23, {"Extra Card in East"}},
    {24, 24, {"Extra Card in North"}},
    {25, 53, {"Card Recognition Error", ButtonMode::kGoOnOrStop}},
    {54, 54, {"Duplicate Card Error", ButtonMode::kGoOnOrStop}},
    {55, 56, {"Card Feeding Error", ButtonMode::kGoOnOrStop}},
    {57, 57, {"Break Dealing", ButtonMode::kGoOnOrStop}},
    {58, 58, {"Board or Board Insert not fitted correctly", ButtonMode::kGoOnOrStop}},
    {59, 59, {"No Top Cover", ButtonMode::kGoOnOrStop}},
    {60, 60, {"Flip Plate open", ButtonMode::kGoOnOrStop}},
    {61, 61, {"Card does not belong to selected National Settings"}},
    {62, 62, {"Incorrect Card Order"}},
}};

constexpr int kUnreadableLabel = 64;
constexpr int kWrongLabel = 65;

/// The dialog's own poll, the one frame without random filler: byte 2 stays as it stands.
void PutDialogPoll(const StatusCommand& poll, Frame& frame) {
  poll.Put(frame);
  std::fill_n(frame.begin() + 3, 4, std::uint8_t{0});
}

}  // namespace

ErrorText TextOfError(int code) {
  const auto* row = std::find_if(kErrors.begin(), kErrors.end(), [code](const ErrorRow& r) {
    return code >= r.First && code <= r.Last;
  });
  return row != kErrors.end() ? row->Error : ErrorText{"Undefine Error"};
}

ErrorDialog::ErrorDialog(Program& program, Machine& machine, int boardErrorKind,
                         DialogAnswer dialogResult)
    : DialogResult(dialogResult), program_(program), machine_(machine) {
  ChooseText(boardErrorKind);
  const bool board = ButtonMode == machine::ButtonMode::kBoardError;
  const bool single = ButtonMode == machine::ButtonMode::kSingle;
  Continue_button = {board ? "Try again" : "Continue", !single};
  Cancel_button = {"Cancel", !single};
  Cancel2 = {board ? "Deal to the current board" : "Cancel", board || single};
}

void ErrorDialog::ChooseText(int boardErrorKind) {
  int code = machine_.MachineError;
  if (boardErrorKind == kWrongBoard) {
    ButtonMode = machine::ButtonMode::kBoardError;
    const bool unreadable = machine_.BoardNumberRead == 0;
    code = unreadable ? kUnreadableLabel : kWrongLabel;
    Error_label =
        unreadable
            ? program_.Texts.Msg077
            : Fill(Fill(program_.Texts.Msg078, "***", std::to_string(program_.Set.CurrentBoard)),
                   "###", std::to_string(machine_.BoardNumberRead));
  } else {
    const ErrorText error = TextOfError(code);
    ButtonMode = error.Mode;
    Error_label = error.Text;
  }
  Error_code = "Error Code: " + std::to_string(code);
}

void ErrorDialog::Open(std::function<void()> closed) {
  onClosed_ = std::move(closed);
  Error_Timer1_ = program_.Loop.StartTimer(kPollMs, [this] { Tick(); });
  program_.Speaker.Play(program_.Paths.Application + "/Dealing_Error.wav");
}

void ErrorDialog::PressCancel2() {
  Close(ButtonMode == machine::ButtonMode::kBoardError ? kDealAnyway : kStop);
}

void ErrorDialog::Tick() {
  if (closed_) return;
  MachineLink& link = machine_.Link;
  PutDialogPoll(machine_.Poll(), link.TxFrame);
  link.SendShortFrame();
  link.ReceiveFrame();
  if (link.RxStatus != MachineLink::kGood) machine_.ExpectLateReply();
  if (link.RxStatus == MachineLink::kGood && link.RxFrame[0] == CmdStatus) {
    machine_.TakePedalAndBox(StatusReply::Get(link.RxFrame));
  }
  if (machine_.Lost()) {
    // Worded unlike the run's own loss of the link: required.
    Error_Timer1_.reset();
    program_.Ask("            Lost Communication with Dealer  -  Dealing Aborted             ", 0,
                 "Morvane");
    Close(kStop);
    return;
  }
  if (machine_.PedalFlag == 0) return;
  machine_.PollLock = false;
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

}  // namespace morvane::machine
