#include "machine/sort_hands.h"

namespace morvane::machine {
namespace {

bool Start(RunParts& run, bool goOn, std::uint8_t rotation) {
  ShowBreakOnly(run);
  run.TheMachine.Exchange(
      wire::SortCommand{.Continue = goOn, .Settings = StartSettings(run, rotation)});
  return run.Run.Step();
}

}  // namespace

RunEnd SortHands(RunParts& run, std::uint8_t rotation) {
  run.TheMachine.PollLock = true;
  run.Run.RunLogLine += run.Options.Cards.LogText();
  const RunEnd end = RunToIdle(
      run, {[&](bool goOn) { return Start(run, goOn, rotation); },
            [&] { return run.Run.FetchCardLog(); }, [&] { return AnswerFault(run, {}); }});
  if (end == RunEnd::kDone) run.Run.RunLogLine += " OK";
  return end;
}

}  // namespace morvane::machine
