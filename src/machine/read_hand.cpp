#include "machine/read_hand.h"

#include "machine/board_hand.h"
#include "machine/hand_list.h"
#include "program/log_record.h"

namespace morvane::machine {
namespace {

bool Fetch(RunParts& run) {
  if (const auto read = run.TheMachine.Exchange(wire::FetchBoardCommand{})) {
    TakeHandList(read->Pockets, run.Prog.Set.Current());
    run.Prog.Set.BoardSetChanged = "1";  // the copy of unsaved work has it from now on
  }
  return run.Run.Step() && run.Run.FetchCardLog();
}

/// A machine that restarted in the middle of a board is idle without an error, and a spoiled frame
/// may pass its check once in a long time: the pockets' counts have the last word.
bool CountsAgree(const RunParts& run) {
  const Board& board = run.Prog.Set.Current();
  if (board.Status == Board::kEmpty) return false;  // it restarted behind its last report
  int fallen = 0;
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    const int count = run.TheMachine.CardCount[PocketOfHand[hand]];
    if (board.HandCount[hand] > count) return false;
    fallen += count;
  }
  return fallen == kCards;
}

RunEnd Judge(RunParts& run) {
  if (!CountsAgree(run)) return RunEnd::kIncomplete;
  run.Run.RunLogLine += " OK  " + FormatBoardForLog(run.Prog.Set.Current(), false);
  return RunEnd::kDone;
}

}  // namespace

RunEnd ReadHand(RunParts& run, std::uint8_t rotation) {
  wire::StartCommand start;
  start.Code = wire::CmdRead;
  start.Pockets = run.Options.ReadMode == RunOptions::kSimulateDealing
                      ? PocketsInTurn(DealerOfNumber(run.Prog.Set.CurrentBoard))
                      : PocketsOfPlayedBoard();
  start.Places = run.Options.ReadMode == RunOptions::kSimulateDealing ? kCards : kPlayedPlaces;
  return RunHand(run, rotation, {start, [&] { return Fetch(run); }, [&] { return Judge(run); }});
}

}  // namespace morvane::machine
