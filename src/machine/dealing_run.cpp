#include "machine/dealing_run.h"

#include <algorithm>
#include <utility>

#include "text/text.h"

// Between two boards: the walk, the copies, the options, and the polling that lets the pedal or an
// inserted board start the next one.

namespace morvane::machine {
namespace {

/// While a box keeps the events going, the pedal must not start a board behind it.
class LinkHold {
 public:
  explicit LinkHold(bool& pollLock) : pollLock_(pollLock), before_(std::exchange(pollLock, true)) {}
  ~LinkHold() { pollLock_ = before_; }
  LinkHold(const LinkHold&) = delete;
  LinkHold& operator=(const LinkHold&) = delete;

 private:
  bool& pollLock_;
  bool before_;
};

}  // namespace

std::string DealingRun::txtStatus() const {
  switch (machine_.MachineState) {
    case Machine::kNotConnected:
    case Machine::kNoVersion:
      return "Down";
    case Machine::kIdle:
      return "Idle";
    case Machine::kBusy:
      return "Busy";
    case Machine::kError:
      return "Error";
    default:
      return "Illegal (" + std::to_string(machine_.MachineState) + ")";
  }
}

void DealingRun::DisplayState() { view_->ShowState(); }

void DealingRun::StartPolling() {
  Timer1_ = program_.Loop.StartTimer(kPollMs, [this] { Timer1Tick(); });
}

void DealingRun::Timer1Tick() {
  if (program_.Link.Pending == LinkRequest::kDownload) {
    program_.Link = {};
    program_.ShowMessage(program_.Texts.Msg092, kOkExclamation, "Download New Firmware");
  }
  if (machine_.PollLock) return;
  machine_.PollLock = true;
  machine_.Exchange(machine_.Poll());
  if (CheckCommLost()) return;
  DisplayState();
  machine_.BoxOutTicks = std::min<std::int16_t>(static_cast<std::int16_t>(machine_.BoxOutTicks + 1),
                                                Machine::kMostTicks);
  // A board that is pulled and pushed back within a second starts nothing.
  const bool boardIn =
      machine_.BoxFlag == 1 && AutoStartEnabled && machine_.BoxInTicks == Machine::kMostTicks;
  machine_.PollLock = false;
  if (machine_.PedalFlag == 1 || boardIn) StartFromMachine();
}

void DealingRun::StartFromMachine() {
  if (Controls.Deal_next) {
    Deal_next();
  } else {
    cmdDeal();
  }
}

void DealingRun::cmdDeal() {
  if (!Controls.cmdDeal || running_) return;
  machine_.ClearCardLog();
  if (CurrentBoard().Status != Board::kComplete) {
    Refuse(program_.Texts.Msg053);
    return;
  }
  DealHand();
}

void DealingRun::Deal_next() {
  if (!Controls.Deal_next || running_) return;
  NextBoardStep();
  view_->ShowControls();
  view_->ShowBoard();
  cmdDeal();
}

void DealingRun::cmdBreak() {
  if (Controls.cmdBreak) RequestBreak();
}

void DealingRun::RequestBreak() {
  // Sent in the place of the run's next poll: there is never more than one frame outstanding.
  breakRequested_ = true;
  Controls.cmdBreak = false;
  view_->ShowControls();
}

void DealingRun::NextBoardStep() {
  machine_.ClearCardLog();
  Controls.Deal_next = false;
  if (CurrentCopy < memory_.NumberOfCopies) {
    ++CurrentCopy;
    return;
  }
  CurrentCopy = 1;
  if (program_.Set.CurrentBoard < memory_.RunLast) ++program_.Set.CurrentBoard;
}

void DealingRun::cmdFirst() {
  if (Controls.cmdFirst) MoveTo(memory_.RunFirst);
}
void DealingRun::cmdPrev() {
  if (Controls.cmdPrev) MoveTo(program_.Set.CurrentBoard - 1);
}
void DealingRun::cmdNext() {
  if (Controls.cmdNext) MoveTo(program_.Set.CurrentBoard + 1);
}
void DealingRun::cmdLast() {
  if (Controls.cmdLast) MoveTo(memory_.RunLast);
}

void DealingRun::MoveTo(int board) {
  if (running_) return;
  machine_.ClearCardLog();
  Controls.Deal_next = false;
  program_.Set.CurrentBoard =
      static_cast<std::int16_t>(std::clamp<int>(board, memory_.RunFirst, memory_.RunLast));
  UpdateWalk();
  view_->ShowControls();
  view_->ShowBoard();
}

void DealingRun::UpdateWalk() {
  const std::int16_t board = program_.Set.CurrentBoard;
  Controls.cmdNext = Controls.cmdLast = board < memory_.RunLast;
  Controls.cmdFirst = Controls.cmdPrev = board > memory_.RunFirst;
}

void DealingRun::PrevCopy() {
  if (Controls.PrevCopy) MoveToCopy(CurrentCopy - 1);
}
void DealingRun::NextCopy() {
  if (Controls.NextCopy) MoveToCopy(CurrentCopy + 1);
}

void DealingRun::MoveToCopy(int copy) {
  if (running_) return;
  machine_.ClearCardLog();
  Controls.Deal_next = false;
  CurrentCopy = static_cast<std::int16_t>(std::clamp<int>(copy, 1, memory_.NumberOfCopies));
  UpdateCopies();
  view_->ShowControls();
  view_->ShowBoard();
}

void DealingRun::UpdateCopies() {
  Controls.PrevCopy = CurrentCopy > 1;
  Controls.NextCopy = CurrentCopy < memory_.NumberOfCopies;
}

void DealingRun::SetNumberCopies(const std::string& text) {
  if (Busy()) return;
  memory_.NumberOfCopies = static_cast<std::int16_t>(std::clamp(Val(text), 1, kMostCopies));
  CurrentCopy = std::min(CurrentCopy, memory_.NumberOfCopies);
  UpdateCopies();
  view_->ShowControls();
  view_->ShowBoard();
}

void DealingRun::LeaveSubfrom(const std::string& text) {
  SetRange(std::max<int>(Val(text), program_.Set.FirstBoard), memory_.RunLast);
}

void DealingRun::LeaveSubto(const std::string& text) {
  SetRange(memory_.RunFirst, std::max<int>(Val(text), memory_.RunFirst));
}

void DealingRun::SetRange(int first, int last) {
  if (Busy()) return;
  const int lastBoard = program_.Set.LastBoard;
  memory_.RunFirst = static_cast<std::int16_t>(std::min(first, lastBoard));
  memory_.RunLast = static_cast<std::int16_t>(std::clamp<int>(last, memory_.RunFirst, lastBoard));
  const std::int16_t board =
      std::clamp(program_.Set.CurrentBoard, memory_.RunFirst, memory_.RunLast);
  if (board != program_.Set.CurrentBoard) {
    MoveTo(board);
    return;
  }
  UpdateWalk();
  view_->ShowControls();
}

bool DealingRun::Busy() {
  if (running_) view_->ShowControls();  // takes back what the operator has changed
  return running_;
}

void DealingRun::Command1() {
  if (!Command1Shown || Busy()) return;
  machine_.Exchange(TestCommand{}, kReplyTest);
  if (!CheckCommLost()) view_->ShowControls();
}

void DealingRun::SetNational(int national) {
  if (Busy()) return;
  Cards.National = national;
  Store(kNational, national);
  view_->ShowBoard();
}

void DealingRun::SetCardType(int cardType) {
  if (Busy()) return;
  Cards.CardType = cardType;
  Store(kCardType, cardType);
}

void DealingRun::SetThreshold(int threshold) {
  if (Busy()) return;
  Cards.Threshold = threshold;
  Store(kThreshold, threshold);
}

void DealingRun::SetCardIndex(int cardIndex) {
  if (runInitialising_ || Busy()) return;
  Cards.CardIndex = cardIndex;
  if (cardIndex == CardSettings::kLargeIndex) {
    if (!machine_.HasHardware(IdentityReply::kLargeIndexCards)) {
      RefuseIndex(program_.Texts.Msg045);
    } else if (!Passes(machine_, kLargeIndexClickGate)) {
      RefuseIndex(GateText(machine_, program_.Texts, kLargeIndexClickGate));
    }
  } else if (cardIndex == CardSettings::kSmallIndex && !Passes(machine_, kSmallIndexClickGate)) {
    RefuseIndex(GateText(machine_, program_.Texts, kSmallIndexClickGate));
  }
  Store(kCardIndex, Cards.CardIndex);
  view_->ShowControls();
}

void DealingRun::RefuseIndex(const std::string& text) {
  Cards.CardIndex = CardSettings::kStandardIndex;
  Refuse(text);
}

void DealingRun::SetCheck_board(bool on) {
  if (runInitialising_ || Busy()) return;
  Check_board = on;
  if (on && !machine_.HasHardware(IdentityReply::kBoardNumberReader)) {
    Check_board = false;
    Refuse(program_.Texts.Msg046);
  } else if (on && !Passes(machine_, kCheckBoardClickGate)) {
    Check_board = false;
    Refuse(GateText(machine_, program_.Texts, kCheckBoardClickGate));
  }
  Store(kCheckBoard, Check_board ? 1 : 0);
  view_->ShowControls();
}

void DealingRun::SetStart_from_box(bool on) {
  if (Busy()) return;
  AutoStartEnabled = on;
  Store(kInitStartFromBox, on ? 1 : 0);
}

void DealingRun::Disp_boards() {
  ShowBoards = !ShowBoards;
  view_->ShowControls();
  view_->ShowBoard();
}

void DealingRun::Refuse(const std::string& text) {
  const LinkHold hold(machine_.PollLock);
  program_.ShowMessage(text, kOkCritical, "Dealing Error");
}

void DealingRun::Store(const SettingKey& key, int value) {
  const LinkHold hold(machine_.PollLock);  // a failure shows a box
  program_.StoreSetting(key, std::to_string(value));
}

}  // namespace morvane::machine
