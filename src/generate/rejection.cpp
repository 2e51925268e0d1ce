#include "generate/rejection.h"

#include <algorithm>
#include <cmath>

#include "model/shapes.h"
#include "model/similarity.h"

namespace morvane::generate {
namespace {

constexpr float kTwiceTheHandsOfABoard = 8.0F;

}  // namespace

std::string BestPair::Text() const {
  if (Cards == 0) return {};
  return std::to_string(Cards) + ", " + std::to_string(Number) + Hand + ":" +
         std::to_string(OtherNumber) + OtherHand;
}

int ShapeLimit(int shape, int k) {
  const float product = Shapes[shape].Frequency * kTwiceTheHandsOfABoard * static_cast<float>(k);
  return static_cast<int>(std::nearbyint(product));
}

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
  for (int j = first_; j < k; ++j) {
    const Similarity similarity = CompareHands(set_.At(j), candidate);
    if (similarity.Cards >= limits_.InnerLimit) return true;
    // Remembered even if a later board or test rejects the candidate: required.
    if (similarity.Cards > BestInner.Cards) {
      BestInner = {similarity.Cards, k, similarity.HandB, j, similarity.HandA, {}};
    }
  }
  return false;
}

bool RejectionTests::ResemblesHistory(const Board& candidate, int k) {
  const HistoricSimilarity similarity = history_.HistorySimilarity(candidate);
  if (similarity.Cards >= limits_.HistoryLimit) return true;
  if (similarity.Cards > BestHistory.Cards) {
    BestHistory = {similarity.Cards, k,
                   similarity.HandC, similarity.Number,
                   similarity.HandH, std::string(similarity.File)};
  }
  return false;
}

}  // namespace morvane::generate
