#include "machine/sorting_run.h"

#include "machine/sort_hands.h"

namespace morvane::machine {

void SortingRun::cmdSort() {
  if (Controls().cmdSort && !Running()) RunCards();
}

RunEnd SortingRun::RunOnce() { return SortHands(parts_, DealRotation()); }

void SortingRun::Finish(RunEnd end) {
  if (end != RunEnd::kIncomplete || parts_.Run.Leaving()) return;
  parts_.View->ShowState();
  ShowRunError(parts_.Prog, parts_.TheMachine,
               "      The machine has stopped and reports no card in its pockets.      \r\n\r\n"
               "      Please put the cards together and sort them again.      ",
               Words().Error);
}

}  // namespace morvane::machine
