#include "poker/poker_desk.h"
#include "program/setting_keys.h"
#include "support/frame_list.h"
#include "support/harm.h"

namespace morvane::poker {
namespace {

using machine::Cancel;
using machine::Continue;
using test::Bytes;
using test::FramesAre;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using PokerRuns = PokerDesk;

TEST_F(PokerRuns, SmallCardsAreNoSettingOfAPokerRun) {
  desk.Store.Set(kCardIndex, "2");
  ContactWithOrder(1);
  RunTo(1);
  EXPECT_EQ(SentOf(0x98)[0][2], 0);
}

TEST_F(PokerRuns, AThousandOrdersLieStackedAndAreReadBackTheSame) {
  Contact();
  for (int i = 0; i < 1000; ++i) {
    PokerOrder order = EmptyOrder(1);
    FillAtRandom(order, desk.Random);
    poker.Take(order);
    RunTo(4);
    ASSERT_EQ(Stacked(), order.Current()) << i;
    ASSERT_TRUE(sim.PutBackPack());
    poker.Take(EmptyOrder(1));
    Press(Button::Read);
    ASSERT_EQ(poker.Order().Current(), order.Current()) << i;
    bridge.Sent.clear();
  }
}

TEST_F(PokerRuns, AMachineThatFeedsFromTheTopIsFoundOutAtOnce) {
  ContactWithOrder(1);
  RunTo(1);
  // What it would feed first is what lies on top.
  auto piles = sim.MachineCardsByPocket();
  std::vector<int> feeder;
  for (const std::size_t pocket : {3U, 2U, 1U}) {
    feeder.insert(feeder.end(), piles[pocket].rbegin(), piles[pocket].rend());
  }
  ASSERT_TRUE(sim.LayInFeeder(feeder));
  view.Answers = {Cancel};
  Press(Button::SecondDeal);
  EXPECT_THAT(view.Errors, ElementsAre(::testing::HasSubstr("Error Code: 62")));
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
}

TEST_F(PokerRuns, AfterTheFirstRunThePocketsHold10And9And9And24) {
  ContactWithOrder(1);
  RunTo(1);
  const auto piles = sim.MachineCardsByPocket();
  EXPECT_EQ(piles[3].size(), 10U);
  EXPECT_EQ(piles[2].size(), 9U);
  EXPECT_EQ(piles[1].size(), 9U);
  EXPECT_EQ(piles[4].size(), 24U);
}

TEST_F(PokerRuns, AfterTheSecondTheCardOfSlot28LiesOnNorth) {
  ContactWithOrder(1);
  RunTo(2);
  EXPECT_EQ(sim.MachineCardsByPocket()[4].back(), poker.Order().Current()[28]);
}

TEST_F(PokerRuns, JokersAreStackedLikeOtherCards) {
  Contact();
  PokerOrder order = EmptyOrder(1);
  order.Current() = DealInOrder();
  order.Current()[1] = 53;
  order.Current()[28] = 55;
  poker.Take(order);
  std::vector<int> pack(55);
  std::iota(pack.begin(), pack.end(), 1);
  std::erase_if(pack, [](int card) { return card >= 50 && card <= 52; });
  ASSERT_TRUE(sim.LayInFeeder(pack));
  RunTo(4);
  EXPECT_EQ(Stacked(), order.Current());
}

// What goes wrong on the way.

class WrongCarry : public PokerDesk, public ::testing::WithParamInterface<simulator::Carry> {};

TEST_P(WrongCarry, StopsWith62AndAfterCancelTheDealStartsAgain) {
  for (int run = 1; run <= 3; ++run) {
    SCOPED_TRACE(run);
    view.Errors.clear();
    if (run == 1) {
      ContactWithOrder(1);
    }
    RunTo(run);
    sim.CarryNext(GetParam());
    view.Answers = {Cancel};
    poker.Press(ButtonOfRun(run + 1));
    EXPECT_THAT(view.Errors,
                ElementsAre(::testing::AllOf(::testing::HasSubstr("Incorrect Card Order"),
                                             ::testing::HasSubstr("Error Code: 62"))));
    EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
    EXPECT_EQ(poker.Label1(), " Ready for first run");
    EXPECT_EQ(poker.Label3(), "");
  }
  RunTo(4);
  EXPECT_EQ(Stacked(), poker.Order().PokerDeals[1]);
}

INSTANTIATE_TEST_SUITE_P(Each, WrongCarry,
                         ::testing::Values(simulator::Carry::kPilesSwapped,
                                           simulator::Carry::kCardDropped,
                                           simulator::Carry::kCardsExchanged,
                                           simulator::Carry::kPileTurned,
                                           simulator::Carry::kNorthToo));

TEST_F(PokerRuns, WithoutAnyCardInTheFeederTheRunStopsWith55) {
  ContactWithOrder(1);
  RunTo(1);
  sim.CarryNext(simulator::Carry::kNothing);
  view.Answers = {Cancel};
  Press(Button::SecondDeal);
  EXPECT_THAT(view.Errors, ElementsAre(::testing::HasSubstr("Error Code: 55")));
}

TEST_F(PokerRuns, ContinueGoesOnWithTheSameRunAlsoTwice) {
  ContactWithOrder(1);
  for (int run = 1; run <= 4; ++run) {
    SCOPED_TRACE(run);
    bridge.Sent.clear();
    view.Answers = {Continue, Continue};
    int polls = 0;
    OnCommand = [&](const Bytes& plain) {
      if (plain[0] == 0x19 && (++polls == 5 || polls == 12)) sim.CauseFault(30);
    };
    Press(ButtonOfRun(run));
    const auto starts = SentOf(0x98);
    ASSERT_EQ(starts.size(), 3U);
    EXPECT_EQ(starts[0][1], 0);
    EXPECT_EQ(starts[1][1], 1);
    EXPECT_EQ(starts[2][1], 1);
    EXPECT_EQ(SentOf(0x9F).size(), 1U) << "the order is told once";
    EXPECT_EQ(SentOf(0x1A).size(), 0U);
  }
  OnCommand = nullptr;
  EXPECT_EQ(Stacked(), poker.Order().PokerDeals[1]);
  EXPECT_EQ(view.Errors.size(), 8U);
}

TEST_F(PokerRuns, ThePedalOn62CancelsTheRunAndStartsNoOther) {
  ContactWithOrder(3);
  RunTo(1);
  const PokerDeal deal = poker.Order().Current();
  sim.CarryNext(simulator::Carry::kPilesSwapped);
  view.Answers = {[this](machine::ErrorDialog&) { sim.PressPedal(); }};
  Press(Button::SecondDeal);
  EXPECT_EQ(view.Errors.size(), 1U);
  bridge.Sent.clear();
  desk.Loop.WaitMs(1000);
  EXPECT_THAT(SentOf(0x98), IsEmpty()) << "the press has been used";
  EXPECT_FALSE(SentOf(0x19).empty()) << "and the polling goes on";
  EXPECT_EQ(poker.Order().Current(), deal);
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
}

TEST_F(PokerRuns, ThePedalOnAFaultThatCanGoOnGoesOn) {
  ContactWithOrder(1);
  view.Answers = {[this](machine::ErrorDialog&) { sim.PressPedal(); }};
  int polls = 0;
  OnCommand = [&](const Bytes& plain) {
    if (plain[0] == 0x19 && ++polls == 5) sim.CauseFault(30);
  };
  Press(Button::FirstDeal);
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::SecondDeal, Button::CancelDeal));
  bridge.Sent.clear();
  desk.Loop.WaitMs(1000);
  EXPECT_THAT(SentOf(0x98), IsEmpty()) << "the press has been used";
}

