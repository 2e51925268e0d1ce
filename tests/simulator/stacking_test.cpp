#include "simulator/stacking.h"

namespace morvane::simulator {
namespace {

TEST_F(Stacking, FourRunsPutTheDealOnTopOfNorthSlotOneUppermost) {
  for (std::uint64_t seed = 1; seed <= 200; ++seed) {
    deal = Shuffled(52, seed);
    deal.resize(28);
    talk.Machine.ShuffleWith(seed);
    RunTo(4);
    ASSERT_EQ(Stack(), deal) << seed;
    ASSERT_EQ(PileOf(kN).size(), 52U);
  }
}

TEST_F(Stacking, JokersAreCardsLikeOthers) {
  auto pack = Shuffled(55, 3);
  pack.resize(52);
  ASSERT_GE(std::count_if(pack.begin(), pack.end(), [](int card) { return card > 52; }), 2);
  std::sort(pack.begin(), pack.end(), std::greater());  // the jokers into the first slots
  deal.assign(pack.begin(), pack.begin() + 28);
  std::rotate(pack.begin(), pack.begin() + 17, pack.end());
  ASSERT_TRUE(talk.Machine.LayInFeeder(pack));
  RunTo(4);
  EXPECT_EQ(Stack(), deal);
  EXPECT_EQ(talk.Machine.CardsByPocket()[kN].back(), 0) << "a joker is none of a set's cards";
}

TEST_F(Stacking, TheFirstRunTakesAFreshPackAndEmptiesThePockets) {
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
  ASSERT_EQ(talk.PollToEnd(), 0);
  const auto first = Log();
  EXPECT_EQ(EndOf(FirstRun()), 0);
  EXPECT_EQ(Log().size(), 52U);
  EXPECT_NE(Log(), first);
  EXPECT_EQ(Counts(), (Bytes{9, 9, 10, 24}));
}

TEST_F(Stacking, APreparedPackIsTheOneOfTheFirstRun) {
  std::array<int, 52> pack{};
  std::iota(pack.begin(), pack.end(), 1);
  ASSERT_TRUE(talk.Machine.LoadPack(pack));
  ASSERT_EQ(EndOf(FirstRun()), 0);
  EXPECT_EQ(Log().front(), 13) << "the Ace of Spades";
  EXPECT_EQ(Log().back(), 40) << "the Two of Clubs";
}

TEST_F(Stacking, CardsComeFromTheBottomOfTheFeederAndLandOnTop) {
  const std::vector<int> cards{7, 31, 55, 2};
  ASSERT_TRUE(talk.Machine.LayInFeeder(cards));
  StackRun run;
  run.Count = 4;
  At(run.Pockets, 31) = kW;
  At(run.Pockets, 2) = kW;
  ASSERT_EQ(EndOf(run), 0);
  EXPECT_EQ(Log(), cards);
  EXPECT_EQ(PileOf(kW), (std::vector<int>{2, 31}));
  EXPECT_EQ(PileOf(kN), (std::vector<int>{55, 7}));
}

TEST_F(Stacking, ARunEndsWhenItsCardsHaveFallen) {
  StackRun run;
  run.Count = 28;
  ASSERT_EQ(EndOf(run), 0);
  EXPECT_EQ(Log().size(), 28U);
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 24U);
  EXPECT_EQ(talk.Machine.BoardsDealt(), 0);
}

TEST_F(Stacking, ThePocketsCountTheCardsOfTheRunAndNorthKeepsItsPile) {
  RunTo(2);
  EXPECT_EQ(Counts(), (Bytes{9, 9, 9, 1}));
  EXPECT_EQ(PileOf(kN).size(), 25U);
  EXPECT_EQ(PileOf(kN).front(), deal.at(27));
  ASSERT_EQ(EndOf(NextRun(3)), 0);
  EXPECT_EQ(Counts(), (Bytes{9, 9, 9, 0}));
  ASSERT_EQ(EndOf(NextRun(4)), 0);
  EXPECT_EQ(Counts(), (Bytes{0, 0, 0, 27}));
}

TEST_F(Stacking, ACardOutOfOrderStopsTheMachineBeforeItFalls) {
  ASSERT_TRUE(talk.Machine.LayInFeeder(std::vector{5, 6, 7, 8}));
  StackRun run;
  run.Count = 4;
  run.Order = Everywhere(127);
  At(run.Order, 5) = 1;
  At(run.Order, 6) = 2;
  At(run.Order, 7) = 4;
  At(run.Order, 8) = 3;
  EXPECT_EQ(EndOf(run), 62);
  EXPECT_EQ(Log(), (std::vector<int>{5, 6}));
  EXPECT_EQ(PileOf(kN), (std::vector<int>{6, 5}));
  ASSERT_TRUE(talk.Accepted(StackFrame(run.Pockets, true)));
  EXPECT_EQ(talk.PollToEnd(), 62) << "nothing goes on behind this code";
}

TEST_F(Stacking, AForeignCardIsOutOfOrderToo) {
  ASSERT_TRUE(talk.Machine.LayInFeeder(std::vector{5, 6}));
  StackRun run;
  run.Count = 2;
  run.Order = Everywhere(127);
  At(run.Order, 6) = 1;
  EXPECT_EQ(EndOf(run), 62);
  EXPECT_TRUE(Log().empty());
}

TEST_F(Stacking, ACardThatNoPocketIsForStopsTheMachine) {
  ASSERT_TRUE(talk.Machine.LayInFeeder(std::vector{5, 54, 7}));
  StackRun run;
  At(run.Pockets, 54) = 0;
  EXPECT_EQ(EndOf(run), 62);
  EXPECT_EQ(Log(), (std::vector<int>{5}));
}

TEST_F(Stacking, AFeederThatIsEmptyTooSoonStopsTheMachineUntilSomebodyLaysCards) {
  auto pack = Shuffled(52, 1);
  const int last = pack.back();
  pack.pop_back();
  ASSERT_TRUE(talk.Machine.LayInFeeder(pack));
  EXPECT_EQ(EndOf(FirstRun()), 55);
  EXPECT_EQ(Log(), pack);
  EXPECT_EQ(talk.Machine.StateText(), "stopped at card 52 of 52 with code 55");
  ASSERT_TRUE(talk.Accepted(StackFrame(FirstRun().Pockets, true)));
  EXPECT_EQ(talk.PollToEnd(), 55) << "still empty";
  ASSERT_TRUE(talk.Machine.LayInFeeder(std::vector{last}));
  ASSERT_TRUE(talk.Accepted(StackFrame(FirstRun().Pockets, true)));
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(Log().back(), last);
  EXPECT_EQ(EndOf(NextRun(2)), 0) << "the piles are carried as ever";
}

TEST_F(Stacking, TheCardLogRunsOnOverAContinuation) {
  RunTo(1);
  const StackRun run = NextRun(2);
  const auto fed = Carried();
  Start(run);
  Poll(10);
  EXPECT_EQ(talk.Status(1).at(1), 57);
  EXPECT_EQ(Log().size(), 10U);
  ASSERT_TRUE(talk.Accepted(StackFrame(run.Pockets, true)));
  Poll(5);
  talk.Machine.CauseFault(30);
  EXPECT_EQ(talk.PollToEnd(), 30);
  EXPECT_EQ(Log().size(), 15U);
  ASSERT_TRUE(talk.Accepted(StackFrame(run.Pockets, true)));
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(Log(), fed);
  EXPECT_EQ(Counts(), (Bytes{9, 9, 9, 1}));
}

TEST_F(Stacking, TheLogOfARunHasNoCardOfTheOneBefore) {
  RunTo(1);
  EXPECT_EQ(Log().size(), 52U);
  Start(NextRun(2));
  EXPECT_TRUE(Log().empty());
}

TEST_F(Stacking, ARepeatedRouteAndARepeatedStartChangeNothing) {
  const StackRun run = FirstRun();
  ASSERT_TRUE(talk.Accepted(RouteFrame(run.Count, run.Order)));
  ASSERT_TRUE(talk.Accepted(RouteFrame(run.Count, run.Order)));
  ASSERT_TRUE(talk.Accepted(StackFrame(run.Pockets)));
  Poll(20);
  ASSERT_TRUE(talk.Accepted(StackFrame(run.Pockets)));
  EXPECT_EQ(Log().size(), 20U);
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(Log().size(), 52U);
  EXPECT_EQ(EndOf(NextRun(2)), 0);
}

TEST_F(Stacking, ARepeatedPairMeanwhileIsARepetitionToo) {
  Start(FirstRun());
  Poll(20);
  Start(FirstRun());
  EXPECT_EQ(Log().size(), 20U);
  EXPECT_EQ(talk.PollToEnd(), 0);
}

TEST_F(Stacking, AnotherRunMeanwhileBeginsAnew) {
  Start(FirstRun());
  Poll(20);
  std::reverse(deal.begin(), deal.end());
  Start(FirstRun());
  EXPECT_TRUE(Log().empty());
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(Counts(), (Bytes{9, 9, 10, 24}));
}

TEST_F(Stacking, TheRouteIsUsedUpByItsRun) {
  RunTo(1);
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_TRUE(LiesAs(talk.Machine, board));
}

TEST_F(Stacking, ABoardIsDealtInTheMiddleOfARunWithoutARoute) {
  Start(FirstRun());
  Poll(20);
  Bytes frame = DealFrame(RandomBoard(5));
  frame[60] = 200;  // behind the list of a board: means nothing
  ASSERT_TRUE(talk.Accepted(frame));
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_TRUE(LiesAs(talk.Machine, RandomBoard(5)));
}

/// Whether what happens between makes the machine forget the route: then a board is dealt.
class ForgottenRoute : public Stacking {
 protected:
  void ExpectABoard() {
    const Board board = RandomBoard(5);
    ASSERT_TRUE(talk.Accepted(DealFrame(board)));
    EXPECT_EQ(talk.Machine.Run(), RunKind::Deal);
    EXPECT_EQ(talk.PollToEnd(), 0);
    EXPECT_TRUE(LiesAs(talk.Machine, board));
  }
  void SetUp() override { ASSERT_TRUE(talk.Accepted(RouteFrame(28, {}))); }
};

TEST_F(ForgottenRoute, ByTheVersionProbe) {
  ASSERT_FALSE(talk.Ask({0x1A}).empty());
  ExpectABoard();
}

TEST_F(ForgottenRoute, ByThePower) {
  talk.Machine.PowerOff();
  talk.Machine.PowerOn();
  ExpectABoard();
}

TEST_F(ForgottenRoute, ByAReading) {
  Bytes read = DealFrame(RandomBoard(5));
  read[0] = 0x9C;
  ASSERT_TRUE(talk.Accepted(read));
  ASSERT_EQ(talk.PollToEnd(), 0);
  ExpectABoard();
}

TEST_F(ForgottenRoute, ByASort) {
  ASSERT_TRUE(talk.Accepted({0x35, 0, 0, 0, 11, 36, 0}));
  ASSERT_EQ(talk.PollToEnd(), 0);
  ExpectABoard();
}

TEST_F(ForgottenRoute, NotByAPoll) {
  talk.Status();
  ASSERT_TRUE(talk.Accepted(StackFrame(Everywhere(kN))));
  EXPECT_EQ(talk.Machine.Run(), RunKind::Stack);
}

TEST_F(Stacking, ARouteTakesOneToFiftyFiveCards) {
  for (int count = 1; count <= 55; ++count) {
    EXPECT_TRUE(talk.Accepted(RouteFrame(count, {}))) << count;
  }
  EXPECT_FALSE(talk.Accepted(RouteFrame(0, {})));
  EXPECT_FALSE(talk.Accepted(RouteFrame(56, {})));
}

TEST_F(Stacking, ARouteThatMakesNoSenseIsNotTaken) {
  for (const int value : {56, 126, 128, 255}) {
    ByCard order{};
    order.back() = static_cast<std::uint8_t>(value);
    EXPECT_FALSE(talk.Accepted(RouteFrame(52, order))) << value;
  }
  for (const int value : {0, 55, 127}) {
    ByCard order{};
    order.back() = static_cast<std::uint8_t>(value);
    EXPECT_TRUE(talk.Accepted(RouteFrame(52, order))) << value;
  }
  for (const std::size_t byte : {std::size_t{3}, std::size_t{4}, std::size_t{5}}) {
    Bytes frame = RouteFrame(52, {});
    frame[byte] = 1;
    EXPECT_FALSE(talk.Accepted(frame)) << byte;
  }
  Bytes frame = RouteFrame(52, {});
  frame[2] = 2;
  EXPECT_FALSE(talk.Accepted(frame));
  frame[2] = 1;
  EXPECT_FALSE(talk.Accepted(frame)) << "a test deal names its cards";
}

TEST_F(Stacking, AListWithANumberThatIsNoPocketIsNotTakenJokersIncluded) {
  ASSERT_TRUE(talk.Accepted(RouteFrame(52, {})));
  ByCard pockets = Everywhere(kN);
  At(pockets, 55) = 5;
  EXPECT_FALSE(talk.Accepted(StackFrame(pockets)));
  At(pockets, 55) = 4;
  EXPECT_TRUE(talk.Accepted(StackFrame(pockets))) << "the route is still there";
  EXPECT_EQ(talk.Machine.Run(), RunKind::Stack);
}

TEST_F(Stacking, EachRunIsABoardForTheFaults) {
  Options options = Talk::Fast();
  options.Faults = {{1, 52, 54}, {2, 5, 30}, {4, 1, 9}};
  Talk other(options);
  const auto end = [&other](const StackRun& run) {
    EXPECT_TRUE(other.Accepted(RouteFrame(run.Count, run.Order)));
    EXPECT_TRUE(other.Accepted(StackFrame(run.Pockets)));
    return other.PollToEnd();
  };
  StackRun run;
  EXPECT_EQ(end(run), 54);
  EXPECT_EQ(other.Machine.StateText(), "stopped at card 52 of 52 with code 54");
  ASSERT_TRUE(other.Accepted(StackFrame(run.Pockets, true)));
  EXPECT_EQ(other.PollToEnd(), 0);
  EXPECT_EQ(end(run), 30) << "the second";
  EXPECT_EQ(other.Machine.StateText(), "stopped at card 5 of 52 with code 30");
  EXPECT_EQ(end(run), 0) << "the second, begun again";
  EXPECT_EQ(end(run), 0) << "the third";
  EXPECT_EQ(end(run), 9) << "the fourth";
}

TEST_F(Stacking, TheStateSaysWhichCardOfTheRun) {
  RunTo(1);
  Start(NextRun(2));
  Poll(2);
  EXPECT_EQ(talk.Machine.StateText(), "stacking card 3 of 28");
  talk.Status(1);
  EXPECT_EQ(talk.Machine.StateText(), "stopped at card 3 of 28 with code 57");
}

TEST_F(Stacking, AtARealPaceTheFirstRunTakesAboutFifteenSeconds) {
  Options options = Talk::Fast();
  options.Speed = 1.0;
  Talk other(options);
  ASSERT_TRUE(other.Accepted(RouteFrame(52, {})));
  ASSERT_TRUE(other.Accepted(StackFrame(FirstRun().Pockets)));
  ASSERT_EQ(other.PollToEnd(), 0);
  EXPECT_NEAR(static_cast<double>(other.Clock.Elapsed().count()) / 1e6, 15.0, 1.0);
}

}  // namespace
}  // namespace morvane::simulator
