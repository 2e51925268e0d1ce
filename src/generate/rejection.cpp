#include "generate/rejection.h"

#include <algorithm>
#include <span>

#include "model/shapes.h"

namespace morvane::generate {
int ShapeLimit(int shape, int k) { return ExpectedHands(shape, 2 * kHands * k); }

bool RejectionTests::Rejects(const Board& candidate, int k) {
  if (switches_.Shape && HasOddShape(candidate, k)) {
    ++ShapeRejects;
    return true;
  }
  if (switches_.Inner && ResemblesSet(candidate, k)) {
    ++InnerRejects;
    return true;
  }
  if (switches_.History && ResemblesHistory(candidate, k)) {
    ++HistoryRejects;
    return true;
  }
  return false;
}

bool RejectionTests::HasOddShape(const Board& candidate, int k) const {
  for (int hand = kNorth; hand <= kWest; ++hand) {
    if (IsOddShape(ShapeIndex(GetHandShape(candidate, hand)), k)) return true;
  }
  return false;
}

bool RejectionTests::IsOddShape(int shape, int k) const {
  const int limit = ShapeLimit(shape, k);
  const auto count = set_.ShapeCount.begin() + shape;
  if (*count > limit) return true;
  const auto isSeen = [](std::int16_t n) { return n > 0; };
  return limit == 0 && std::any_of(count + 1, set_.ShapeCount.end(), isSeen);
}

bool RejectionTests::ResemblesSet(const Board& candidate, int k) {
  while (static_cast<int>(setHands_.size()) < k - first_) {
    setHands_.push_back(MasksOf(set_.At(first_ + static_cast<int>(setHands_.size()))));
  }
  const HandMasks hands = MasksOf(candidate);
  const auto boards =
      std::span<const HandMasks>(setHands_).first(static_cast<std::size_t>(k - first_));
  std::size_t at = 0;
  while (true) {
    at += FirstMoreAlike(hands, boards.subspan(at), BestInner.Cards);
    if (at == boards.size()) return false;
    const Similarity similarity = CompareHands(boards[at], hands);
    if (similarity.Cards >= limits_.InnerLimit) return true;
    // Remembered even if a later board or test rejects the candidate: required.
    const int j = first_ + static_cast<int>(at);
    BestInner = {{similarity.Cards, k, similarity.HandB, j, similarity.HandA}, {}};
  }
}

bool RejectionTests::ResemblesHistory(const Board& candidate, int k) {
  const history::HistoricSimilarity similarity = history_.HistorySimilarity(candidate);
  if (similarity.Cards >= limits_.HistoryLimit) return true;
  if (similarity.Cards > BestHistory.Cards) {
    BestHistory = {{similarity.Cards, k, similarity.HandC, similarity.Number, similarity.HandH},
                   similarity.File};
  }
  return false;
}

}  // namespace morvane::generate