TEST_F(PokerRuns, AnOldAnswerGoesOnWithNoNewFault) {
  ContactWithOrder(1);
  view.Answers = {Continue, Cancel};
  int polls = 0;
  OnCommand = [&](const Bytes& plain) {
    if (plain[0] == 0x19 && (++polls == 5 || polls == 12)) sim.CauseFault(30);
  };
  Press(Button::FirstDeal);
  EXPECT_EQ(view.Errors.size(), 2U);
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
}

TEST_F(PokerRuns, ACancelledRunIsEndedByTheProbe) {
  ContactWithOrder(1);
  RunTo(1);
  sim.CarryNext(simulator::Carry::kPilesSwapped);
  view.Answers = {Cancel};
  bridge.Sent.clear();
  Press(Button::SecondDeal);
  EXPECT_TRUE(FramesAre({bridge.Sent.back()}, {"1A 00 .. .. .. .. .."}));
  EXPECT_THAT(SentOf(0x20), IsEmpty()) << "nothing is kept of the run";
  EXPECT_EQ(machine.MachineState, machine::Machine::kIdle);
}

TEST_F(PokerRuns, TheCloseBoxBreaksEachRunAndTheWindowStaysWithItsOrder) {
  ContactWithOrder(1);
  const PokerDeal deal = poker.Order().Current();
  for (int run = 1; run <= 4; ++run) {
    SCOPED_TRACE(run);
    RunTo(run - 1);
    bridge.Sent.clear();
    int polls = 0;
    OnCommand = [&](const Bytes& plain) {
      if (plain[0] == 0x19 && ++polls == 10) poker.CloseBox();
    };
    Press(ButtonOfRun(run));
    OnCommand = nullptr;
    const auto statuses = SentOf(0x19);
    EXPECT_EQ(std::count_if(statuses.begin(), statuses.end(),
                            [](const Bytes& frame) { return (frame[1] & 1) != 0; }),
              1);
    EXPECT_THAT(view.Errors, IsEmpty()) << "who breaks is not asked what to do";
    EXPECT_FALSE(poker.Closed());
    EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
  }
  EXPECT_EQ(poker.Order().Current(), deal);
}

