#include "simulator/carry.h"
#include "simulator/stacking.h"

namespace morvane::simulator {
namespace {

/// What a person does between the runs, and what comes of it.
class Carrying : public Stacking {
 protected:
  void ExpectStopAt(int card, std::uint8_t code, int run, const char* what) {
    const StackRun next = NextRun(run);
    const auto fed = Carried();
    EXPECT_EQ(EndOf(next), code) << what << ", run " << run;
    EXPECT_EQ(Log(), (std::vector<int>(fed.begin(), fed.begin() + card - 1))) << what;
  }
};

// In run 2 South and West have nine cards each and East ten, in the others all have nine. The first
// card that is wrong is: swapped, the lowest of East behind South's nine; dropped or exchanged, the
// 14th of 28 and of 27; turned, the first of East; North, the very first.
TEST_F(Carrying, AWrongCarryIsFoundAtItsFirstWrongCard) {
  struct Mistake {
    Carry Way;
    int Card;
  };
  for (const auto [way, card] :
       {Mistake{Carry::kPilesSwapped, 10}, Mistake{Carry::kCardDropped, 14},
        Mistake{Carry::kCardsExchanged, 14}, Mistake{Carry::kPileTurned, 19},
        Mistake{Carry::kNorthToo, 1}}) {
    for (int run = 2; run <= 4; ++run) {
      RunTo(run - 1);
      talk.Machine.CarryNext(way);
      ExpectStopAt(card, 62, run, WordsOf(way).Word.data());
    }
  }
}

TEST_F(Carrying, APileThatNobodyCarriesLeavesTheFeederEmpty) {
  RunTo(1);
  talk.Machine.CarryNext(Carry::kNothing);
  const StackRun run = NextRun(2);
  const auto fed = Carried();
  EXPECT_EQ(EndOf(run), 55);
  EXPECT_TRUE(Log().empty());
  EXPECT_EQ(talk.Machine.StateText(), "the feeder is empty");
  EXPECT_EQ(Carried(), fed) << "they lie where they were";
  ASSERT_TRUE(talk.Accepted(StackFrame(run.Pockets, true)));
  EXPECT_EQ(talk.PollToEnd(), 0) << "who goes on has carried them";
  EXPECT_EQ(Log(), fed);
}

TEST_F(Carrying, AMistakeIsMadeOnce) {
  RunTo(1);
  talk.Machine.CarryNext(Carry::kPilesSwapped);
  EXPECT_EQ(talk.Machine.NextCarry(), Carry::kPilesSwapped);
  EXPECT_EQ(EndOf(NextRun(2)), 62);
  EXPECT_EQ(talk.Machine.NextCarry(), Carry::kRight);
  talk.Ask({0x1A});
  RunTo(4);
  EXPECT_EQ(Stack(), deal);
}

TEST_F(Carrying, TheFirstRunCarriesNothingAndKeepsTheMistakeForTheSecond) {
  talk.Machine.CarryNext(Carry::kNorthToo);
  RunTo(1);
  ExpectStopAt(1, 62, 2, "north");
}

TEST_F(Carrying, TheOptionIsTheFirstCarry) {
  Options options = Talk::Fast();
  options.FirstCarry = Carry::kCardDropped;
  Talk other(options);
  EXPECT_EQ(other.Machine.NextCarry(), Carry::kCardDropped);
}

TEST_F(Carrying, ARepeatedStartCarriesOnce) {
  RunTo(1);
  const StackRun run = NextRun(2);
  Start(run);
  ASSERT_TRUE(talk.Accepted(StackFrame(run.Pockets)));
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 28U);
  EXPECT_EQ(talk.PollToEnd(), 0);
}

TEST_F(Carrying, TheCarriedPocketsAreEmptyAndNorthStays) {
  RunTo(1);
  const auto north = PileOf(kN);
  const auto fed = Carried();
  Start(NextRun(2));
  EXPECT_TRUE(Carried().empty());
  EXPECT_EQ(PileOf(kN), north);
  std::vector<int> waiting;
  for (const int card : fed) waiting.push_back(wire::MachineCard(card).Card());
  EXPECT_EQ(talk.Machine.NextCards(100), waiting);
}

TEST_F(Carrying, CardsLostOnTheWayAreInNoPile) {
  RunTo(1);
  talk.Machine.CarryNext(Carry::kCardDropped);
  Start(NextRun(2));
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 27U);
}

