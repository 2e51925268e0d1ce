#include <utility>

#include "machine/dealing_run.h"
#include "text/text.h"

// One board, from its first frame to its line in the log, in the order of things on the wire.

namespace morvane::machine {
namespace {

constexpr int kLabelReadings = 6;
constexpr int kLabelWaitMs = 100;
constexpr int kAfterErrorMs = 300;

}  // namespace

void DealingRun::DealHand() {
  if (!StartGatesPass()) return;
  Timer1_.reset();
  running_ = true;
  breakRequested_ = false;
  seconds_ = 0;
  departure_ = Departure::kNo;
  outcome_ = Outcome::kStopped;
  RunLogLine_ = std::string(AutoStartEnabled ? "1" : "0") + "," + (Check_board ? "1" : "0") + " ";
  const bool finished = (!Check_board || VerifyInsertedBoard()) && DealBoard();
  WriteRunLine();
  if (finished) {
    if (machine_.MachineError == 0) FinishBoard();
    WindUp();
  }
  EndRun();
}

bool DealingRun::DealBoard() {
  BeginBoard();
  if (!SendStart(false)) return false;
  while (true) {
    if (!FollowMachine() || !FetchCardLog()) return false;
    DialogResult_ = kStop;
    if (machine_.MachineError != 0) AnswerError();
    if (DialogResult_ != kGoOn || departure_ != Departure::kNo) break;
    // A break that was asked for while the machine stopped is answered by the dialog.
    breakRequested_ = false;
    Controls.cmdBreak = true;
    view_->ShowControls();
    if (!SendStart(true)) return false;
  }
  // Brings the machine back to idle, after a good board too.
  machine_.VersionProbe();
  if (CheckCommLost()) return false;
  DisplayState();
  PumpRun();
  if (machine_.MachineError == 0) RunLogLine_ += " OK";
  return true;
}

bool DealingRun::StartGatesPass() {
  const auto refused = [this](const VersionGate& gate) {
    if (Passes(machine_, gate)) return false;
    Refuse(GateText(machine_, program_.Texts, gate));
    return true;
  };
  if (Cards.National != CardSettings::kStandard && refused(kNationalGate)) return false;
  if (Cards.National == CardSettings::kDanish && refused(kDanishGate)) return false;
  return Cards.National != CardSettings::kSwedish || !refused(kSwedishGate);
}

bool DealingRun::VerifyInsertedBoard() {
  while (true) {
    if (!ReadBoardNumber()) return false;
    if (machine_.BoardNumberRead == program_.Set.CurrentBoard) return true;
    DialogResult_ = OpenErrorDialog(ErrorDialog::kWrongBoard, kDealAnyway);
    if (program_.Loop.Quitting()) DialogResult_ = kStop;
    RunLogLine_ += "64," + std::to_string(machine_.BoardNumberRead) + "," +
                   std::to_string(DialogResult_) + " ";
    PumpRun();
    if (DialogResult_ == kStop || departure_ != Departure::kNo) return false;
    if (DialogResult_ == kDealAnyway) return true;
  }
}

bool DealingRun::ReadBoardNumber() {
  for (int reading = 0; reading < kLabelReadings; ++reading) {
    machine_.Exchange(SensorCommand{SensorCommand::kBoardLabel}, CmdSensor);
    if (CheckCommLost()) return false;
    DisplayState();
    PumpRun();
    if (machine_.BoardNumberRead == program_.Set.CurrentBoard) break;
    program_.Loop.WaitMs(kLabelWaitMs);
    if (departure_ != Departure::kNo) break;
  }
  return departure_ == Departure::kNo;
}

void DealingRun::BeginBoard() {
  runStart_ = program_.Time.Elapsed();
  machine_.PollLock = true;
  Controls = {};
  Controls.cmdBreak = true;
  machine_.MachineError = 0;
  machine_.CardCount = {};
  CountsShown = false;
  txtDealTime.clear();
  RunLogLine_ += Cards.LogText();
  view_->ShowControls();
  DisplayState();
}

StartCommand DealingRun::BuildStart(bool goOn) const {
  StartCommand start{
      CmdDeal, goOn, {Cards.CardConfig(), DealRotation_, Cards.CardConfigExtra()}, {}};
  for (int card = 1; card <= kCards; ++card) {
    start.Pockets[WirePosition(card) - kPayload] =
        PocketOfHand[CurrentBoard().Cards[static_cast<std::size_t>(card)]];
  }
  return start;
}

bool DealingRun::SendStart(bool goOn) {
  if (goOn) {
    machine_.MachineState = Machine::kBusy;
    DisplayState();
  }
  machine_.Exchange(BuildStart(goOn), kReplyAccepted);
  if (CheckCommLost()) return false;
  DisplayState();
  PumpRun();
  return true;
}

bool DealingRun::FollowMachine() {
  do {
    const bool breakNow = std::exchange(breakRequested_, false);
    machine_.Exchange(breakNow ? StatusCommand{StatusCommand::kBreak} : machine_.Poll());
    if (CheckCommLost()) return false;
    CountsShown = true;
    seconds_ = std::chrono::duration<double>(program_.Time.Elapsed() - runStart_).count();
    if (machine_.MachineState == Machine::kBusy) txtDealTime = FixedPoint(seconds_, 1);
    DisplayState();
    PumpRun();
    if (departure_ == Departure::kAtOnce) {
      machine_.Exchange(StatusCommand{StatusCommand::kBreak});
      CheckCommLost();
      return false;
    }
  } while (machine_.MachineState == Machine::kBusy);
  return true;
}

bool DealingRun::FetchCardLog() {
  machine_.Exchange(FetchCommand{CmdFetchLog}, kReplyCardLog);
  if (CheckCommLost()) return false;
  DisplayState();
  PumpRun();
  return true;
}

void DealingRun::AnswerError() {
  RunLogLine_ += " " + std::to_string(machine_.MachineError);
  view_->ShowBoard();
  if (departure_ != Departure::kNo) return;
  DialogResult_ = OpenErrorDialog(0, kStop);
  program_.Loop.WaitMs(kAfterErrorMs);
  PumpRun();
}

DialogAnswer DealingRun::OpenErrorDialog(int boardErrorKind, DialogAnswer standing) {
  ErrorDialog dialog(program_, machine_, boardErrorKind, standing);
  view_->ShowError(dialog);
  return dialog.DialogResult;
}

void DealingRun::FinishBoard() {
  outcome_ = Outcome::kDealt;
  BoardSet& set = program_.Set;
  AnalyzeBoard(set.Current());
  if (set.CurrentBoard < memory_.RunLast || CurrentCopy < memory_.NumberOfCopies) {
    Controls.Deal_next = true;
    return;
  }
  if (departure_ != Departure::kNo) return;
  const int answer = program_.Ask(program_.Texts.Msg060, kYesNoQuestion, "Dealing");
  // Not 0, so that a press or a board that came behind the box is acknowledged; not 1, so that it
  // starts nothing: required.
  machine_.PedalFlag = 2;
  machine_.BoxFlag = 2;
  if (answer != kYes) return;
  set.CurrentBoard = memory_.RunFirst;
  CurrentCopy = 1;
}

void DealingRun::WindUp() {
  UpdateWalk();
  UpdateCopies();
  Controls.cmdBreak = false;
  Controls.cmdDeal = Controls.cmdExit = Controls.Options = true;
  machine_.MachineState = Machine::kIdle;
  DisplayState();
  view_->ShowControls();
  view_->ShowBoard();
  if (Controls.Deal_next) view_->FocusDealNext();
  DealRotation_ =
      static_cast<std::uint8_t>((DealRotation_ + 1U) % RunSettings::RotationTableA.size());
}

void DealingRun::EndRun() {
  running_ = false;
  machine_.PollLock = false;
  if (closed_) return;
  if (departure_ != Departure::kNo) {
    Unload();
    return;
  }
  StartPolling();
}

void DealingRun::WriteRunLine() {
  program_.Log.WriteLine("  " + ThreeDigits(program_.Set.CurrentBoard) + " : " + RunLogLine_);
}

void DealingRun::PumpRun() {
  if (!program_.Loop.Pump()) departure_ = Departure::kAtOnce;
}

}  // namespace morvane::machine
