#include "poker/poker_desk.h"
#include "program/setting_keys.h"
#include "support/frame_list.h"

namespace morvane::poker {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

using PokerWindow = PokerDesk;

std::vector<Button> OrderButtons(std::vector<Button> on) {
  std::erase_if(on, [](Button button) { return button >= Button::FirstDeal; });
  return on;
}

TEST_F(PokerWindow, NothingRunsBeforeTheMachineHasAnswered) {
  poker.Open(view);
  EXPECT_THAT(ButtonsOn(),
              ElementsAre(Button::Generate, Button::Poker_Load, Button::Poker_print_setup));
  EXPECT_TRUE(sim.LatchOn() || !bridge.Calls.empty());
  poker.Press(Button::Generate);
  EXPECT_THAT(RunButtonsOn(), IsEmpty());
  desk.Loop.WaitMs(1999);
  EXPECT_THAT(bridge.Sent, IsEmpty());
  desk.Loop.WaitMs(1);
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
}

TEST_F(PokerWindow, TheFirstContactAsksVersionAndIdentity) {
  poker.Open(view);
  desk.Loop.WaitMs(Poker::kFirstContactMs);
  ASSERT_GE(bridge.Sent.size(), 3U);
  EXPECT_EQ(bridge.Sent[0][0], 0x1A);
  EXPECT_TRUE(test::FramesAre({SentOf(0x12)[0]}, {"12 01 .. .. .. .. .."}));
}

TEST_F(PokerWindow, LargeCardsThatTheMachineCannotDealAreSwitchedOff) {
  desk.Store.Set(kCardIndex, "1");
  simulator::Options options = AtOnce();
  options.Hardware = 0x77;  // bit 3 is off
  Replace(options);
  Contact();
  EXPECT_EQ(poker.Options().Cards.CardIndex, machine::CardSettings::kStandardIndex);
}

TEST_F(PokerWindow, TheDefaultIsTenRandomDeals) {
  Contact();
  poker.Press(Button::Generate);
  const PokerOrder& order = poker.Order();
  EXPECT_EQ(order.PokerDealCount, 10);
  EXPECT_EQ(order.CurrentDeal, 1);
  EXPECT_TRUE(order.PokerOrderExists);
  for (std::size_t deal = 1; deal <= 10; ++deal) {
    std::vector<int> cards(order.PokerDeals[deal].begin() + 1, order.PokerDeals[deal].end());
    EXPECT_THAT(cards, Each(::testing::AllOf(::testing::Ge(1), ::testing::Le(52))));
    std::sort(cards.begin(), cards.end());
    EXPECT_EQ(std::unique(cards.begin(), cards.end()), cards.end());
  }
  EXPECT_EQ(order.PokerDeals[11][1], 0);
  EXPECT_EQ(poker.Label1(), " Ready for first run");
  EXPECT_EQ(poker.Label3(), "");
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
  EXPECT_THAT(
      OrderButtons(ButtonsOn()),
      ElementsAre(Button::Generate, Button::Poker_Load, Button::Poker_Save, Button::Poker_Print,
                  Button::Poker_print_setup, Button::Nextd, Button::Last));
  EXPECT_EQ(poker.NextButton(), Button::FirstDeal);
  EXPECT_EQ(view.Focused, 1);
}

TEST_F(PokerWindow, AnEmptyOrderIsToBeRead) {
  Contact();
  poker.Empty_set = true;
  poker.Number_deals = "100";
  poker.Press(Button::Generate);
  EXPECT_EQ(poker.Order().PokerDealCount, 100);
  for (const PokerDeal& deal : poker.Order().PokerDeals) EXPECT_THAT(deal, Each(0));
  EXPECT_EQ(poker.Label1(), " Ready for read");
  EXPECT_THAT(ButtonsOn(),
              ElementsAre(Button::Generate, Button::Poker_Load, Button::Poker_print_setup,
                          Button::Nextd, Button::Last, Button::Read));
  EXPECT_EQ(poker.NextButton(), Button::Read);
}

TEST_F(PokerWindow, AWrongNumberOfDealsIsRefusedAndNothingChanges) {
  Contact();
  for (const std::string wrong : {"0", "101", "", "-3"}) {
    SCOPED_TRACE(wrong);
    poker.Number_deals = wrong;
    poker.Press(Button::Generate);
    EXPECT_EQ(LastBox(), "    Incorrect number of deals. Allowed values are 1 to 100.     ");
    EXPECT_EQ(poker.Number_deals, "1");
    EXPECT_FALSE(poker.Order().PokerOrderExists);
  }
}

TEST_F(PokerWindow, AnOrderIsOnlyReplacedWhenTheOperatorWants) {
  Contact();
  poker.Press(Button::Generate);
  const PokerDeal deal = poker.Order().Current();
  desk.Ui.Answers = {kCancel};
  poker.Press(Button::Generate);
  EXPECT_EQ(desk.Ui.Boxes.back().Text, "    Discard current order and generate new one?    ");
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Poker Dealing");
  EXPECT_EQ(poker.Order().Current(), deal);
  desk.Ui.Answers = {kOk};
  poker.Press(Button::Generate);
  EXPECT_NE(poker.Order().Current(), deal);
  desk.Ui.Answers = {kCancel};
  poker.Press(Button::Poker_Load);
  EXPECT_EQ(desk.Ui.Boxes.back().Text, "    Discard current order and load new one?    ");
  EXPECT_THAT(desk.Ui.FileRequests, IsEmpty());
}

TEST_F(PokerWindow, TheTextsAreEmptiedByANewOrder) {
  Contact();
  poker.Write(&PokerOrder::Poker_Event, "Friday");
  poker.Press(Button::Generate);
  EXPECT_EQ(poker.Order().Poker_Event, "");
}

TEST_F(PokerWindow, TheWalkGoesByThePlace) {
  Contact();
  poker.Number_deals = "3";
  poker.Press(Button::Generate);
  const auto walk = [this] {
    auto on = ButtonsOn();
    std::erase_if(on,
                  [](Button button) { return button < Button::First || button > Button::Last; });
    return on;
  };
  EXPECT_THAT(walk(), ElementsAre(Button::Nextd, Button::Last));
  poker.Press(Button::Nextd);
  EXPECT_EQ(poker.Order().CurrentDeal, 2);
  EXPECT_THAT(walk(), ElementsAre(Button::First, Button::Prevoius, Button::Nextd, Button::Last));
  poker.Press(Button::Last);
  EXPECT_EQ(poker.Order().CurrentDeal, 3);
  EXPECT_THAT(walk(), ElementsAre(Button::First, Button::Prevoius));
  poker.Press(Button::Nextd);
  EXPECT_EQ(poker.Order().CurrentDeal, 3) << "that one is off";
  poker.Press(Button::Prevoius);
  EXPECT_EQ(poker.Order().CurrentDeal, 2);
  poker.Press(Button::First);
  EXPECT_EQ(poker.Order().CurrentDeal, 1);
}

TEST_F(PokerWindow, AtASingleDealThereIsNoWalk) {
  ContactWithOrder(1);
  EXPECT_THAT(ButtonsOn(), Not(Contains(::testing::AnyOf(Button::First, Button::Prevoius,
                                                         Button::Nextd, Button::Last))));
}

// The four runs.

TEST_F(PokerWindow, TheStatusLinesLeadThroughTheRuns) {
  ContactWithOrder(2);
  std::vector<std::string> running;
  view.OnStatus = [&] {
    if (!poker.Stage().Running) return;
    if (running.empty() || running.back() != poker.Label1()) running.push_back(poker.Label1());
    EXPECT_EQ(poker.Label3().find("Start"), std::string::npos) << "an old advice";
  };
  Press(Button::FirstDeal);
  EXPECT_EQ(poker.Label1(), " First Run done. Put cards from EWS back to the feeder.");
  EXPECT_EQ(poker.Label3(), " E on the top , S on the bottom.  Start second run");
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::SecondDeal, Button::CancelDeal));
  EXPECT_THAT(OrderButtons(ButtonsOn()),
              ElementsAre(Button::Poker_Save, Button::Poker_Print, Button::Poker_print_setup));
  Press(Button::SecondDeal);
  EXPECT_EQ(poker.Label1(), " Second run done. Put cards from EWS back to the feeder.");
  EXPECT_EQ(poker.Label3(), " E on the top , S on the bottom.  Start third run");
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::ThirdDeal, Button::CancelDeal));
  Press(Button::ThirdDeal);
  EXPECT_EQ(poker.Label1(), " Run Deal done. Put cards from EWS back to the feeder.");
  EXPECT_EQ(poker.Label3(), " E on the top , S on the bottom.  Start fourth run");
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FourthDeal, Button::CancelDeal));
  Press(Button::FourthDeal);
  EXPECT_EQ(poker.Label1(), " Done... Ready for next deal");
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::NextDeal));
  Press(Button::NextDeal);
  EXPECT_EQ(poker.Order().CurrentDeal, 2);
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::SecondDeal, Button::CancelDeal));
  EXPECT_THAT(running, ElementsAre(" First Run running...", " Second Run running...",
                                   " Third Run running...", " Fourth run running...",
                                   " First Run running..."));
}

