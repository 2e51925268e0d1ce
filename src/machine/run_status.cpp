#include "machine/run_status.h"

#include <cctype>

namespace morvane::machine {
namespace {

std::string Last(const RunWords& words, std::string_view how) {
  return "Last " + std::string(words.Unit) + " " + std::string(how);
}

std::string UnderWay(const RunWords& words) {
  std::string text(words.Unit);
  text[0] = static_cast<char>(std::toupper(text[0]));
  return text + " under way ...";
}

std::string IdleLine(const RunStatus& now) {
  if (!now.MachineKnown) return "Waiting for the machine ...";
  const RunWords& words = WordsOf(now.Kind);
  switch (now.LastOutcome) {
    case MachineRun::Outcome::kDone:
      return Last(words, words.Dealt);
    case MachineRun::Outcome::kStopped:
      return Last(words, "not finished");
    default:
      // Under way too: its label is read, its first frame is on its way, its card log is fetched.
      return now.Running ? UnderWay(words) : "Ready to " + std::string(words.Deal);
  }
}

}  // namespace

RunStatus StatusOf(const MachineRun& run) {
  return {
      .Kind = run.Kind(),
      .MachineState = run.TheMachine().MachineState,
      .LinkLost = run.TheMachine().Lost() || run.LastOutcome() == MachineRun::Outcome::kLinkLost,
      .MachineKnown = run.Options().MachineKnown,
      .Running = run.Running(),
      .Leaving = run.Cards().Leaving(),
      .LastOutcome = run.LastOutcome()};
}

std::string StatusLine(const RunStatus& now) {
  const bool busy = now.MachineState == Machine::kBusy;
  if (now.LinkLost) {
    return now.MachineKnown ? "Lost communication with the machine" : "The machine does not answer";
  }
  if (now.Leaving) return busy ? "Leaving when the machine has stopped ..." : "Leaving ...";
  switch (now.MachineState) {
    case Machine::kIdle:
      return IdleLine(now);
    case Machine::kBusy:
      return now.Running ? std::string(WordsOf(now.Kind).Dealing) + " ..." : "The machine is busy";
    case Machine::kError:
      return "The machine has stopped";
    default:
      return "Waiting for the machine ...";
  }
}

}  // namespace morvane::machine
