#include "machine/run_parts.h"

namespace morvane::machine {
namespace {

constexpr int kAfterErrorMs = 300;

}  // namespace

wire::RunSettings StartSettings(const RunParts& run, std::uint8_t rotation) {
  const CardSettings& cards = run.Options.Cards;
  return {cards.CardConfig(), rotation, cards.CardConfigExtra()};
}

DialogAnswer AnswerFault(RunParts& run) {
  run.View->ShowBoard();
  if (run.Run.Leaving()) return kStop;
  const DialogAnswer answer = AskAboutError(run.Prog, run.TheMachine, *run.View, kStop);
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
