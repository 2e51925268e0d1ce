#include "machine/machine_run.h"

#include <chrono>
#include <utility>

#include "machine/first_contact.h"
#include "machine/idle_poll.h"
#include "text/text.h"
#include "wire/machine_errors.h"

namespace morvane::machine {
namespace {

std::string OutcomeInWords(RunEnd end, const RunWords& words, int error) {
  switch (end) {
    case RunEnd::kDone:
      return std::string(words.Dealt);
    case RunEnd::kIncomplete:
      return "stopped: cards are missing";
    case RunEnd::kStopped:
      return "stopped: " + Trim(wire::TextOfError(error).Text);
    case RunEnd::kLinkLost:
      return "stopped: communication lost";
    default:
      return "not started";
  }
}

}  // namespace

MachineRun::MachineRun(Program& program, Machine& machine, RunMemory& memory, RunKind kind,
                       const VersionGate* gate)
    : parts_(program, machine, memory), memory_(memory), kind_(kind), gate_(gate) {}

// Opening, the first contact, and leaving.

void MachineRun::Open(RunView& view) {
  parts_.View = &view;
  OpenParts();
  parts_.Options.Load();
  parts_.Run.ClearCardLog();
  Machine& machine = parts_.TheMachine;
  machine.MachineState = Machine::kNotConnected;
  machine.Link.MachineLatchOn();
  machine.BoxInTicks = 0;
  machine.BoxOutTicks = 0;
  // What a window whose link was lost has left behind.
  machine.Link.CommErrorCount = 0;
  machine.PollLock = false;
  parts_.Prog.Log.WriteTime(Words().Log);
  Timer3d_ = parts_.Prog.Loop.StartTimer(kFirstContactMs, [this] { FirstContact(); });
  ShowAll();
}

void MachineRun::FirstContact() {
  const auto once = std::move(Timer3d_);
  Machine& machine = parts_.TheMachine;
  if (machine.PollLock) {  // a box is open, and the window may not go behind it
    Timer3d_ = parts_.Prog.Loop.StartTimer(kPollMs, [this] { FirstContact(); });
    return;
  }
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
      if (!GatePasses()) return;
      parts_.Options.ApplySilentGates(kind_);
      parts_.View->ShowControls();
      StartPolling();
  }
}

void MachineRun::ShowContact() {
  EnableAtContact();
  Controls().cmdExit = Controls().Options = true;
  parts_.Window.SettingsShown = true;
  parts_.Window.Command1Shown = parts_.Prog.ServiceLevel == 2;
  ShowAll();
}

/// A machine that cannot do this kind of run: the operator is told and the window goes.
bool MachineRun::GatePasses() {
  if (gate_ == nullptr || Passes(parts_.TheMachine, *gate_)) return true;
  ShowRunError(parts_.Prog, parts_.TheMachine,
               GateText(parts_.TheMachine, parts_.Prog.Texts, *gate_), Words().Error);
  Unload();
  return false;
}

void MachineRun::Exit() {
  if (!running_) {
    Unload();
    return;
  }
  parts_.Run.Leave();
  RequestBreak();
}

