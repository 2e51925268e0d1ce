#include "poker/poker_run.h"

namespace morvane::poker {
namespace {

using machine::CardRun;
using machine::CardSettings;
using machine::RunEnd;
using machine::RunParts;

/// Large cards are all that the machine is told of the pack, and the rotation stays the first:
/// required.
wire::RunSettings SettingsOf(const RunParts& run) {
  const bool large = run.Options.Cards.CardIndex == CardSettings::kLargeIndex;
  CardSettings cards;
  if (large) cards.CardIndex = CardSettings::kLargeIndex;
  return {.CardConfig = cards.CardConfig(), .DealRotation = 0, .CardConfigExtra = {}};
}

bool SendOrder(RunParts& run, const PilePlan& plan, int cardCount) {
  run.TheMachine.Exchange(wire::RouteCommand{.Count = static_cast<std::uint8_t>(cardCount),
                                             .TestDeal = false,
                                             .Order = plan.ExpectedOrder});
  return run.Run.Step();
}

bool Start(RunParts& run, const PilePlan& plan, bool goOn) {
  run.TheMachine.PollLock = true;  // the pedal has freed it, where that answered the fault
  run.TheMachine.Exchange(wire::StartCommand{.Code = wire::CmdDeal,
                                             .Continue = goOn,
                                             .Settings = SettingsOf(run),
                                             .Pockets = plan.RouteTable,
                                             .Places = wire::CardBytes::kPlaces});
  return run.Run.Step();
}

/// The board that the machine tells of its pockets is none of the set's and is not looked at.
bool Fetch(RunParts& run) {
  if (const auto log = run.TheMachine.Exchange(wire::PokerFetchLogCommand{})) {
    run.Run.CardLog = log->Cards;
  }
  if (!run.Run.Step()) return false;
  run.TheMachine.Exchange(wire::PokerFetchBoardCommand{});
  return run.Run.Step();
}

}  // namespace

RunEnd PokerRun(RunParts& run, const PilePlan& plan, int cardCount,
                const std::function<machine::DialogAnswer()>& answer) {
  run.TheMachine.PollLock = true;
  run.TheMachine.Link.FlushLink();
  run.Run.CardLog = {};
  const auto start = [&](bool goOn) {
    return (goOn || SendOrder(run, plan, cardCount)) && Start(run, plan, goOn);
  };
  const CardRun::End end = run.Run.Run({start, {}, answer});
  if (end == CardRun::End::kGivenUp) return RunEnd::kGivenUp;
  if (end == CardRun::End::kLinkLost) return RunEnd::kLinkLost;
  if (run.TheMachine.MachineError != 0) {
    return run.Run.Probe() ? RunEnd::kStopped : RunEnd::kLinkLost;
  }
  if (!Fetch(run)) return RunEnd::kLinkLost;
  return IsWhole(run.Run.CardLog, cardCount) ? RunEnd::kDone : RunEnd::kIncomplete;
}

}  // namespace morvane::poker
