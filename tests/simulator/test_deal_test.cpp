// Test deals of the simulated machine: what it expects, where it stops and what it keeps.

#include <gmock/gmock.h>

#include <cstdlib>

#include "simulator/camera_talk.h"
#include "simulator/stacking.h"

namespace morvane::simulator {
namespace {

using ::testing::ElementsAre;

/// The machine cards 1 to 52 as they are to come, and three places that mean nothing.
ByCard InOrder() {
  ByCard order{};
  std::iota(order.begin(), order.begin() + 52, std::uint8_t{1});
  return order;
}

Bytes TestRoute(const ByCard& order = InOrder(), int count = 52) {
  return CardsFrame({0x9F, static_cast<std::uint8_t>(count), 1, 0, 0, 0, 0xAB}, order);
}

ByCard AllNorth() {
  ByCard pockets{};
  std::fill_n(pockets.begin(), 52, kN);
  return pockets;
}

Bytes TestStart(bool goOn = false) { return StackFrame(AllNorth(), goOn); }

Options Flashed() {
  Options options = Talk::Fast();
  options.Flashed = true;
  return options;
}

std::vector<int> OneTo(int last) {
  std::vector<int> numbers(static_cast<std::size_t>(last));
  std::iota(numbers.begin(), numbers.end(), 1);
  return numbers;
}

/// A whole test: the code at which it stops, 0 where it came to its end.
int DealTest(Talk& talk) {
  EXPECT_TRUE(talk.Accepted(TestRoute()));
  EXPECT_TRUE(talk.Accepted(TestStart()));
  return talk.PollToEnd();
}

int CardsDealt(Talk& talk) { return talk.Status().at(5) & 0x3F; }

/// Rank, suit and code of the last error's verdict, asked for as a test deal does.
Bytes Verdict(Talk& talk) {
  const Bytes reply = talk.Ask({37, 200, 1, 2, 3, 4, 5});
  return {reply.at(3), reply.at(4), reply.at(6)};
}

/// Whether two pictures are of one card: each has noise of 4 at most.
bool Alike(const Rows& one, const Rows& other) {
  for (std::size_t y = 0; y < one.size(); ++y) {
    for (std::size_t x = 0; x < one[y].size(); ++x) {
      if (std::abs(one[y][x] - other.at(y).at(x)) > 8) return false;
    }
  }
  return one.size() == 192;
}

TEST(TestDeal, ACleanDeckLoops) {
  Talk talk(Flashed());
  for (int run = 1; run <= 3; ++run) {
    ASSERT_EQ(DealTest(talk), 0) << run;
    EXPECT_EQ(talk.Machine.MachineCardsByPocket().at(kN), OneTo(52));
    EXPECT_EQ(CardsDealt(talk), 52);
  }
  const Bytes log = talk.Ask({0x20});
  EXPECT_EQ(log.at(8), 1);
  EXPECT_EQ(log.at(59), 52);
  EXPECT_EQ(talk.Machine.BoardsDealt(), 0) << "no board";
}

TEST(TestDeal, AShuffledDeckFails) {
  Talk talk;
  EXPECT_EQ(DealTest(talk), 62);
}

TEST(TestDeal, FindsTheCardsThatWereLaidIntoTheFeeder) {
  Talk talk;
  ASSERT_TRUE(talk.Machine.LayInFeeder(OneTo(52)));
  ASSERT_EQ(DealTest(talk), 0);
  ASSERT_TRUE(talk.Machine.PutBackPack());
  EXPECT_EQ(DealTest(talk), 0);
  EXPECT_EQ(DealTest(talk), 62) << "a shuffled pack";
}

TEST(TestDeal, StopsBeforeTheFirstCardThatDiffers) {
  Options options = Flashed();
  options.Swaps = {{9, 10}};
  CameraTalk talk(options);
  ASSERT_EQ(DealTest(talk), 62);
  EXPECT_EQ(CardsDealt(talk), 8);
  EXPECT_EQ(talk.Machine.MachineCardsByPocket().at(kN), OneTo(8));
  EXPECT_THAT(Verdict(talk), ElementsAre(11, 1, 62)) << "the Jack of Spades in the Ten's place";
}

TEST(TestDeal, ThePictureOfTheWrongCardIsKept) {
  Options options = Flashed();
  options.Swaps = {{9, 10}};
  CameraTalk talk(options);
  ASSERT_EQ(DealTest(talk), 62);
  const Rows kept = talk.Fetch(2);
  talk.Machine.ShowCard(10);
  EXPECT_TRUE(Alike(kept, talk.Captured()));
  talk.Machine.ShowCard(9);
  EXPECT_FALSE(Alike(kept, talk.Captured()));
}

TEST(TestDeal, SwapsAreDoneOneAfterTheOther) {
  Options options = Flashed();
  options.Swaps = {{1, 2}, {2, 3}};  // 2 3 1 4 ...
  Talk talk(options);
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
  const std::vector<int> next = talk.Machine.NextCards(4);
  EXPECT_THAT(next, ElementsAre(12, 11, 13, 10)) << "Three, Four, Two and Five of Spades";
}

TEST(TestDeal, WhatACardIsMistakenForIsHeldAgainstTheExpectedOne) {
  Options options = Flashed();
  options.Misread = 25;
  Talk talk(options);
  ASSERT_EQ(DealTest(talk), 62);
  EXPECT_EQ(CardsDealt(talk), 0);
  EXPECT_THAT(Verdict(talk), ElementsAre(13, 2, 62)) << "the King of Hearts";
}

TEST(TestDeal, ACardThatIsTakenForTheRightOneFalls) {
  Options options = Flashed();
  options.Misread = 1;
  Talk talk(options);
  ASSERT_EQ(DealTest(talk), 62);
  EXPECT_EQ(CardsDealt(talk), 1);
  EXPECT_THAT(Verdict(talk), ElementsAre(2, 1, 62));
}

TEST(TestDeal, AWrongCardCannotBePassedOver) {
  Options options = Flashed();
  options.Swaps = {{9, 10}};
  Talk talk(options);
  ASSERT_EQ(DealTest(talk), 62);
  ASSERT_TRUE(talk.Accepted(TestStart(true)));
  EXPECT_EQ(talk.State(), 62);
  EXPECT_EQ(CardsDealt(talk), 8);
}

TEST(TestDeal, IsStillATestWhenItGoesOn) {
  for (const std::uint8_t code : Bytes{55, 59}) {
    Options options = Flashed();
    options.Faults = {{1, 20, code}};
    options.Swaps = {{30, 52}};
    Talk talk(options);
    ASSERT_EQ(DealTest(talk), code);
    EXPECT_EQ(CardsDealt(talk), 19);
    ASSERT_TRUE(talk.Accepted(TestStart(true)));
    EXPECT_EQ(talk.PollToEnd(), 62);
    EXPECT_EQ(CardsDealt(talk), 29);
  }
}

TEST(TestDeal, OnlyTheLowestBitOfAPollCanBreakIt) {
  Talk talk(Flashed());
  ASSERT_TRUE(talk.Accepted(TestRoute()));
  ASSERT_TRUE(talk.Accepted(TestStart()));
  EXPECT_EQ(talk.Status(0xFE).at(1), 0xFF);
  EXPECT_EQ(talk.Status(0xFF).at(1), 57);
  ASSERT_TRUE(talk.Accepted(TestStart(true)));
  EXPECT_EQ(talk.PollToEnd(), 0);
}

TEST(TestDeal, AnUnreadableCardHasItsCode) {
  Options options = Flashed();
  options.Faults = {{2, 20, 30}};
  Talk talk(options);
  ASSERT_EQ(DealTest(talk), 0);
  ASSERT_EQ(DealTest(talk), 30) << "the second one";
  EXPECT_EQ(CardsDealt(talk), 19);
  EXPECT_THAT(Verdict(talk), ElementsAre(0, 0, 30));
}

TEST(TestDeal, TheOrderIsUsedUpByTheDealThatBegins) {
  Talk talk;
  ASSERT_EQ(DealTest(talk), 62);
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(talk.Machine.BoardsDealt(), 1);
}

TEST(TestDeal, WhoAsksForTheVersionEndsItAndItsOrder) {
  Talk talk;
  ASSERT_EQ(DealTest(talk), 62);
  ASSERT_TRUE(talk.Accepted(TestRoute()));
  talk.Ask({26, 1, 2, 3});
  EXPECT_EQ(talk.State(), 0);
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
  EXPECT_EQ(talk.PollToEnd(), 0);
}

TEST(TestDeal, ARepeatedStartOrOrderChangesNothing) {
  Talk talk(Flashed());
  ASSERT_TRUE(talk.Accepted(TestRoute()));
  ASSERT_TRUE(talk.Accepted(TestRoute()));
  ASSERT_TRUE(talk.Accepted(TestStart()));
  for (int poll = 1; poll <= 5; ++poll) talk.Status();
  ASSERT_TRUE(talk.Accepted(TestStart()));
  EXPECT_EQ(CardsDealt(talk), 6);
  EXPECT_EQ(talk.Machine.StateText(), "testing card 7 of 52");
  EXPECT_EQ(talk.PollToEnd(), 0);
}

TEST(TestDeal, ItsOrderNamesTheCardOfEachPlace) {
  ByCard order = InOrder();
  std::rotate(order.begin(), order.begin() + 1, order.begin() + 52);  // 2 3 ... 52 1
  std::array<int, 52> pack{};
  for (std::size_t place = 0; place < 52; ++place) {
    pack.at(place) = wire::MachineCard(order.at(place)).Card();
  }
  Talk talk;
  ASSERT_TRUE(talk.Machine.LoadPack(pack));
  ASSERT_TRUE(talk.Accepted(TestRoute(order)));
  ASSERT_TRUE(talk.Accepted(TestStart()));
  EXPECT_EQ(talk.PollToEnd(), 0);
}

TEST(TestDeal, AnOrderThatIsNoPackIsNotAccepted) {
  Talk talk;
  const auto refused = [&](std::size_t place, std::uint8_t card) {
    ByCard order = InOrder();
    order.at(place) = card;
    return !talk.Accepted(TestRoute(order));
  };
  EXPECT_TRUE(refused(0, 2)) << "a card twice";
  EXPECT_TRUE(refused(51, 53)) << "a joker";
  EXPECT_TRUE(refused(51, 0));
  EXPECT_TRUE(refused(51, 127));
  EXPECT_TRUE(refused(52, 1)) << "behind the pack";
  EXPECT_TRUE(refused(54, 55));
  EXPECT_FALSE(talk.Accepted(TestRoute(InOrder(), 51)));
  EXPECT_FALSE(talk.Accepted(TestRoute(InOrder(), 53)));
  EXPECT_FALSE(talk.Accepted(CardsFrame({0x9F, 52, 2, 0, 0, 0, 0}, InOrder())));
  EXPECT_FALSE(talk.Accepted(CardsFrame({0x9F, 52, 1, 0, 0, 1, 0}, InOrder())));
  EXPECT_TRUE(talk.Accepted(TestRoute()));
}

TEST(TestDeal, TheSameOrderWithoutItsMarkIsThatOfAStack) {
  Talk talk(Flashed());
  ASSERT_TRUE(talk.Accepted(RouteFrame(52, InOrder())));
  ASSERT_TRUE(talk.Accepted(TestStart()));
  EXPECT_EQ(talk.Machine.Run(), RunKind::Stack);
  EXPECT_EQ(talk.PollToEnd(), 55) << "no pile has been carried back";
}

TEST(FlashedDeck, IsThatOfEveryRunAndOfAFedCard) {
  Talk talk(Flashed());
  const Board board = RandomBoard(1);
  for (int run = 1; run <= 2; ++run) {
    ASSERT_TRUE(talk.Accepted(DealFrame(board)));
    EXPECT_THAT(talk.Machine.NextCards(3), ElementsAre(13, 12, 11)) << "Two, Three, Four";
    ASSERT_EQ(talk.PollToEnd(), 0);
  }
  talk.Ask({23, 0, 1});
  EXPECT_EQ(talk.Machine.CardShown(), 1);
}

TEST(FlashedDeck, GivesWayToAPackThatIsLaidOnce) {
  Talk talk(Flashed());
  std::array<int, 52> pack{};
  std::iota(pack.begin(), pack.end(), 1);
  ASSERT_TRUE(talk.Machine.LoadPack(pack));
  EXPECT_EQ(DealTest(talk), 62) << "the Ace comes first";
  EXPECT_EQ(DealTest(talk), 0);
}

}  // namespace
}  // namespace morvane::simulator
