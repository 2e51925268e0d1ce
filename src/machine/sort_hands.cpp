#include "machine/sort_hands.h"

#include <algorithm>

namespace morvane::machine {
namespace {

bool Start(RunParts& run, bool goOn, std::uint8_t rotation) {
  ShowBreakOnly(run);
  run.TheMachine.Exchange(
      wire::SortCommand{.Continue = goOn, .Settings = StartSettings(run, rotation)});
  return run.Run.Step();
}

/// A machine that restarted in the middle of a sort is idle without an error, with no card in its
/// counts. How many should be there, nobody knows.
RunEnd Judge(RunParts& run) {
  const auto& counts = run.TheMachine.CardCount;
  if (std::all_of(counts.begin(), counts.end(), [](auto count) { return count == 0; })) {
    return RunEnd::kIncomplete;
  }
  run.Run.RunLogLine += " OK";
  return RunEnd::kDone;
}

}  // namespace

RunEnd SortHands(RunParts& run, std::uint8_t rotation) {
  const RunEnd end = RunToIdle(
      run, {[&](bool goOn) { return Start(run, goOn, rotation); },
            [&] { return run.Run.FetchCardLog(); }, [&] { return AnswerFault(run, {}); }});
  return end == RunEnd::kDone ? Judge(run) : end;
}

}  // namespace morvane::machine
