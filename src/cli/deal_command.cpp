#include "cli/deal_command.h"

#include <algorithm>

#include "cli/columns.h"
#include "simulator/simulated_machine.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

bool SameHand(const Board& a, const Board& b, int hand) {
  for (std::size_t card = 1; card <= kCards; ++card) {
    if ((a.Cards[card] == hand) != (b.Cards[card] == hand)) return false;
  }
  return true;
}

bool LiesRight(const DealtBoard& board) { return board.Ok && board.Pockets.Right; }

std::string RowOf(const DealtBoard& board) {
  std::string number = std::to_string(board.Number);
  if (board.Copy > 1) number += "/" + std::to_string(board.Copy);
  const std::string verdict = !board.Ok                    ? "stopped"
                              : board.Pockets.Text.empty() ? "dealt"
                                                           : board.Pockets.Text;
  return RightAligned(number, 7) + RightAligned(FixedPoint(board.Seconds, 1) + " s", 9) + "   " +
         verdict + "\n";
}

}  // namespace

MachineSide EyesOn(simulator::SimulatedMachine* simulated) {
  if (simulated == nullptr) return {};
  return {
      [simulated](const Board& board) { return VerdictOfPockets(board, simulated->DealtBoard()); },
      [simulated] { simulated->PressPedal(); }};
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

bool IsInSet(Workplace& place, int number) {
  const BoardSet& set = place.Prog.Set;
  if (number >= set.FirstBoard && number <= set.LastBoard) return true;
  place.Screen.Error("Board " + std::to_string(number) + " is not in the set, which has " +
                     std::to_string(set.FirstBoard) + " to " + std::to_string(set.LastBoard) +
                     ".\n");
  return false;
}

bool MayDeal(Workplace& place, const Request& request) {
  if (request.From && !IsInSet(place, *request.From)) return false;
  if (request.To && !IsInSet(place, *request.To)) return false;
  if (BoardsAsked(place.Prog.Set, request) < 1) {
    place.Screen.Error("--to must not be below --from.\n");
    return false;
  }
  if (place.Simulated != nullptr && !request.Auto && !place.Screen.CanAsk()) {
    place.Screen.Error("Nobody is there to press the simulated machine's pedal: use --auto.\n");
    return false;
  }
  return true;
}

int BoardsAsked(const BoardSet& set, const Request& request) {
  const int from = request.From.value_or(set.FirstBoard);
  const int to = request.To.value_or(set.LastBoard);
  return (to - from + 1) * request.Copies.value_or(1);
}

ExitStatus ShowReport(Workplace& place, const RunReport& report, int asked) {
  if (report.Boards.empty()) return kFailed;
  const auto right = std::count_if(report.Boards.begin(), report.Boards.end(), LiesRight);
  std::string text = "\n  Board     Time   Pockets\n";
  for (const DealtBoard& board : report.Boards) text += RowOf(board);
  text += "\n" + std::to_string(right) + " of " + std::to_string(asked) + " boards " +
          (place.Simulated != nullptr ? "right" : "dealt") + ".\n";
  place.Screen.Out(text);
  return right == asked ? kDone : kFailed;
}

}  // namespace morvane::cli