void MachineRun::Unload() {
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

bool MachineRun::CheckCommLost() {
  if (!parts_.TheMachine.Lost()) return false;
  LoseLink();
  return true;
}

void MachineRun::LoseLink() {
  CommLost_ = true;
  outcome_ = Outcome::kLinkLost;
  parts_.TheMachine.MachineState = Machine::kNotConnected;  // shown behind the box
  parts_.View->ShowState();
  ShowRunError(parts_.Prog, parts_.TheMachine, parts_.Prog.Texts.Msg048);
  Unload();
}

// Between two runs of cards: the polling that lets the pedal or an inserted board start the next.

void MachineRun::StartPolling() {
  Timer1_ = parts_.Prog.Loop.StartTimer(kPollMs, [this] { Timer1Tick(); });
}

void MachineRun::Timer1Tick() {
  TellOfDownload();
  if (closed_ || parts_.TheMachine.PollLock) return;
  const IdlePoll poll = PollBetweenRuns(parts_.TheMachine, parts_.Options.AutoStartEnabled);
  if (CheckCommLost()) return;
  parts_.View->ShowState();
  if (poll == IdlePoll::kStart) StartFromMachine();
}

void MachineRun::TellOfDownload() {
  Program& program = parts_.Prog;
  if (program.Link.Pending != LinkRequest::kDownload) return;
  program.Link = {};
  const LinkHold hold(parts_.TheMachine);
  program.ShowMessage(program.Texts.Msg092, kOkExclamation, "Download New Firmware");
  parts_.TheMachine.ForgetStarts();
}

void MachineRun::cmdBreak() {
  if (!Controls().cmdBreak) return;
  parts_.Run.Break();
  RequestBreak();
}

void MachineRun::RequestBreak() {
  Controls().cmdBreak = false;
  parts_.View->ShowControls();
}

void MachineRun::Command1() {
  if (!parts_.Window.Command1Shown || Busy()) return;
  const auto reply = parts_.TheMachine.Exchange(wire::TestCommand{});
  if (reply) memory_.TestText += wire::DiagnosisText(*reply);
  if (!CheckCommLost()) parts_.View->ShowControls();
}

bool MachineRun::Busy() {
  if (running_) parts_.View->ShowControls();
  return running_;
}

void MachineRun::ShowAll() {
  parts_.View->ShowControls();
  parts_.View->ShowBoard();
}

// One run of cards.

void MachineRun::RunCards() {
  Timer1_.reset();
  running_ = true;
  outcome_ = Outcome::kNone;
  try {
    RunToItsEnd();
  } catch (...) {
    Abandon();
    throw;
  }
}

/// A fault of what shows the run has ended it; the machine does not go on behind that.
void MachineRun::Abandon() {
  running_ = false;
  Machine& machine = parts_.TheMachine;
  machine.PollLock = false;
  outcome_ = Outcome::kStopped;
  if (machine.MachineState != Machine::kBusy || !machine.Link.IsOpen()) return;
  machine.ExpectLateReply();  // it may have been thrown between a frame and its reply
  machine.Exchange(wire::StatusCommand{wire::StatusCommand::kBreak});
}

void MachineRun::RunToItsEnd() {
  parts_.Run.Prepare();
  const RunEnd end = RunOnce();
  outcome_ = end == RunEnd::kDone ? Outcome::kDone : Outcome::kStopped;
  Note(end);
  if (end == RunEnd::kLinkLost) LoseLink();
  parts_.Prog.Log.WriteLine("  " + LogHead() + parts_.Run.RunLogLine);
  Finish(end);
  if (end != RunEnd::kLinkLost && end != RunEnd::kGivenUp) WindUp();
  EndRun();
}

CardFlow MachineRun::Flow() const {
  const Machine& machine = parts_.TheMachine;
  if (running_ && machine.MachineState == Machine::kBusy) return CardFlow::kFalling;
  const bool stopped =
      machine.MachineError != 0 || outcome_ == Outcome::kStopped || outcome_ == Outcome::kLinkLost;
  const bool anyPile = kind_ == RunKind::kSort && !stopped;
  return anyPile ? CardFlow::kOver : CardFlow::kStopped;
}

void MachineRun::Note(RunEnd end) {
  const double now = std::chrono::duration<double>(parts_.Prog.Time.Elapsed()).count();
  history_.Add({.What = Name(),
                .Seconds = parts_.Run.Seconds(),
                .Outcome = OutcomeInWords(end, Words(), parts_.TheMachine.MachineError),
                .Good = end == RunEnd::kDone},
               now);
}

void MachineRun::WindUp() {
  EnableAfterRun();
  Controls().cmdBreak = false;
  Controls().cmdExit = Controls().Options = true;
  parts_.TheMachine.MachineState = Machine::kIdle;
  parts_.View->ShowState();
  ShowAll();
  if (Controls().Deal_next) parts_.View->FocusNext();
  DealRotation_ =
      static_cast<std::uint8_t>((DealRotation_ + 1U) % wire::RunSettings::RotationTableA.size());
}

void MachineRun::EndRun() {
  running_ = false;
  parts_.TheMachine.PollLock = false;
  if (closed_) return;
  if (parts_.Run.Leaving()) {
    Unload();
    return;
  }
  parts_.View->ShowControls();  // the history, also of a board that was not started
  StartPolling();
}

}  // namespace morvane::machine
