#include "poker/random_deals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <set>

#include "support/fakes.h"

namespace morvane::poker {
namespace {

/// Gives numbers from a list.
class Listed final : public Entropy {
 public:
  Answer SystemRandom(std::span<std::uint8_t> /*bytes*/) override { return {}; }
  void Seed(std::uint64_t /*seed*/) override {}
  double Random() override {
    const double next = Numbers.at(0);
    Numbers.pop_front();
    return next;
  }
  std::deque<double> Numbers;
};

TEST(RandomDeals, AllowedNumbersOfDealsAre1To100) {
  EXPECT_FALSE(IsDealCount(0));
  EXPECT_TRUE(IsDealCount(1));
  EXPECT_TRUE(IsDealCount(100));
  EXPECT_FALSE(IsDealCount(101));
}

TEST(RandomDeals, AnEmptyOrderHasNoCardsAndShowsItsFirstDeal) {
  const PokerOrder order = EmptyOrder(100);
  EXPECT_TRUE(order.PokerOrderExists);
  EXPECT_EQ(order.PokerDealCount, 100);
  EXPECT_EQ(order.CurrentDeal, 1);
  for (const PokerDeal& deal : order.PokerDeals) {
    EXPECT_EQ(std::count(deal.begin(), deal.end(), 0), 29);
  }
}

TEST(RandomDeals, ACardIsTheIntegerPartOfItsNumberTimes52Plus1AndIsDrawnAgainWhileTaken) {
  PokerOrder order = EmptyOrder(1);
  Listed random;
  random.Numbers = {0.0, 0.999, 0.5};     // 1, 52, 27
  random.Numbers.push_back(0.01);         // 1 is taken
  random.Numbers.push_back(26.99 / 52);   // 27 is taken
  random.Numbers.push_back(27.01 / 52);   // 28
  for (int card = 2; card <= 25; ++card)  // the other 24 slots
    random.Numbers.push_back((card - 0.5) / 52);
  FillAtRandom(order, random);
  const PokerDeal wanted{0,  1,  52, 27, 28, 2,  3,  4,  5,  6,  7,  8,  9,  10, 11,
                         12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25};
  EXPECT_EQ(order.PokerDeals[1], wanted);
  EXPECT_TRUE(random.Numbers.empty());
}

TEST(RandomDeals, EachDealOfTheOrderHas28DifferentCardsAndNoOtherHasAny) {
  PokerOrder order = EmptyOrder(99);
  test::FakeEntropy random;
  FillAtRandom(order, random);
  for (std::size_t n = 1; n <= 99; ++n) {
    const std::set<int> cards(order.PokerDeals[n].begin() + 1, order.PokerDeals[n].end());
    EXPECT_EQ(cards.size(), 28U);
    EXPECT_GE(*cards.begin(), 1);
    EXPECT_LE(*cards.rbegin(), 52);
  }
  EXPECT_EQ(order.PokerDeals[100], PokerDeal{});
}

// Each card should come 28 x 100 x 20 / 52 = 1077 times; five standard deviations are 111.
TEST(RandomDeals, EachCardComesAsOftenAsTheOthers) {
  std::array<int, 53> times{};
  test::FakeEntropy random;
  for (int order = 0; order < 20; ++order) {
    PokerOrder drawn = EmptyOrder(100);
    FillAtRandom(drawn, random);
    for (std::size_t n = 1; n <= 100; ++n) {
      for (std::size_t slot = 1; slot <= 28; ++slot) ++times[drawn.PokerDeals[n][slot]];
    }
  }
  for (std::size_t card = 1; card <= 52; ++card) EXPECT_NEAR(times[card], 1077, 111) << card;
}

}  // namespace
}  // namespace morvane::poker
