#include "simulator/deck.h"

#include <gtest/gtest.h>

#include <set>

namespace morvane::simulator {
namespace {

TEST(Feeder, APackHasEachCardOnce) {
  Feeder feeder(1);
  feeder.LoadPack();
  std::set<int> cards;
  for (; feeder.Left() > 0; feeder.Feed()) cards.insert(feeder.Front());
  EXPECT_EQ(cards.size(), 52U);
  EXPECT_EQ(*cards.begin(), 1);
  EXPECT_EQ(*cards.rbegin(), 52);
}

// 5200 packs put each card 100 times on each place, with a deviation of about 10; over 2704 pairs
// the chi-square sum has mean 2704 - 103 and deviation 72.
TEST(Feeder, EveryCardComesToEveryPlaceEquallyOften) {
  Feeder feeder(20260303);
  std::array<std::array<int, 53>, 53> seen{};
  for (int pack = 0; pack < 5200; ++pack) {
    feeder.LoadPack();
    for (std::size_t place = 1; feeder.Left() > 0; ++place, feeder.Feed()) {
      ++seen[place][static_cast<std::size_t>(feeder.Front())];
    }
  }
  double chiSquare = 0.0;
  for (std::size_t place = 1; place <= 52; ++place) {
    for (std::size_t card = 1; card <= 52; ++card) {
      const double off = seen[place][card] - 100;
      chiSquare += off * off / 100.0;
    }
  }
  EXPECT_NEAR(chiSquare, 2601.0, 5 * 72.0);
}

TEST(Pile, HoldsFourPacksAndNoMore) {
  Pile pile;
  for (int i = 0; i < 300; ++i) pile.Add(7);
  EXPECT_EQ(pile.Count(), 208U);
}

}  // namespace
}  // namespace morvane::simulator