class InEachRun : public PokerDesk, public ::testing::WithParamInterface<int> {};

TEST_P(InEachRun, TheEndOfTheProgramBreaksAndCloses) {
  ContactWithOrder(1);
  RunTo(GetParam() - 1);
  int polls = 0;
  OnCommand = [&](const Bytes& plain) {
    if (plain[0] == 0x19 && ++polls == 10) desk.Loop.Quit();
  };
  Press(ButtonOfRun(GetParam()));
  EXPECT_TRUE(poker.Closed());
  EXPECT_FALSE(sim.Busy());
  EXPECT_THAT(view.Errors, IsEmpty());
}

TEST_P(InEachRun, PressedAgainTheCloseBoxLeaves) {
  ContactWithOrder(1);
  RunTo(GetParam() - 1);
  sim.PressPedal();
  int polls = 0;
  OnCommand = [&](const Bytes& plain) {
    if (plain[0] == 0x19 && (++polls == 10 || polls == 11)) poker.CloseBox();
  };
  Press(ButtonOfRun(GetParam()));
  EXPECT_TRUE(poker.Closed());
  EXPECT_EQ(view.Closings, 1);
}

INSTANTIATE_TEST_SUITE_P(Each, InEachRun, ::testing::Range(1, 5));

TEST_F(PokerRuns, ACardThatTheLogLacksMakesARunUnfinished) {
  ContactWithOrder(1);
  Damage = [&](int, Bytes wire) {
    if (bridge.Sent.back()[0] != 0x20) return wire;
    Bytes plain = test::OffTheWire(wire, 21);
    *std::find(plain.begin() + 8, plain.end(), 1) = 53;  // the numbers 2 to 53
    return test::OnTheWire(plain, 21);
  };
  RunTo(1);
  EXPECT_THAT(LastBox(), ::testing::HasSubstr("has not counted the cards"));
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
  EXPECT_THAT(LastLine(), ::testing::Not(::testing::EndsWith("OK")));
}

TEST_F(PokerRuns, ACardOfTheDealThatIsNotInThePackIsNamed) {
  Contact();
  PokerOrder order = EmptyOrder(1);
  order.Current() = DealInOrder();
  order.Current()[5] = 54;  // a joker, and the pack has none
  poker.Take(order);
  RunTo(1);
  EXPECT_THAT(LastBox(), ::testing::HasSubstr("not come through: JK"));
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
}

TEST_F(PokerRuns, EveryExchangeMayFailOnceAndTwiceIsTheLostLink) {
  // Route, start, 52 polls, card log, pockets; then the three short runs.
  const int perDeal = 52 + 28 + 27 + 27 + 4 * 4;
  for (const test::Harm harm : {test::Harm::kLost, test::Harm::kCorrupted}) {
    for (int target = 0; target < perDeal; ++target) {
      for (const int times : {1, 2}) {
        SCOPED_TRACE(std::to_string(target) + " times " + std::to_string(times));
        Poker other(desk.Prog, machine, memory);
        machine.Link.UsbHandle = 7;
        Damage = nullptr;
        desk.Ui.Boxes.clear();
        other.Open(view);
        desk.Loop.WaitMs(Poker::kFirstContactMs);
        PokerOrder order = EmptyOrder(1);
        FillAtRandom(order, desk.Random);
        other.Take(order);
        exchanges = 0;
        Damage = [&](int n, const Bytes& wire) {
          return n >= target && n < target + times ? test::Harmed(harm, wire) : wire;
        };
        for (int run = 1; run <= 4; ++run) other.Press(ButtonOfRun(run));
        if (times == 1) {
          ASSERT_EQ(Stacked(), order.Current());
          ASSERT_EQ(LastBox(), "   All Deals was successfully dealt    ");
          other.Exit();
        } else {
          ASSERT_EQ(LastBox(), "      Lost Communication with Morvane  -  Dealing Aborted!      ");
          ASSERT_EQ(desk.Ui.Boxes.back().Title, "Dealing Error");
          ASSERT_TRUE(other.Closed());
        }
        bridge.Sent.clear();
      }
    }
  }
}

}  // namespace
}  // namespace morvane::poker
