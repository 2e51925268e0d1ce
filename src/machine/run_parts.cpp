#include "machine/run_parts.h"

#include <algorithm>

namespace morvane::machine {
namespace {

constexpr int kAfterErrorMs = 300;

}  // namespace

wire::RunSettings StartSettings(const RunParts& run, std::uint8_t rotation) {
  const CardSettings& cards = run.Options.Cards;
  return {cards.CardConfig(), rotation, cards.CardConfigExtra()};
}

void ShowBreakOnly(RunParts& run) {
  run.Window.Controls = {};
  run.Window.Controls.cmdBreak = true;
  run.View->ShowControls();
}

Fault PlaceOfStop(const RunParts& run) {
  const auto& log = run.Run.CardLog.Bytes;
  const auto undealt = std::count(log.begin(), log.begin() + kCards, 0);
  const int fallen = kCards - static_cast<int>(undealt);
  return {.Board = run.Prog.Set.CurrentBoard, .Card = fallen == kCards ? 0 : fallen + 1};
}

DialogAnswer AnswerFault(RunParts& run, const Fault& fault) {
  run.View->ShowBoard();
  if (run.Run.Leaving()) return kStop;
  const DialogAnswer answer = AskAboutError(run.Prog, run.TheMachine, *run.View, kStop, fault);
  run.Prog.Loop.WaitMs(kAfterErrorMs);
  run.Run.Pump();
  return answer;
}

RunEnd RunToIdle(RunParts& run, const CardRun::Plan& plan) {
  run.TheMachine.PollLock = true;
  run.Run.RunLogLine += run.Options.Cards.LogText();
  const CardRun::End end = run.Run.Run(plan);
  if (end == CardRun::End::kGivenUp) return RunEnd::kGivenUp;
  if (end == CardRun::End::kLinkLost || !run.Run.Probe()) return RunEnd::kLinkLost;
  return run.TheMachine.MachineError == 0 ? RunEnd::kDone : RunEnd::kStopped;
}

}  // namespace morvane::machine
