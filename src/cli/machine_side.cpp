#include "cli/machine_side.h"

#include <algorithm>

#include "simulator/simulated_machine.h"

namespace morvane::cli {
namespace {

bool SameHand(const Board& a, const Board& b, int hand) {
  for (std::size_t card = 1; card <= kCards; ++card) {
    if ((a.Cards[card] == hand) != (b.Cards[card] == hand)) return false;
  }
  return true;
}

poker::PokerDeal StackOf(const simulator::SimulatedMachine& machine) {
  const auto pile = machine.MachineCardsByPocket()[PocketOfHand[kNorth]];
  poker::PokerDeal deal{};
  const std::size_t cards = std::min<std::size_t>(pile.size(), poker::kSlots);
  std::copy_n(pile.rbegin(), cards, deal.begin() + 1);
  return deal;
}

}  // namespace

MachineSide EyesOn(simulator::SimulatedMachine* simulated) {
  if (simulated == nullptr) return {};
  return {
      [simulated](const Board& board) { return VerdictOfPockets(board, simulated->DealtBoard()); },
      [simulated] { simulated->PressPedal(); }, [simulated] { return StackOf(*simulated); }};
}

Verdict VerdictOfPockets(const Board& board, const Board& pockets) {
  Verdict verdict;
  for (int hand = kNorth; hand <= kWest; ++hand) {
    const bool same = SameHand(board, pockets, hand);
    if (!same) verdict.Right = false;
    if (hand != kNorth) verdict.Text += "  ";
    verdict.Text += std::string(1, HandLetter(hand)) + (same ? " right" : " WRONG");
  }
  return verdict;
}

bool CanBeStarted(Workplace& place, const RunRequest& request) {
  if (place.Simulated == nullptr || request.Auto || place.Screen.CanAsk()) return true;
  place.Screen.Error("Nobody is there to press the simulated machine's pedal: use --auto.\n");
  return false;
}

std::string MachineLine(const Workplace& place) {
  const std::string word(WordOf(place.Kind));
  return word.empty() ? "" : "Machine: " + word + "\n";
}

void SayWhichMachine(Workplace& place) {
  if (const std::string line = MachineLine(place); !line.empty()) place.Screen.Out(line);
}

}  // namespace morvane::cli