TEST_F(PokerWindow, AfterTheLastDealTheFirstIsReadyAgain) {
  ContactWithOrder(2);
  RunTo(4);
  Press(Button::NextDeal);
  for (const int run : {2, 3, 4}) Press(ButtonOfRun(run));
  EXPECT_EQ(LastBox(), "   All Deals was successfully dealt    ");
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Poker Dealing");
  EXPECT_EQ(poker.Order().CurrentDeal, 1);
  EXPECT_EQ(poker.Label1(), "Ready for first run");
  EXPECT_EQ(poker.Label3(), "");
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
}

TEST_F(PokerWindow, CancelBetweenTheRunsGoesBackToTheFirstAndAsksTheMachineNothing) {
  ContactWithOrder(1);
  RunTo(2);
  bridge.Sent.clear();
  const int focused = view.Focused;
  Press(Button::CancelDeal);
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_EQ(poker.Label1(), " Ready for first run");
  EXPECT_EQ(poker.Label3(), "");
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
  EXPECT_EQ(poker.NextButton(), Button::FirstDeal);
  EXPECT_EQ(view.Focused, focused + 1);
}

TEST_F(PokerWindow, BehindADealTheWalkLeadsToAFirstRun) {
  ContactWithOrder(3);
  RunTo(4);
  Press(Button::Last);
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
  EXPECT_EQ(poker.Label1(), " Ready for first run");
}

