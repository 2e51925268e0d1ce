#include "poker/pile_plan.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

namespace morvane::poker {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using wire::MachineCard;

using Cards = std::vector<int>;

/// Slot s holds machine card s.
PokerDeal InOrder() {
  PokerDeal deal{};
  std::iota(deal.begin(), deal.end(), std::uint8_t{0});
  return deal;
}

PokerDeal RandomDeal(std::mt19937& random) {
  Cards pack(52);
  std::iota(pack.begin(), pack.end(), 1);
  std::shuffle(pack.begin(), pack.end(), random);
  PokerDeal deal{};
  std::copy_n(pack.begin(), kSlots, deal.begin() + 1);
  return deal;
}

/// What the run has of the slots 1 to 28 of `InOrder`, as a string of pockets' letters.
std::string PocketsOfRun(int run) {
  std::string letters;
  for (int slot = 1; slot <= kSlots; ++slot) letters += "-SWEN"[PocketOfSlot(run, slot)];
  return letters;
}

TEST(PilePlan, EachRunSendsEachSlotWhereTheTablesSay) {
  EXPECT_EQ(PocketsOfRun(1), "EWSEWSEWSEWSEWSEWSEWSEWSEWSE");
  EXPECT_EQ(PocketsOfRun(2), "EEEWWWSSSEEEWWWSSSEEEWWWSSSN");
  EXPECT_EQ(PocketsOfRun(3).substr(0, 27), "EEEEEEEEEWWWWWWWWWSSSSSSSSS");
  EXPECT_EQ(PocketsOfRun(4).substr(0, 27), "NNNNNNNNNNNNNNNNNNNNNNNNNNN");
  EXPECT_EQ(PocketOfSlot(1, 0), 4U) << "a card that the deal does not use";
}

TEST(PilePlan, TheCardOfSlot28GoesToEastFirstAndThenToNorth) {
  EXPECT_EQ(PocketOfSlot(1, 28), 3U);
  EXPECT_EQ(PocketOfSlot(2, 28), 4U);
}

TEST(PilePlan, Slot27GoesToSouthInTheSecondRun) { EXPECT_EQ(PocketOfSlot(2, 27), 1U); }

TEST(PilePlan, TheRunsHave52And28And27And27Cards) {
  EXPECT_EQ(PilePlan::CardsOfRun(1), 52);
  EXPECT_EQ(PilePlan::CardsOfRun(2), 28);
  EXPECT_EQ(PilePlan::CardsOfRun(3), 27);
  EXPECT_EQ(PilePlan::CardsOfRun(4), 27);
}

TEST(PilePlan, TheFirstRunKnowsNoOrderAndHasAPocketForEveryCard) {
  PilePlan plan;
  plan.Begin(1, InOrder());
  EXPECT_THAT(plan.ExpectedOrder.Bytes, Each(0));
  EXPECT_EQ(plan.RouteTable[MachineCard(1)], 3) << "slot 1: East";
  EXPECT_EQ(plan.RouteTable[MachineCard(2)], 2) << "slot 2: West";
  EXPECT_EQ(plan.RouteTable[MachineCard(3)], 1) << "slot 3: South";
  EXPECT_EQ(plan.RouteTable[MachineCard(28)], 3);
  EXPECT_EQ(plan.RouteTable[MachineCard(29)], 4) << "not used: North";
  EXPECT_EQ(plan.RouteTable[MachineCard(55)], 4) << "a joker, too";
}

TEST(PilePlan, OfACardInTwoSlotsTheHighestCounts) {
  PokerDeal deal = InOrder();
  deal[3] = 1;
  PilePlan plan;
  plan.Begin(1, deal);
  EXPECT_EQ(plan.RouteTable[MachineCard(1)], 1) << "slot 3, South";
}

/// The card log of cards that came in this order.
wire::CardBytes LogOf(const Cards& cards) {
  wire::CardBytes log;
  for (std::size_t i = 0; i < cards.size(); ++i) {
    log[MachineCard(cards[i])] = static_cast<std::uint8_t>(i + 1);
  }
  return log;
}

Cards PackFromTwoOfSpades() {
  Cards pack(52);
  std::iota(pack.begin(), pack.end(), 1);
  return pack;
}

template <std::size_t N>
Cards CardsIn(const std::array<std::uint8_t, N>& pile) {
  Cards cards;
  for (std::size_t place = 1; place < N && pile[place] != 0; ++place) cards.push_back(pile[place]);
  return cards;
}

TEST(PilePlan, AfterTheFirstRunThePilesHold52CardsAndNorthHas24) {
  PilePlan plan;
  plan.Begin(1, InOrder());
  plan.Rebuild(LogOf(PackFromTwoOfSpades()), 52);
  EXPECT_THAT(CardsIn(plan.PileE), ElementsAre(28, 25, 22, 19, 16, 13, 10, 7, 4, 1));
  EXPECT_THAT(CardsIn(plan.PileW), ElementsAre(26, 23, 20, 17, 14, 11, 8, 5, 2));
  EXPECT_THAT(CardsIn(plan.PileS), ElementsAre(27, 24, 21, 18, 15, 12, 9, 6, 3));
  EXPECT_EQ(CardsIn(plan.PileN).size(), 24U);
  EXPECT_EQ(plan.PileN[1], 52) << "the last one lies on top";
}

TEST(PilePlan, TheFeederHasEastOnTheTopAndSouthAtTheBottom) {
  PilePlan plan;
  plan.Begin(1, InOrder());
  plan.Rebuild(LogOf(PackFromTwoOfSpades()), 52);
  plan.Gather(1);
  EXPECT_THAT(CardsIn(plan.FeedSequence),
              ElementsAre(28, 25, 22, 19, 16, 13, 10, 7, 4, 1, 26, 23, 20, 17, 14, 11, 8, 5, 2, 27,
                          24, 21, 18, 15, 12, 9, 6, 3));
}

TEST(PilePlan, TheBottomCardIsExpectedFirstAndTheOthersNotAtAll) {
  PilePlan plan;
  plan.Begin(1, InOrder());
  plan.Rebuild(LogOf(PackFromTwoOfSpades()), 52);
  plan.Gather(1);
  plan.Begin(2, InOrder());
  EXPECT_EQ(plan.ExpectedOrder[MachineCard(3)], 1);
  EXPECT_EQ(plan.ExpectedOrder[MachineCard(28)], 28) << "the top card";
  EXPECT_EQ(plan.ExpectedOrder[MachineCard(29)], 127);
  EXPECT_EQ(plan.ExpectedOrder[MachineCard(55)], 127);
  EXPECT_EQ(plan.RouteTable[MachineCard(28)], 4);
  EXPECT_EQ(plan.RouteTable[MachineCard(29)], 0) << "no part of the run";
}

TEST(PilePlan, ReadingSendsEveryCardButJokersToNorthInAnyOrder) {
  PilePlan plan;
  plan.BeginReading();
  EXPECT_EQ(plan.RouteTable[MachineCard(1)], 4);
  EXPECT_EQ(plan.RouteTable[MachineCard(52)], 4);
  EXPECT_EQ(plan.RouteTable[MachineCard(53)], 0);
  EXPECT_THAT(plan.ExpectedOrder.Bytes, Each(0));
}

TEST(PilePlan, APileForgetsWhatGoesBeyondItsSize) {
  PilePlan::ShortPile pile{};
  for (std::uint8_t card = 1; card <= 11; ++card) PushPile(pile, 10, card);
  EXPECT_THAT(pile, ElementsAre(0, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2));
}

TEST(PilePlan, ALogIsWholeWithEachNumberOnceAndNoOther) {
  wire::CardBytes log = LogOf({7, 3, 55});
  EXPECT_TRUE(IsWhole(log, 3));
  EXPECT_FALSE(IsWhole(log, 2)) << "a number too many";
  EXPECT_FALSE(IsWhole(log, 4)) << "one too few";
  log[MachineCard(3)] = 3;
  EXPECT_FALSE(IsWhole(log, 3)) << "3 twice, 2 never";
}

/// A machine of piles: feeds from the bottom, each card onto its pocket's pile. The top card is the
/// last of each.
class Piles {
 public:
  /// Deals the feeder, which is empty then; the order in which the cards came.
  Cards Deal(const PilePlan& plan) {
    for (const int card : Feeder) {
      Pocket[plan.RouteTable[MachineCard(card)]].push_back(card);
    }
    return std::exchange(Feeder, {});
  }
  /// East on the top, South at the bottom.
  void CarryBack() {
    for (const std::size_t pocket : {1U, 2U, 3U}) {
      Feeder.insert(Feeder.end(), Pocket[pocket].begin(), Pocket[pocket].end());
      Pocket[pocket].clear();
    }
  }
  Cards Feeder;  ///< the lowest first
  std::array<Cards, 5> Pocket;
};

TEST(PilePlan, AThousandShuffledPacksAreStackedInTheirOrder) {
  std::mt19937 random(1);
  for (int i = 0; i < 1000; ++i) {
    const PokerDeal deal = RandomDeal(random);
    Piles piles;
    piles.Feeder = PackFromTwoOfSpades();
    std::shuffle(piles.Feeder.begin(), piles.Feeder.end(), random);
    PilePlan plan;
    for (int run = 1; run <= kRuns; ++run) {
      plan.Begin(run, deal);
      const Cards fed = piles.Deal(plan);
      ASSERT_EQ(fed.size(), static_cast<std::size_t>(PilePlan::CardsOfRun(run)));
      if (run > 1) {
        for (std::size_t k = 0; k < fed.size(); ++k) {
          ASSERT_EQ(plan.ExpectedOrder[MachineCard(fed[k])], k + 1);
        }
      }
      plan.Rebuild(LogOf(fed), PilePlan::CardsOfRun(run));
      if (run < kRuns) plan.Gather(run);
      piles.CarryBack();
    }
    const Cards& stack = piles.Pocket[4];
    ASSERT_EQ(stack.size(), 52U);
    ASSERT_TRUE(std::equal(stack.rbegin(), stack.rbegin() + kSlots, deal.begin() + 1));
  }
}

}  // namespace
}  // namespace morvane::poker
