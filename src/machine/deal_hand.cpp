#include "machine/deal_hand.h"

#include "machine/board_check.h"
#include "machine/hand_list.h"

namespace morvane::machine {
namespace {

constexpr int kAfterErrorMs = 300;

wire::StartCommand StartFrame(const RunParts& run, bool goOn, std::uint8_t rotation) {
  const CardSettings& cards = run.Options.Cards;
  wire::StartCommand start;
  start.Continue = goOn;
  start.Settings = {cards.CardConfig(), rotation, cards.CardConfigExtra()};
  start.Pockets = HandListOf(run.Prog.Set.Current());
  return start;
}

bool Start(RunParts& run, bool goOn, std::uint8_t rotation) {
  run.TheMachine.Exchange(StartFrame(run, goOn, rotation));
  return run.Cards.Step();
}

DialogAnswer AnswerFault(RunParts& run) {
  run.View->ShowBoard();
  if (run.Cards.Leaving()) return kStop;
  const DialogAnswer answer = AskAboutError(run, kStop);
  run.Prog.Loop.WaitMs(kAfterErrorMs);
  run.Cards.Pump();
  return answer;
}

void ShowBreakOnly(RunParts& run) {
  run.Window.Controls = {};
  run.Window.Controls.cmdBreak = true;
  run.View->ShowControls();
}

CardRun::End DealBoard(RunParts& run, std::uint8_t rotation) {
  run.TheMachine.PollLock = true;
  run.Cards.RunLogLine += run.Options.Cards.LogText();
  ShowBreakOnly(run);
  const CardRun::End end =
      run.Cards.Run({[&](bool goOn) {
                       if (goOn) ShowBreakOnly(run);
                       return Start(run, goOn, rotation);
                     },
                     [&] { return run.Cards.FetchCardLog(); }, [&] { return AnswerFault(run); }});
  if (end != CardRun::End::kStopped) return end;
  // After a good board too.
  if (!run.Cards.Probe()) return CardRun::End::kLinkLost;
  if (run.TheMachine.MachineError == 0) run.Cards.RunLogLine += " OK";
  return end;
}

}  // namespace

CardRun::End DealHand(RunParts& run, std::uint8_t rotation) {
  const auto digit = [](bool on) { return std::string(on ? "1" : "0"); };
  run.Cards.RunLogLine =
      digit(run.Options.AutoStartEnabled) + "," + digit(run.Options.Check_board) + " ";
  const BoardCheck check = run.Options.Check_board ? VerifyInsertedBoard(run) : BoardCheck::kDeal;
  if (check == BoardCheck::kLinkLost) return CardRun::End::kLinkLost;
  if (check == BoardCheck::kStop) return CardRun::End::kGivenUp;
  return DealBoard(run, rotation);
}

}  // namespace morvane::machine
