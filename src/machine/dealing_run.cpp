#include "machine/dealing_run.h"

#include "machine/deal_hand.h"
#include "machine/first_contact.h"
#include "machine/hand_list.h"
#include "machine/idle_poll.h"
#include "text/text.h"

namespace morvane::machine {
namespace {

/// `which` board of the range was typed as `text`, which is not within `low`..`high`, and stays
/// `now`.
std::string RangeRefusal(const std::string& which, const std::string& text, int low, int high,
                         int now) {
  return "      The " + which + " board to deal must be from " + std::to_string(low) + " to " +
         std::to_string(high) + ", not " + (text.empty() ? "empty" : text) +
         ".      \r\n\r\n      It stays " + std::to_string(now) + ". Nothing has been dealt.      ";
}

}  // namespace

DealingRun::DealingRun(Program& program, Machine& machine, RunMemory& memory)
    : parts_(program, machine, memory), memory_(memory) {}

// Opening, the first contact, and leaving.

void DealingRun::Open(RunView& view) {
  parts_.View = &view;
  const Settings& store = parts_.Prog.Store;
  RunWindowState& window = parts_.Window;
  window.CopiesShown = store.IsOn(kDealCopy);
  window.SubRangeShown = store.IsOn(kDealSub);
  window.ShowBoards = store.IsOn(kDealShow);
  parts_.Walk.Open(window.CopiesShown, window.SubRangeShown);
  Controls().FollowCopy(parts_.Walk);
  parts_.Options.Load();
  parts_.Run.ClearCardLog();
  Machine& machine = parts_.TheMachine;
  machine.MachineState = Machine::kNotConnected;
  machine.Link.MachineLatchOn();
  machine.BoxInTicks = 0;
  machine.BoxOutTicks = 0;
  parts_.Prog.Log.WriteTime(" Deal: ");
  Timer3d_ = parts_.Prog.Loop.StartTimer(kFirstContactMs, [this] { FirstContact(); });
  ShowAll();
}

void DealingRun::FirstContact() {
  const auto once = std::move(Timer3d_);
  Machine& machine = parts_.TheMachine;
  machine.Link.FlushLink();
  machine.VersionProbe();
  ShowContact();
  machine.PollLock = false;
  machine.PedalFlag = 0;
  switch (AskMachine(machine, parts_.Prog.Log)) {
    case Contact::kLinkLost:
      LoseLink();
      return;
    case Contact::kNoVersion:
      parts_.View->ShowState();
      parts_.Prog.ShowMessage(parts_.Prog.Texts.Msg047, kOkCritical, "Communication Error");
      Unload();
      return;
    case Contact::kMade:
      parts_.Options.ApplySilentGates();
      parts_.View->ShowControls();
      StartPolling();
  }
}

void DealingRun::ShowContact() {
  Controls().cmdFirst = Controls().cmdPrev = true;
  // Required: looks at the number of the last board, not at how many boards there are.
  Controls().cmdNext = Controls().cmdLast = parts_.Walk.Range().RunLast > 1;
  Controls().cmdDeal = Controls().cmdExit = Controls().Options = true;
  Controls().Deal_next = false;
  parts_.Window.SettingsShown = true;
  parts_.Window.Command1Shown = parts_.Prog.ServiceLevel == 2;
  ShowAll();
}

void DealingRun::Exit() {
  if (!running_) {
    Unload();
    return;
  }
  parts_.Run.Leave();
  RequestBreak();
}

void DealingRun::Unload() {
  if (closed_) return;
  closed_ = true;
  Controls() = {};
  Timer1_.reset();
  Timer3d_.reset();
  Machine& machine = parts_.TheMachine;
  if (!CommLost_) machine.Link.MachineLatchOff();
  machine.BoxFlag = 0;
  machine.PedalFlag = 0;
  machine.Link.CloseLink();
  parts_.View->Close();
}

bool DealingRun::CheckCommLost() {
  if (!parts_.TheMachine.Lost()) return false;
  LoseLink();
  return true;
}

void DealingRun::LoseLink() {
  CommLost_ = true;
  outcome_ = Outcome::kLinkLost;
  parts_.View->ShowState();
  ShowDealingError(parts_.Prog, parts_.TheMachine, parts_.Prog.Texts.Msg048);
  Unload();
}

// Between two boards: the polling that lets the pedal or an inserted board start the next one, and
// the buttons.

void DealingRun::StartPolling() {
  Timer1_ = parts_.Prog.Loop.StartTimer(kPollMs, [this] { Timer1Tick(); });
}

void DealingRun::Timer1Tick() {
  Program& program = parts_.Prog;
  if (program.Link.Pending == LinkRequest::kDownload) {
    program.Link = {};
    program.ShowMessage(program.Texts.Msg092, kOkExclamation, "Download New Firmware");
  }
  if (parts_.TheMachine.PollLock) return;
  const IdlePoll poll = PollBetweenRuns(parts_.TheMachine, parts_.Options.AutoStartEnabled);
  if (CheckCommLost()) return;
  parts_.View->ShowState();
  if (poll == IdlePoll::kStart) StartFromMachine();
}

void DealingRun::StartFromMachine() {
  if (Controls().Deal_next) {
    Deal_next();
  } else {
    cmdDeal();
  }
}

void DealingRun::cmdDeal() {
  if (!Controls().cmdDeal || running_ || !TypedIsTaken()) return;
  parts_.Run.ClearCardLog();
  if (CurrentBoard().Status != Board::kComplete) {
    ShowDealingError(parts_.Prog, parts_.TheMachine, parts_.Prog.Texts.Msg053);
    return;
  }
  DealHand();
}

void DealingRun::Deal_next() {
  const std::int16_t dealt = parts_.Prog.Set.CurrentBoard;
  if (!Controls().Deal_next || running_ || !TypedIsTaken()) return;
  if (parts_.Prog.Set.CurrentBoard != dealt) {  // the range has moved on to another board
    cmdDeal();
    return;
  }
  if (!Controls().Deal_next) return;  // it ends with the board just dealt
  ForgetCards();
  parts_.Walk.NextBoardStep();
  ShowAll();
  cmdDeal();
}

void DealingRun::cmdBreak() {
  if (!Controls().cmdBreak) return;
  parts_.Run.Break();
  RequestBreak();
}

void DealingRun::RequestBreak() {
  Controls().cmdBreak = false;
  parts_.View->ShowControls();
}

void DealingRun::Walk(BoardWalk::Step step) {
  if (running_) return;
  TakeTyped();
  if (!Controls().Allows(step)) return;
  ForgetCards();
  parts_.Walk.Take(step);
  if (step == BoardWalk::Step::kPrevCopy || step == BoardWalk::Step::kNextCopy) {
    Controls().FollowCopy(parts_.Walk);
  } else {
    Controls().FollowBoard(parts_.Walk);
  }
  ShowAll();
}

void DealingRun::SetNumberCopies(const std::string& text) {
  if (Busy()) return;
  parts_.Walk.SetCopies(Val(text));
  FollowEnd();
  Controls().FollowCopy(parts_.Walk);
  ShowAll();
}

void DealingRun::LeaveSubfrom(const std::string& text) {
  LeaveRangeBox(&BoardWalk::SetFirst, text);
}

void DealingRun::LeaveSubto(const std::string& text) { LeaveRangeBox(&BoardWalk::SetLast, text); }

void DealingRun::LeaveRangeBox(bool (BoardWalk::*set)(int), const std::string& text) {
  if (Busy()) return;
  if ((parts_.Walk.*set)(Val(text))) ForgetCards();
  FollowEnd();
  Controls().FollowBoard(parts_.Walk);
  ShowAll();
}

/// What is being typed counts as if its box had been left.
void DealingRun::TakeTyped() {
  const auto texts = parts_.View->Range();
  if (!texts) return;
  const RunMemory before = parts_.Walk.Range();
  if (Val(texts->Subfrom) != before.RunFirst) LeaveSubfrom(texts->Subfrom);
  if (Val(texts->Subto) != before.RunLast) LeaveSubto(texts->Subto);
}

/// Why what is being typed cannot be taken as it stands; empty when it can.
std::string DealingRun::RefusalOfTyped() const {
  const auto texts = parts_.View->Range();
  if (!texts) return "";
  const RunMemory& range = parts_.Walk.Range();
  const BoardSet& set = parts_.Prog.Set;
  const int first = Val(texts->Subfrom);
  const int last = Val(texts->Subto);
  const auto isNew = [](int number, int now, int low, int high) {
    return number != now && (number < low || number > high);
  };
  if (isNew(first, range.RunFirst, set.FirstBoard, set.LastBoard)) {
    return RangeRefusal("first", texts->Subfrom, set.FirstBoard, set.LastBoard, range.RunFirst);
  }
  if (isNew(last, range.RunLast, first, set.LastBoard)) {
    return RangeRefusal("last", texts->Subto, first, set.LastBoard, range.RunLast);
  }
  return "";
}

bool DealingRun::TypedIsTaken() {
  const std::string refusal = RefusalOfTyped();
  if (refusal.empty()) {
    TakeTyped();
    return true;
  }
  parts_.View->ShowControls();  // the range as it stays
  ShowDealingError(parts_.Prog, parts_.TheMachine, refusal);
  ForgetStarts();
  return false;
}

void DealingRun::Disp_boards() {
  if (!running_) TakeTyped();
  parts_.Window.ShowBoards = !parts_.Window.ShowBoards;
  ShowAll();
}

void DealingRun::Command1() {
  if (!parts_.Window.Command1Shown || Busy()) return;
  const auto reply = parts_.TheMachine.Exchange(wire::TestCommand{});
  if (reply) memory_.TestText += wire::DiagnosisText(*reply);
  if (!CheckCommLost()) parts_.View->ShowControls();
}

bool DealingRun::Busy() {
  if (running_) parts_.View->ShowControls();  // takes back what the operator has changed
  return running_;
}

/// A run that ends with the board just dealt has no next one.
void DealingRun::FollowEnd() {
  if (parts_.Walk.AtEnd()) Controls().Deal_next = false;
}

/// What was dealt belongs to another board now.
void DealingRun::ForgetCards() {
  parts_.Run.ClearCardLog();
  Controls().Deal_next = false;
}

void DealingRun::ShowAll() {
  parts_.View->ShowControls();
  parts_.View->ShowBoard();
}

// One board.

void DealingRun::DealHand() {
  if (!parts_.Options.StartGatesPass()) return;
  Timer1_.reset();
  running_ = true;
  outcome_ = Outcome::kNone;
  parts_.Run.Prepare();
  const BoardEnd end = machine::DealHand(parts_, DealRotation_);
  outcome_ = end == BoardEnd::kDealt ? Outcome::kDealt : Outcome::kStopped;
  if (end == BoardEnd::kLinkLost) LoseLink();
  WriteRunLine();
  if (end == BoardEnd::kDealt) FinishBoard();
  if (end == BoardEnd::kIncomplete) TellOfMissingCards();
  if (end != BoardEnd::kLinkLost && end != BoardEnd::kGivenUp) WindUp();
  EndRun();
}

void DealingRun::WriteRunLine() {
  parts_.Prog.Log.WriteLine("  " + ThreeDigits(parts_.Prog.Set.CurrentBoard) + " : " +
                            parts_.Run.RunLogLine);
}

void DealingRun::FinishBoard() {
  AnalyzeBoard(parts_.Prog.Set.Current());
  Controls().Deal_next = !parts_.Walk.AtEnd();
  if (parts_.Walk.AtEnd() && !parts_.Run.Leaving()) OfferToStartAgain();
}

void DealingRun::OfferToStartAgain() {
  parts_.View->ShowState();
  const int answer = parts_.Prog.Ask(parts_.Prog.Texts.Msg060, kYesNoQuestion, "Dealing");
  ForgetStarts();
  if (answer == kYes) parts_.Walk.BackToStart();
}

void DealingRun::TellOfMissingCards() {
  if (parts_.Run.Leaving()) return;
  parts_.View->ShowState();
  parts_.View->ShowBoard();
  const int dealt = kCards - CardsMissing(CurrentBoard(), parts_.Run.CardLog);
  ShowDealingError(
      parts_.Prog, parts_.TheMachine,
      "      The machine has stopped without dealing all cards: " + std::to_string(dealt) +
          " of 52 cards of board " + std::to_string(parts_.Prog.Set.CurrentBoard) +
          " have been dealt.      \r\n\r\n"
          "      Please put the cards together and deal the board again.      ");
  ForgetStarts();
}

/// What came behind a box: not 0, so that it is acknowledged; not 1, so that it starts nothing.
/// Required.
void DealingRun::ForgetStarts() {
  parts_.TheMachine.PedalFlag = 2;
  parts_.TheMachine.BoxFlag = 2;
}

void DealingRun::WindUp() {
  Controls().FollowBoard(parts_.Walk);
  Controls().FollowCopy(parts_.Walk);
  Controls().cmdBreak = false;
  Controls().cmdDeal = Controls().cmdExit = Controls().Options = true;
  parts_.TheMachine.MachineState = Machine::kIdle;
  parts_.View->ShowState();
  ShowAll();
  if (Controls().Deal_next) parts_.View->FocusDealNext();
  DealRotation_ =
      static_cast<std::uint8_t>((DealRotation_ + 1U) % wire::RunSettings::RotationTableA.size());
}

void DealingRun::EndRun() {
  running_ = false;
  parts_.TheMachine.PollLock = false;
  if (closed_) return;
  if (parts_.Run.Leaving()) {
    Unload();
    return;
  }
  StartPolling();
}

}  // namespace morvane::machine
