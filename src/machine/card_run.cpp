#include "machine/card_run.h"

#include <algorithm>
#include <utility>

#include "text/text.h"

namespace morvane::machine {

using wire::StatusCommand;

CardRun::CardRun(EventLoop& loop, const Clock& time, Machine& machine,
                 std::function<void()> changed)
    : loop_(loop), time_(time), machine_(machine), changed_(std::move(changed)) {}

void CardRun::Prepare() {
  RunLogLine.clear();
  seconds_ = 0;
  breakAsked_ = false;
  departure_ = Departure::kNo;
  quitUntil_.reset();
}

CardRun::End CardRun::Run(const Plan& plan) {
  Begin();
  if (!plan.Start(false)) return End::kLinkLost;
  while (true) {
    const End end = Follow();
    if (end != End::kStopped) return end;
    if (plan.Fetch && !plan.Fetch()) return End::kLinkLost;
    if (machine_.MachineError == 0 || !GoesOnAfterFault(plan)) return End::kStopped;
    if (!GoOn(plan)) return End::kLinkLost;
  }
}

void CardRun::Begin() {
  start_ = time_.Elapsed();
  machine_.MachineError = 0;
  machine_.CardCount = {};
  CountsShown = false;
  txtDealTime.clear();
  Show();
}

CardRun::End CardRun::Follow() {
  do {
    Poll();
    if (machine_.Lost()) return End::kLinkLost;
    Pump();
    if (departure_ == Departure::kAtOnce) {
      machine_.Exchange(StatusCommand{StatusCommand::kBreak});
      return machine_.Lost() ? End::kLinkLost : End::kGivenUp;
    }
  } while (machine_.MachineState == Machine::kBusy);
  ShowNews();
  return End::kStopped;
}

CardRun::Seen CardRun::SeenNow() const {
  return {machine_.MachineState, CountsShown, machine_.CardCount, txtDealTime};
}

void CardRun::Show() {
  shown_ = SeenNow();
  changed_();
}

void CardRun::ShowNews() {
  if (SeenNow() != shown_) Show();
}

void CardRun::Poll() {
  const bool breakNow = std::exchange(breakAsked_, false);
  // The wire does not wait for the screen: what the last poll told is painted while the machine
  // answers this one.
  machine_.Exchange(breakNow ? StatusCommand{StatusCommand::kBreak} : machine_.Poll(),
                    [this] { ShowNews(); });
  if (machine_.Lost()) return;
  CountsShown = true;
  seconds_ = std::chrono::duration<double>(time_.Elapsed() - start_).count();
  if (machine_.MachineState == Machine::kBusy) txtDealTime = FixedPoint(seconds_, 1);
}

bool CardRun::GoesOnAfterFault(const Plan& plan) {
  RunLogLine += " " + std::to_string(machine_.MachineError);
  // A break that was asked for while the machine stopped has been answered with the fault.
  breakAsked_ = false;
  return plan.AnswerFault() == kGoOn && !Leaving();
}

bool CardRun::GoOn(const Plan& plan) {
  machine_.MachineState = Machine::kBusy;
  Show();
  return plan.Start(true);
}

bool CardRun::Probe() {
  machine_.VersionProbe();
  return Step();
}

bool CardRun::Step() {
  if (machine_.Lost()) return false;
  Show();
  Pump();
  return true;
}

bool CardRun::FetchCardLog() {
  if (const auto log = machine_.Exchange(wire::FetchLogCommand{})) CardLog = log->Cards;
  return Step();
}

void CardRun::ClearCardLog() {
  CardLog = {};
  std::fill_n(CardLog.Bytes.begin(), kCards, kFreshCard);
}

void CardRun::Pump() {
  if (loop_.PumpOften()) return;
  if (!quitUntil_) {
    quitUntil_ = time_.Elapsed() + kMomentToBreak;
    if (departure_ == Departure::kNo) Leave();
  }
  if (time_.Elapsed() >= *quitUntil_) departure_ = Departure::kAtOnce;
}

void CardRun::Leave() {
  departure_ = departure_ == Departure::kNo ? Departure::kAfterBreak : Departure::kAtOnce;
  Break();
}

}  // namespace morvane::machine
