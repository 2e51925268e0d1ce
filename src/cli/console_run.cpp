#include "cli/console_run.h"

#include <numeric>

namespace morvane::cli {
namespace {

constexpr int kTickMs = 10;

}  // namespace

ConsoleRun::ConsoleRun(EventLoop& loop, Terminal& terminal, machine::MachineRun& run,
                       const RunRequest& request, const MachineSide& side)
    : terminal_(terminal),
      side_(side),
      run_(run),
      request_(request),
      faults_(
          loop, terminal, [&run] { return run.Cards().Leaving(); },
          request.Yes ? FaultAnswers::By::kYes : FaultAnswers::By::kOperator),
      starter_(loop.StartTimer(kTickMs, [this] { Tick(); })),
      progress_(terminal) {}

/// What was under way when the run was left, or its link lost, has ended too.
void ConsoleRun::Close() {
  starter_.reset();
  if (ran_) TakeNote();
}

void ConsoleRun::Tick() {
  if (!run_.Options().MachineKnown || run_.Running()) return;
  if (!prepared_) Prepare();
  prepared_ = true;
  if (!ran_) {
    StartOrWait();
    return;
  }
  const bool ok = run_.LastOutcome() == machine::MachineRun::Outcome::kDone;
  TakeNote();
  if (!ok || !More()) run_.Exit();
}

void ConsoleRun::StartOrWait() {
  if (!request_.Auto || NeedsAPerson()) {
    WaitForPerson();
    return;
  }
  Start();
  if (!ran_) run_.Exit();  // refused, which has been told
}

std::string ConsoleRun::Invitation() const {
  return side_.PressPedal ? "Press Enter to press the machine's pedal for " + Coming() + ".\n"
                          : "Insert " + Coming() + " or press the pedal.\n";
}

void ConsoleRun::WaitForPerson() {
  if (!asked_) terminal_.Out(Invitation());
  asked_ = true;
  if (!TakesEnter()) return;
  if (terminal_.ReadLineIfAny()) Enter();
  // A real machine has a pedal of its own.
  if (terminal_.InputEnded() && side_.PressPedal) run_.Exit();
}

void ConsoleRun::TakeNote() {
  ran_ = false;
  asked_ = false;
  progress_.Show("");
  Note(run_.LastOutcome() == machine::MachineRun::Outcome::kDone);
}

void ConsoleRun::ShowState() {
  if (!run_.Running()) return;
  ran_ = true;
  const bool underWay = run_.LastOutcome() == machine::MachineRun::Outcome::kNone;
  const bool polled = !run_.Cards().txtDealTime.empty();
  progress_.Show(underWay && polled ? Progress() : "");
}

void ConsoleRun::ShowError(machine::ErrorDialog& dialog) {
  progress_.Show("");
  faults_.Take(dialog);
}

int ConsoleRun::CardsFallen() const {
  const auto& counts = run_.TheMachine().CardCount;
  return std::accumulate(counts.begin(), counts.end(), 0);
}

}  // namespace morvane::cli
