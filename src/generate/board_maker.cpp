#include "generate/board_maker.h"

#include "model/shapes.h"

namespace morvane::generate {
void Accept(BoardSet& set, const Board& candidate, int k) {
  Board& board = set.At(k);
  board = candidate;
  board.Vul = static_cast<std::uint8_t>(VulOfNumber(k));
  board.Dealer = static_cast<std::uint8_t>(DealerOfNumber(k));
  board.Number = static_cast<std::int16_t>(k);
  for (int hand = kNorth; hand <= kWest; ++hand) {
    ++set.ShapeCount[static_cast<std::size_t>(ShapeIndex(GetHandShape(board, hand)))];
  }
}

bool MakeBoard(BoardSet& set, RejectionTests& tests, int k, const CandidateSource& nextCandidate) {
  Board candidate;
  bool rejected = false;
  std::int16_t attemptsLeft = kAttempts;
  do {
    nextCandidate(candidate);
    AnalyzeBoard(candidate);
    rejected = tests.Rejects(candidate, k);
    --attemptsLeft;
  } while (rejected && attemptsLeft > 0);
  if (attemptsLeft == 0) return false;
  Accept(set, candidate, k);
  return true;
}

}  // namespace morvane::generate