TEST_F(PokerWindow, ADealWithAnEmptySlotOrACardTwiceIsNotStarted) {
  Contact();
  PokerOrder order = EmptyOrder(3);
  order.PokerDeals[1] = DealInOrder();
  order.PokerDeals[1][17] = 0;
  order.PokerDeals[2] = DealInOrder();
  order.PokerDeals[2][21] = 4;
  poker.Take(order);
  poker.Press(Button::FirstDeal);
  EXPECT_THAT(LastBox(), ::testing::HasSubstr("Slot 17 of this deal is empty."));
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Poker Dealing");
  poker.Press(Button::Nextd);
  poker.Press(Button::FirstDeal);
  EXPECT_THAT(LastBox(), ::testing::HasSubstr("Slot 21 of this deal holds the card of slot 4."));
  EXPECT_THAT(bridge.Sent, IsEmpty());
  desk.Loop.WaitMs(100);
  EXPECT_THAT(SentOf(0x19), Not(IsEmpty())) << "the polling goes on";
}

TEST_F(PokerWindow, NextDealStopsAtADealThatCannotBeStacked) {
  Contact();
  PokerOrder order = EmptyOrder(2);
  order.PokerDeals[1] = DealInOrder();
  order.PokerDeals[2] = DealInOrder();
  order.PokerDeals[2][28] = 0;
  poker.Take(order);
  RunTo(4);
  bridge.Sent.clear();
  Press(Button::NextDeal);
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_EQ(poker.Order().CurrentDeal, 2);
  EXPECT_THAT(LastBox(), ::testing::HasSubstr("Slot 28 of this deal is empty."));
}

TEST_F(PokerWindow, WhileCardsRunNothingElseIsOn) {
  ContactWithOrder(2);
  int looks = 0;
  OnCommand = [&](const test::Bytes& plain) {
    if (plain[0] != 0x19 || ++looks != 5) return;
    EXPECT_THAT(ButtonsOn(), IsEmpty());
    poker.Press(Button::Generate);
    poker.Press(Button::Nextd);
    poker.Press(Button::FirstDeal);
  };
  Press(Button::FirstDeal);
  EXPECT_EQ(SentOf(0x98).size(), 1U);
  EXPECT_EQ(poker.Order().CurrentDeal, 1);
}

