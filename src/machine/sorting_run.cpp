#include "machine/sorting_run.h"

#include "machine/sort_hands.h"

namespace morvane::machine {

void SortingRun::cmdSort() {
  if (Controls().cmdSort && !Running()) RunCards();
}

RunEnd SortingRun::RunOnce() { return SortHands(parts_, DealRotation()); }

}  // namespace morvane::machine
