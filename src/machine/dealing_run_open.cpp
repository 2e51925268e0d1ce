#include <algorithm>

#include "machine/dealing_run.h"

// Opening the run window, the first contact with the machine, and leaving.

namespace morvane::machine {

DealingRun::DealingRun(Program& program, Machine& machine, RunMemory& memory)
    : program_(program), machine_(machine), memory_(memory) {}

void DealingRun::Open(RunView& view) {
  view_ = &view;
  memory_.NumberOfCopies = std::max<std::int16_t>(memory_.NumberOfCopies, 1);
  Controls = {};
  CopiesShown = program_.Store.IsOn(kDealCopy);
  if (!CopiesShown) memory_.NumberOfCopies = 1;
  UpdateCopies();
  TakeRange();
  ShowBoards = program_.Store.IsOn(kDealShow);
  program_.Set.CurrentBoard = memory_.RunFirst;
  machine_.MachineState = Machine::kNotConnected;
  machine_.ClearCardLog();
  machine_.Link.MachineLatchOn();
  machine_.BoxInTicks = 0;
  machine_.BoxOutTicks = 0;
  Cards = CardSettings::Load(program_.Store);
  Check_board = program_.Store.IsOn(kCheckBoard);
  AutoStartEnabled = program_.Store.IsOn(kInitStartFromBox);
  program_.Log.WriteTime(" Deal: ");
  Timer3d_ = program_.Loop.StartTimer(kFirstContactMs, [this] { FirstContact(); });
  view_->ShowControls();
  DisplayState();
  view_->ShowBoard();
}

void DealingRun::TakeRange() {
  const BoardSet& set = program_.Set;
  SubRangeShown = program_.Store.IsOn(kDealSub);
  if (!SubRangeShown || memory_.RunFirst == 0) memory_.RunFirst = set.FirstBoard;
  if (!SubRangeShown || memory_.RunLast == 0) memory_.RunLast = set.LastBoard;
  memory_.RunFirst = std::clamp(memory_.RunFirst, set.FirstBoard, set.LastBoard);
  memory_.RunLast = std::clamp(memory_.RunLast, memory_.RunFirst, set.LastBoard);
}

void DealingRun::FirstContact() {
  const auto once = std::move(Timer3d_);
  machine_.Link.FlushLink();
  machine_.VersionProbe();
  DisplayState();
  view_->ShowBoard();

  Controls.cmdFirst = Controls.cmdPrev = true;
  SettingsShown = true;
  Command1Shown = program_.ServiceLevel == 2;
  // Required: looks at the number of the last board, not at how many boards there are.
  Controls.cmdNext = Controls.cmdLast = memory_.RunLast > 1;
  Controls.cmdDeal = Controls.cmdExit = Controls.Options = true;
  Controls.Deal_next = false;
  view_->ShowControls();

  machine_.PollLock = false;
  machine_.PedalFlag = 0;
  machine_.VersionSeen = false;
  if (!AskMachine()) return;
  ApplySilentGates();
  runInitialising_ = false;
  view_->ShowControls();
  StartPolling();
}

bool DealingRun::AskMachine() {
  // A machine that is silent here has no power; any later silence is a lost link.
  if (machine_.Exchange(VersionCommand{}, CmdVersion)) {
    for (const std::uint8_t page : {std::uint8_t{1}, std::uint8_t{2}}) {
      machine_.Exchange(IdentityCommand{page}, CmdIdentity);
      if (CheckCommLost()) return false;
    }
    machine_.Exchange(CounterCommand{0}, kReplyCounter);
    if (CheckCommLost()) return false;
    program_.Log.WriteLine("  S/N:" + std::to_string(machine_.SerialNumber) +
                           " Dealt:" + std::to_string(machine_.BoardsDealt) +
                           " Firmware:" + machine_.FirmwareVersion());
  }
  if (machine_.VersionSeen) return true;
  program_.ShowMessage(program_.Texts.Msg047, kOkCritical, "Communication Error");
  Unload();
  return false;
}

void DealingRun::ApplySilentGates() {
  if (Check_board && (!Passes(machine_, kCheckBoardOpenGate) ||
                      !machine_.HasHardware(IdentityReply::kBoardNumberReader))) {
    Check_board = false;
    Store(kCheckBoard, 0);
  }
  if (Cards.CardIndex == CardSettings::kLargeIndex &&
      (!Passes(machine_, kLargeIndexOpenGate) ||
       !machine_.HasHardware(IdentityReply::kLargeIndexCards))) {
    Cards.CardIndex = CardSettings::kStandardIndex;
    Store(kCardIndex, Cards.CardIndex);
  }
}

void DealingRun::Exit() {
  if (running_) {
    departure_ = departure_ == Departure::kNo ? Departure::kAfterBreak : Departure::kAtOnce;
    RequestBreak();
    return;
  }
  Unload();
}

void DealingRun::Unload() {
  if (closed_) return;
  closed_ = true;
  Controls = {};
  Timer1_.reset();
  Timer3d_.reset();
  if (!CommLost_) machine_.Link.MachineLatchOff();
  machine_.BoxFlag = 0;
  machine_.PedalFlag = 0;
  machine_.Link.CloseLink();
  view_->Close();
}

bool DealingRun::CheckCommLost() {
  if (!machine_.Lost()) return false;
  CommLost_ = true;
  outcome_ = Outcome::kLinkLost;
  Refuse(program_.Texts.Msg048);
  Unload();
  return true;
}

}  // namespace morvane::machine
