#include "cli/console_sort.h"

#include "model/tables.h"
#include "text/text.h"

namespace morvane::cli {

std::string ConsoleSort::Progress() const {
  return "Sorting  " + std::to_string(CardsFallen()) + " cards  " + run_.Cards().txtDealTime + " s";
}

/// With the cards of each pocket, by the hand that it is named after.
void ConsoleSort::Note(bool ok) {
  report_.Sorted = ok;
  std::string line = "Sort  " + FixedPoint(run_.Cards().Seconds(), 1) + " s  ";
  line += ok ? "OK" : "stopped";
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    line += hand == kNorth ? "   " : "  ";
    line += HandLetter(static_cast<int>(hand));
    line += " " + std::to_string(run_.TheMachine().CardCount[PocketOfHand[hand]]);
  }
  terminal_.Out(line + "\n");
}

}  // namespace morvane::cli