// Laid the other way round, the cards come as from a feeder that is fed from its top.
TEST_F(Carrying, AFeederThatIsFedFromTheTopIsFoundAtTheFirstCard) {
  for (int run = 2; run <= 4; ++run) {
    RunTo(run - 1);
    const StackRun next = NextRun(run);
    auto fed = Carried();
    std::reverse(fed.begin(), fed.end());
    ASSERT_TRUE(talk.Machine.LayInFeeder(fed));
    EXPECT_EQ(EndOf(next), 62);
    EXPECT_TRUE(Log().empty());
  }
}

TEST_F(Carrying, WhatSomebodyHasLaidIsNotCarriedOnceMore) {
  RunTo(1);
  talk.Machine.CarryNext(Carry::kPilesSwapped);
  const StackRun run = NextRun(2);
  auto laid = Carried();
  laid.back() = PileOf(kN).front();
  ASSERT_TRUE(talk.Machine.LayInFeeder(laid));
  Start(run);
  EXPECT_TRUE(Carried().empty());
  EXPECT_EQ(PileOf(kN).size(), 23U) << "one of its cards lies in the feeder";
  EXPECT_EQ(talk.PollToEnd(), 62);
  EXPECT_EQ(Log().size(), 27U);
  EXPECT_EQ(talk.Machine.NextCarry(), Carry::kPilesSwapped) << "nobody has carried";
}

TEST_F(Carrying, LaidCardsAreForOneRunAndAnotherLoadTakesThemAway) {
  ASSERT_TRUE(talk.Machine.LayInFeeder(std::vector{1, 2, 3}));
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
  ASSERT_EQ(talk.PollToEnd(), 0);
  EXPECT_TRUE(LiesAs(talk.Machine, RandomBoard(5)));
  EXPECT_EQ(EndOf(FirstRun()), 0);
}

TEST_F(Carrying, OnlyDifferentCardsCanBeLaidAndNotWhileCardsFall) {
  EXPECT_FALSE(talk.Machine.LayInFeeder(std::vector{1, 2, 1}));
  EXPECT_FALSE(talk.Machine.LayInFeeder(std::vector{0}));
  EXPECT_FALSE(talk.Machine.LayInFeeder(std::vector{56}));
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 0U);
  EXPECT_TRUE(talk.Machine.LayInFeeder(Shuffled(55, 1)));
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 55U);
  Start(FirstRun());
  EXPECT_FALSE(talk.Machine.LayInFeeder(std::vector{1, 2}));
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(Log(), [] {
    auto cards = Shuffled(55, 1);
    cards.resize(52);
    return cards;
  }());
}

TEST_F(Carrying, ThePackPutBackIsReadAsItLay) {
  RunTo(4);
  const auto pile = talk.Machine.MachineCardsByPocket()[kN];
  ASSERT_TRUE(talk.Machine.PutBackPack());
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 52U);
  EXPECT_TRUE(PileOf(kN).empty());
  ASSERT_EQ(EndOf(StackRun{}), 0);
  EXPECT_EQ(Log(), pile);
  // The card that fell last is slot 1.
  const Bytes log = talk.Ask({0x20});
  for (std::size_t slot = 1; slot <= 28; ++slot) {
    EXPECT_EQ(log.at(static_cast<std::size_t>(deal[slot - 1]) + 7), 53 - slot);
  }
}

TEST_F(Carrying, ThereMustBeAPackToPutBackAndNoCardThatFalls) {
  EXPECT_FALSE(talk.Machine.PutBackPack());
  Start(StackRun{});
  Poll(5);
  EXPECT_FALSE(talk.Machine.PutBackPack());
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_TRUE(talk.Machine.PutBackPack());
}

TEST_F(Carrying, AReadingWithoutAPackPutBackFindsAFreshOne) {
  RunTo(4);
  const auto pile = talk.Machine.MachineCardsByPocket()[kN];
  ASSERT_EQ(EndOf(StackRun{}), 0);
  EXPECT_EQ(Log().size(), 52U);
  EXPECT_NE(Log(), pile);
}

TEST_F(Carrying, ACancelledRunBeginsAgainWithAFreshPack) {
  RunTo(2);
  Start(NextRun(3));
  Poll(5);
  talk.Status(1);
  talk.Ask({0x1A});
  EXPECT_EQ(talk.State(), 0);
  RunTo(4);
  EXPECT_EQ(Stack(), deal);
  EXPECT_EQ(PileOf(kN).size(), 52U);
}

}  // namespace
}  // namespace morvane::simulator
