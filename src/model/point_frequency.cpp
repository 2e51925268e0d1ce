#include "model/point_frequency.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "model/statistics.h"

namespace morvane {
namespace {

using Counts = std::array<std::uint64_t, kMostPoints + 1>;

constexpr std::uint64_t Choices(int of, int taken) {
  std::uint64_t choices = 1;
  for (int i = 1; i <= taken; ++i)
    choices = choices * static_cast<unsigned>(of - taken + i) / static_cast<unsigned>(i);
  return choices;
}

/// How many of all hands have each number of points: honours are taken rank by rank, and the rest
/// of the hand from the small cards.
constexpr Counts CountHands() {
  constexpr int kHonours = 4;  // ranks, of four cards each
  constexpr int kSmallCards = kCards - kHonours * kSuits;
  std::array<Counts, kRanks + 1> ways{};  // [cards][points]
  ways[0][0] = 1;
  for (int worth = 1; worth <= kHonours; ++worth) {
    std::array<Counts, kRanks + 1> with{};
    for (std::size_t cards = 0; cards <= kRanks; ++cards) {
      for (std::size_t points = 0; points <= kMostPoints; ++points) {
        if (ways[cards][points] == 0) continue;
        for (std::size_t taken = 0; taken <= kSuits && cards + taken <= kRanks; ++taken) {
          with[cards + taken][points + taken * static_cast<std::size_t>(worth)] +=
              ways[cards][points] * Choices(kSuits, static_cast<int>(taken));
        }
      }
    }
    ways = with;
  }
  Counts hands{};
  for (int cards = 0; cards <= kRanks; ++cards) {
    for (std::size_t points = 0; points <= kMostPoints; ++points) {
      hands[points] +=
          ways[static_cast<std::size_t>(cards)][points] * Choices(kSmallCards, kRanks - cards);
    }
  }
  return hands;
}

constexpr Counts kHandsOf = CountHands();
constexpr double kAllHands = static_cast<double>(Choices(kCards, kRanks));

}  // namespace

double PointFrequency(int points) {
  if (points < 0 || points > kMostPoints) return 0;
  return static_cast<double>(kHandsOf[static_cast<std::size_t>(points)]) / kAllHands;
}

}  // namespace morvane
