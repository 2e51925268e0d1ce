#include "machine/run_parts.h"

#include "machine/hand_list.h"

namespace morvane::machine {
namespace {

constexpr int kAfterErrorMs = 300;

/// The card at which the machine stopped is known by those that it has dealt.
Fault FaultOf(const RunParts& run) {
  const int missing = CardsMissing(run.Prog.Set.Current(), run.Run.CardLog);
  return {.Board = run.Prog.Set.CurrentBoard, .Card = missing == 0 ? 0 : kCards - missing + 1};
}

}  // namespace

wire::RunSettings StartSettings(const RunParts& run, std::uint8_t rotation) {
  const CardSettings& cards = run.Options.Cards;
  return {cards.CardConfig(), rotation, cards.CardConfigExtra()};
}

DialogAnswer AnswerFault(RunParts& run) {
  run.View->ShowBoard();
  if (run.Run.Leaving()) return kStop;
  const DialogAnswer answer =
      AskAboutError(run.Prog, run.TheMachine, *run.View, kStop, FaultOf(run));
  run.Prog.Loop.WaitMs(kAfterErrorMs);
  run.Run.Pump();
  return answer;
}

CardRun::End RunToIdle(RunParts& run, const CardRun::Plan& plan) {
  const CardRun::End end = run.Run.Run(plan);
  if (end != CardRun::End::kStopped) return end;
  return run.Run.Probe() ? end : CardRun::End::kLinkLost;
}

}  // namespace morvane::machine
