#include "model/statistics.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>
#include <vector>

namespace morvane {
namespace {

constexpr int kLongSuit = 7;
constexpr std::int16_t kAboveAnyCount = 10'000;

/// Of a digit of a shape's name.
constexpr int LengthOf(char digit) { return digit <= '9' ? digit - '0' : digit - 'A' + 10; }

constexpr ShapeTraits TraitsOfName(std::string_view name) {
  ShapeTraits traits;
  if (name == "4432" || name == "5332" || name == "4333") traits.Balanced = 1;
  for (const char digit : name) {
    const int length = LengthOf(digit);
    if (length == 0) ++traits.Voids;
    if (length == 1) ++traits.Singletons;
    if (length >= kLongSuit) traits.LongSuits = 1;
  }
  return traits;
}

using TraitsByShape = std::array<ShapeTraits, ShapeTable::kCapacity>;

constexpr TraitsByShape AllTraits() {
  TraitsByShape all;
  for (int shape = 1; shape <= Shapes.Count(); ++shape) {
    all[static_cast<std::size_t>(shape)] = TraitsOfName(Shapes[shape].Name);
  }
  return all;
}

constexpr TraitsByShape kTraits = AllTraits();

}  // namespace

ShapeTraits TraitsOf(int shape) { return kTraits[static_cast<std::size_t>(shape)]; }

void SetTotals::Add(const Board& board) {
  if (board.Status != Board::kComplete) return;
  ++CompletedBoards;
  for (std::size_t hand = 1; hand <= kHands; ++hand) {
    const ShapeTraits traits = TraitsOf(board.Shape[hand]);
    BalancedHands[hand] += traits.Balanced;
    VoidCount[hand] += traits.Voids;
    SingletonCount[hand] += traits.Singletons;
    LongSuitCount[hand] += traits.LongSuits;
    HcpTotal[hand] += board.Hcp[hand];
    ++ShapeCount[board.Shape[hand]];
    ++HandsByHcp[board.Hcp[hand]];
  }
  for (std::size_t card = 1; card <= kCards; ++card) ++CardCount[card][board.Cards[card]];
}

SetTotals TotalsOf(const BoardSet& set, int first, int last) {
  SetTotals totals;
  for (int n = first; n <= last; ++n) totals.Add(set.At(n));
  return totals;
}

int ExpectedHands(int shape, int hands) {
  return static_cast<int>(std::nearbyint(Shapes[shape].Frequency * static_cast<float>(hands)));
}

int ListedShapes(int boards) {
  int shapes = 0;
  while (shapes < Shapes.Count() && ExpectedHands(shapes + 1, kHands * boards) > 0) ++shapes;
  return shapes;
}

CardExtremes CardExtremesOf(const SetTotals& totals) {
  CardExtremes extremes;
  extremes.Least.Count = kAboveAnyCount;
  for (int hand = kNorth; hand <= kWest; ++hand) {
    for (int card = 1; card <= kCards; ++card) {
      const int count =
          totals.CardCount[static_cast<std::size_t>(card)][static_cast<std::size_t>(hand)];
      if (count > extremes.Most.Count) extremes.Most = {count, card, hand};
      if (count < extremes.Least.Count) extremes.Least = {count, card, hand};
    }
  }
  return extremes;
}

AlikePair InnerSimilarity(const BoardSet& set) {
  AlikePair best;
  std::vector<HandMasks> boards;
  boards.reserve(static_cast<std::size_t>(set.Count()));
  for (int n = set.FirstBoard; n < set.FirstBoard + set.Count(); ++n) {
    const HandMasks board = MasksOf(set.At(n));
    const auto moreAlike = [&](std::size_t from) {
      return from + FirstMoreAlike(board, std::span(boards).subspan(from), best.Cards);
    };
    for (std::size_t at = moreAlike(0); at < boards.size(); at = moreAlike(at)) {
      const Similarity likeness = CompareHands(board, boards[at]);
      best = {likeness.Cards, n, likeness.HandA, set.FirstBoard + static_cast<int>(at),
              likeness.HandB};
    }
    boards.push_back(board);
  }
  return best;
}

}  // namespace morvane
