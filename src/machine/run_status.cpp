#include "machine/run_status.h"

namespace morvane::machine {
namespace {

std::string_view IdleLine(const RunStatus& now) {
  if (!now.MachineKnown) return "Waiting for the machine ...";
  switch (now.LastOutcome) {
    case DealingRun::Outcome::kDealt:
      return "Last board dealt";
    case DealingRun::Outcome::kStopped:
      return "Last board not finished";
    default:
      // Under way too: its label is read, its first frame is on its way, its card log is fetched.
      return now.Running ? "Board under way ..." : "Ready to deal";
  }
}

}  // namespace

RunStatus StatusOf(const DealingRun& run) {
  return {
      .MachineState = run.TheMachine().MachineState,
      .LinkLost = run.TheMachine().Lost() || run.LastOutcome() == DealingRun::Outcome::kLinkLost,
      .MachineKnown = run.Options().MachineKnown,
      .Running = run.Running(),
      .Leaving = run.Cards().Leaving(),
      .LastOutcome = run.LastOutcome()};
}

std::string_view StatusLine(const RunStatus& now) {
  const bool busy = now.MachineState == Machine::kBusy;
  if (now.LinkLost) {
    return now.MachineKnown ? "Lost communication with the machine" : "The machine does not answer";
  }
  if (now.Leaving) return busy ? "Leaving when the machine has stopped ..." : "Leaving ...";
  switch (now.MachineState) {
    case Machine::kIdle:
      return IdleLine(now);
    case Machine::kBusy:
      return now.Running ? "Dealing ..." : "The machine is busy";
    case Machine::kError:
      return "The machine has stopped";
    default:
      return "Waiting for the machine ...";
  }
}

}  // namespace morvane::machine
