#include "cli/deal_command.h"

#include <algorithm>

#include "model/text.h"
#include "simulator/simulated_machine.h"

namespace morvane::cli {
namespace {

constexpr const char* kWrong = "WRONG";

bool SameHand(const Board& a, const Board& b, int hand) {
  for (std::size_t card = 1; card <= kCards; ++card) {
    if ((a.Cards[card] == hand) != (b.Cards[card] == hand)) return false;
  }
  return true;
}

bool LiesRight(const DealtBoard& board) {
  return board.Ok && board.Verdict.find(kWrong) == std::string::npos;
}

std::string RowOf(const DealtBoard& board) {
  std::string number = std::to_string(board.Number);
  if (board.Copy > 1) number += "/" + std::to_string(board.Copy);
  std::string time = FixedPoint(board.Seconds, 1) + " s";
  number.insert(0, number.size() < 7 ? 7 - number.size() : 0, ' ');
  time.insert(0, time.size() < 9 ? 9 - time.size() : 0, ' ');
  const std::string verdict = !board.Ok               ? "stopped"
                              : board.Verdict.empty() ? "dealt"
                                                      : board.Verdict;
  return number + time + "   " + verdict + "\n";
}

}  // namespace

PocketJudge JudgeOf(const simulator::SimulatedMachine* simulated) {
  if (simulated == nullptr) return {};
  return
      [simulated](const Board& board) { return VerdictOfPockets(board, simulated->DealtBoard()); };
}

std::string VerdictOfPockets(const Board& board, const Board& pockets) {
  std::string verdict;
  for (int hand = kNorth; hand <= kWest; ++hand) {
    if (hand != kNorth) verdict += "  ";
    verdict += std::string(1, HandLetter(hand)) + " " +
               (SameHand(board, pockets, hand) ? "right" : kWrong);
  }
  return verdict;
}

ExitStatus ShowReport(Workplace& place, const RunReport& report) {
  if (report.Boards.empty()) return kFailed;
  const auto right = std::count_if(report.Boards.begin(), report.Boards.end(), LiesRight);
  std::string text = "\n  Board     Time   Pockets\n";
  for (const DealtBoard& board : report.Boards) text += RowOf(board);
  const std::string all = std::to_string(report.Boards.size());
  text += "\n" + std::to_string(right) + " of " + all + " boards " +
          (place.Simulated != nullptr ? "right" : "dealt") + ".\n";
  place.Screen.Out(text);
  const bool allRight = right == static_cast<std::ptrdiff_t>(report.Boards.size());
  return report.Finished && allRight ? kDone : kFailed;
}

}  // namespace morvane::cli