TEST_F(PokerWindow, TheStageTellsWhichPilesAreCarried) {
  ContactWithOrder(1);
  EXPECT_EQ(poker.Stage().What, PokerStage::Task::kDeal);
  EXPECT_THAT(poker.Stage().Carried, ElementsAre(0, 0, 0));
  Press(Button::FirstDeal);
  EXPECT_EQ(poker.Stage().Done, 1);
  EXPECT_THAT(poker.Stage().Carried, ElementsAre(10, 9, 9));
  EXPECT_EQ(poker.Stage().Staying, 24);
  Press(Button::SecondDeal);
  EXPECT_THAT(poker.Stage().Carried, ElementsAre(9, 9, 9));
  EXPECT_EQ(poker.Stage().Staying, 25);
}

TEST_F(PokerWindow, TheStageCountsTheCardsOfTheRun) {
  ContactWithOrder(1);
  RunTo(1);
  int most = 0;
  view.OnStatus = [&] {
    if (!poker.Stage().Running) return;
    EXPECT_EQ(poker.Stage().Count, 28);
    EXPECT_LE(poker.Stage().Fallen, 28);
    most = std::max(most, poker.Stage().Fallen);
  };
  Press(Button::SecondDeal);
  EXPECT_EQ(most, 28);
}

TEST_F(PokerWindow, EachRunHasItsLineInTheLog) {
  ContactWithOrder(1);
  RunTo(2);
  const auto lines = desk.LogLines();
  EXPECT_THAT(lines, Contains("  Poker: Deal 1, run 1 OK"));
  EXPECT_EQ(lines.back(), "  Poker: Deal 1, run 2 OK");
  sim.CarryNext(simulator::Carry::kPilesSwapped);
  view.Answers = {machine::Cancel};
  Press(Button::ThirdDeal);
  EXPECT_EQ(LastLine(), "  Poker: Deal 1, run 3 62");
}

// Leaving.

TEST_F(PokerWindow, LeavingLosesTheOrderWithoutAQuestionAndClosesTheLink) {
  ContactWithOrder(1);
  poker.CloseBox();
  EXPECT_TRUE(poker.Closed());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_FALSE(machine.Link.IsOpen());
  EXPECT_EQ(view.Closings, 1);
}

TEST_F(PokerWindow, TheBridgeSetIsNotTouched) {
  test::FillSet(desk.Prog.Set, 1, 3);
  const BoardSet before = desk.Prog.Set;
  ContactWithOrder(1);
  RunTo(4);
  ASSERT_TRUE(sim.PutBackPack());
  poker.Take(EmptyOrder(1));
  Press(Button::Read);
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, before.CurrentBoard);
  for (int n = 1; n <= 3; ++n) {
    EXPECT_EQ(desk.Prog.Set.At(n).Cards, before.At(n).Cards);
  }
}

TEST_F(PokerWindow, AnOrderIsSavedAndLoaded) {
  Contact();
  poker.Press(Button::Generate);
  const PokerOrder order = poker.Order();
  const std::string path = desk.Folder / "evening.pkr";
  desk.Ui.Files = {path};
  poker.Press(Button::Poker_Save);
  EXPECT_EQ(poker.Order().Poker_File, "evening.pkr");
  poker.Press(Button::Generate);
  EXPECT_EQ(poker.Order().Poker_File, "");
  desk.Ui.Files = {path};
  poker.Press(Button::Poker_Load);
  EXPECT_EQ(poker.Order().PokerDeals, order.PokerDeals);
  EXPECT_EQ(poker.Order().CurrentDeal, 1);
  EXPECT_EQ(poker.Label1(), " Ready for first run");
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
}

TEST_F(PokerWindow, TheListIsPrintedInTheCopiesOfThePrintersDialog) {
  ContactWithOrder(3);
  desk.ThePrinter.Confirmed = 4;
  poker.Press(Button::Poker_print_setup);
  poker.Press(Button::Poker_Print);
  ASSERT_EQ(desk.ThePrinter.Jobs.size(), 1U);
  EXPECT_EQ(desk.ThePrinter.Jobs[0].Copies, 4);
}

}  // namespace
}  // namespace morvane::poker
