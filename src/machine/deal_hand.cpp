#include "machine/deal_hand.h"

#include "machine/board_check.h"
#include "machine/hand_list.h"

namespace morvane::machine {
namespace {

void ShowBreakOnly(RunParts& run) {
  run.Window.Controls = {};
  run.Window.Controls.cmdBreak = true;
  run.View->ShowControls();
}

bool Start(RunParts& run, bool goOn, std::uint8_t rotation) {
  ShowBreakOnly(run);
  wire::StartCommand start;
  start.Continue = goOn;
  start.Settings = StartSettings(run, rotation);
  start.Pockets = HandListOf(run.Prog.Set.Current());
  run.TheMachine.Exchange(start);
  return run.Run.Step();
}

/// A machine that restarted in the middle of a board is idle without an error, so its card log has
/// the last word.
BoardEnd Judge(RunParts& run) {
  if (run.TheMachine.MachineError != 0) return BoardEnd::kStopped;
  if (CardsMissing(run.Prog.Set.Current(), run.Run.CardLog) > 0) return BoardEnd::kIncomplete;
  run.Run.RunLogLine += " OK";
  return BoardEnd::kDealt;
}

BoardEnd DealBoard(RunParts& run, std::uint8_t rotation) {
  run.TheMachine.PollLock = true;
  run.Run.RunLogLine += run.Options.Cards.LogText();
  const CardRun::End end =
      RunToIdle(run, {[&](bool goOn) { return Start(run, goOn, rotation); },
                      [&] { return run.Run.FetchCardLog(); }, [&] { return AnswerFault(run); }});
  if (end == CardRun::End::kLinkLost) return BoardEnd::kLinkLost;
  return end == CardRun::End::kGivenUp ? BoardEnd::kGivenUp : Judge(run);
}

}  // namespace

BoardEnd DealHand(RunParts& run, std::uint8_t rotation) {
  const auto digit = [](bool on) { return std::string(on ? "1" : "0"); };
  run.Run.RunLogLine =
      digit(run.Options.AutoStartEnabled) + "," + digit(run.Options.Check_board) + " ";
  const BoardCheck check = run.Options.Check_board ? VerifyInsertedBoard(run) : BoardCheck::kDeal;
  if (check == BoardCheck::kLinkLost) return BoardEnd::kLinkLost;
  if (check == BoardCheck::kStop) return BoardEnd::kGivenUp;
  return DealBoard(run, rotation);
}

}  // namespace morvane::machine
