#include "machine/deal_hand.h"

#include "machine/board_hand.h"
#include "machine/hand_list.h"

namespace morvane::machine {
namespace {

/// A machine that restarted in the middle of a board is idle without an error, so its card log has
/// the last word.
RunEnd Judge(RunParts& run) {
  if (CardsMissing(run.Prog.Set.Current(), run.Run.CardLog) > 0) return RunEnd::kIncomplete;
  run.Run.RunLogLine += " OK";
  return RunEnd::kDone;
}

}  // namespace

RunEnd DealHand(RunParts& run, std::uint8_t rotation) {
  wire::StartCommand start;
  start.Pockets = HandListOf(run.Prog.Set.Current());
  return RunHand(run, rotation,
                 {start, [&] { return run.Run.FetchCardLog(); }, [&] { return Judge(run); }});
}

}  // namespace morvane::machine
