#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "poker/ui/poker_desk.h"
#include "poker/ui/steps_picture.h"

// The window while cards run.

namespace morvane::poker {
namespace {

using ::testing::IsEmpty;

class PokerRunsTest : public PokerDesk {
 protected:
  /// A press that came behind a box would be forgotten.
  void PressPedal() {
    desk.Loop.WaitMs(300);
    simulated.PressPedal();
  }
  [[nodiscard]] std::string Steps() const {
    return test::Find<StepsPicture>(*window, "picSteps").SpokenText().toStdString();
  }
};

TEST_F(PokerRunsTest, EnterGoesFromRunToRunAndToTheNextDeal) {
  Order("2");
  for (const char* next : {"SecondDeal", "ThirdDeal", "FourthDeal", "NextDeal", "SecondDeal"}) {
    Press(Qt::Key_Return);
    EXPECT_EQ(FocusName(), next);
    EXPECT_TRUE(Enabled(next));
  }
  EXPECT_EQ(Text("Deal_label"), "Deal: 2 of 2");
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(PokerRunsTest, SpaceAndTheLettersDoTheSame) {
  Order();
  Press(Qt::Key_Space);
  EXPECT_EQ(FocusName(), "SecondDeal");
  PressLetter(Qt::Key_D, "SecondDeal");
  EXPECT_EQ(FocusName(), "ThirdDeal");
  PressLetter(Qt::Key_T, "ThirdDeal");
  EXPECT_EQ(FocusName(), "FourthDeal");
  PressLetter(Qt::Key_R, "CancelDeal");
  EXPECT_EQ(FocusName(), "FirstDeal");
  EXPECT_EQ(Text("Label1") + Text("Label3"), "Ready for first run");
}

TEST_F(PokerRunsTest, BetweenTheRunsTheTextsAndThePictureSayWhatToDo) {
  Order();
  EXPECT_EQ(
      Steps(),
      "First Run next, Second Run to come, Third Run to come, Fourth Run to come. Put a whole "
      "pack into the feeder: Pack, 52 cards.");
  Click("FirstDeal");
  EXPECT_EQ(Text("Label1"), "First Run done. Put cards from EWS back to the feeder.");
  EXPECT_EQ(Text("Label3"), "E on the top , S on the bottom.  Start second run");
  EXPECT_EQ(
      Steps(),
      "First Run done, Second Run next, Third Run to come, Fourth Run to come. Put the piles "
      "into the feeder: East, 10 cards, on top; West, 9 cards; South, 9 cards, at the bottom; "
      "North, 24 cards, stays.");
  Click("SecondDeal");
  EXPECT_EQ(Steps(),
            "First Run done, Second Run done, Third Run next, Fourth Run to come. Put the piles "
            "into the feeder: East, 9 cards, on top; West, 9 cards; South, 9 cards, at the bottom; "
            "North, 25 cards, stays.");
}

TEST_F(PokerRunsTest, WhileCardsRunOnlyExitIsOnAndTheBarGrows) {
  Order();
  Focus("Poker_Site");
  int early = 0;
  MeanwhileAt(kMidRun, [&] {
    EXPECT_EQ(On(), "cmdExit");
    for (const char* name : {"Number_deals", "Random", "Empty_set", "Poker_Event", "Poker_Site",
                             "Poker_Date", "Card_Index_st", "Card_Index_j"}) {
      EXPECT_FALSE(Enabled(name)) << name;
    }
    EXPECT_EQ(Text("txtStatus"), "Busy");
    EXPECT_EQ(Text("Label1"), "First Run running...");
    early = Bar();
    const auto& bar = test::Find<QProgressBar>(*window, "RunProgress");
    EXPECT_EQ(bar.maximum(), 52);
    EXPECT_EQ(bar.text().toStdString(), std::to_string(early) + " of 52 cards");
  });
  MeanwhileAt(2 * kMidRun, [&] { EXPECT_GT(Bar(), early + 5); });
  Click("FirstDeal");
  EXPECT_GT(early, 5);
  EXPECT_FALSE(Visible("RunProgress"));
  EXPECT_EQ(Text("txtStatus"), "Idle");
}

TEST_F(PokerRunsTest, KeysInARunStartAndBreakNothing) {
  Order();
  for (int ms = 500; ms < 10000; ms += 500) {
    MeanwhileAt(ms, [this] {
      for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Tab}) Press(key);
    });
  }
  Press(Qt::Key_Return);
  EXPECT_EQ(FocusName(), "SecondDeal");
  EXPECT_EQ(poker.Stage().Done, 1);
}

TEST_F(PokerRunsTest, AKeyThatWasMeantForExitDoesNotBreakARunOfThePedal) {
  Order();
  Focus("cmdExit");
  MeanwhileAt(kMidRun, [this] {
    EXPECT_EQ(FocusName(), "");
    Press(Qt::Key_Space);
    Press(Qt::Key_Return);
  });
  PressPedal();
  desk.Loop.WaitMs(200);
  EXPECT_EQ(poker.Stage().Done, 1);
}

TEST_F(PokerRunsTest, EnterThatIsHeldDownStartsOneRun) {
  Order();
  Press(Qt::Key_Return);
  for (int repeat = 0; repeat < 5; ++repeat) {
    QWidget* at = window->focusWidget();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(at, &held);
  }
  EXPECT_EQ(poker.Stage().Done, 1);
}

TEST_F(PokerRunsTest, WhatIsBeingTypedWhenThePedalStartsARunIsKept) {
  Order();
  Focus("Poker_Event");
  test::Type(*window, "Fri");
  MeanwhileAt(kMidRun, [this] {
    EXPECT_FALSE(Enabled("Poker_Event"));
    EXPECT_EQ(Text("Poker_Event"), "Fri");
  });
  PressPedal();
  desk.Loop.WaitMs(200);
  EXPECT_EQ(poker.Stage().Done, 1);
  EXPECT_EQ(Text("Poker_Event"), "Fri");
  EXPECT_EQ(poker.Order().Poker_Event, "Fri");
  EXPECT_EQ(FocusName(), "SecondDeal");
}

TEST_F(PokerRunsTest, ANumberThatIsBeingTypedIsKeptToo) {
  Order();
  Focus("Number_deals");
  test::Find<QLineEdit>(*window, "Number_deals").selectAll();
  test::Type(*window, "25");
  PressPedal();
  desk.Loop.WaitMs(200);
  EXPECT_EQ(poker.Stage().Done, 1);
  EXPECT_EQ(Text("Number_deals"), "25");
  EXPECT_EQ(poker.Number_deals, "25");
}

TEST_F(PokerRunsTest, EscapeTheCloseBoxAndExitBreakTheRunAndTheWindowStays) {
  Order();
  for (const auto& leave : {std::function<void()>([this] { Press(Qt::Key_Escape); }),
                            {[this] { window->close(); }},
                            {[this] { Click("cmdExit"); }}}) {
    MeanwhileAt(kMidRun, leave);
    MeanwhileAt(kMidRun + 1, [this] { EXPECT_TRUE(window->isVisible()); });
    Click("FirstDeal");
    EXPECT_FALSE(poker.Closed());
    EXPECT_EQ(poker.Stage().Done, 0);
    EXPECT_EQ(FocusName(), "FirstDeal");
    EXPECT_EQ(Text("Label1"), "Ready for first run");
    EXPECT_FALSE(simulated.Busy());
  }
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(PokerRunsTest, ClosedTwiceInARunItGoes) {
  Order();
  MeanwhileAt(kMidRun, [this] {
    window->close();
    window->close();
  });
  Click("FirstDeal");
  EXPECT_TRUE(poker.Closed());
  EXPECT_FALSE(window->isVisible());
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(PokerRunsTest, AFaultIsToldOverTheWindowAndCanBeContinued) {
  Order();
  MeanwhileAt(kMidRun, [this] { simulated.CauseFault(25); });
  desk.When("Error_disp", [this](QWidget& error) {
    EXPECT_EQ(Text("txtStatus"), "Error");
    EXPECT_EQ(error.parentWidget(), window.get());
    test::Click(error, "Continue_button");
  });
  Click("FirstDeal");
  EXPECT_EQ(FocusName(), "SecondDeal");
}

TEST_F(PokerRunsTest, AWrongCarryIsToldAndCancelGoesBackToTheFirstRun) {
  Order();
  Click("FirstDeal");
  simulated.CarryNext(simulator::Carry::kPilesSwapped);
  desk.When("Error_disp", [](QWidget& error) {
    EXPECT_EQ(test::TextOf(error, "Error_label"), "Incorrect Card Order");
    test::Click(error, "Cancel2");
  });
  Click("SecondDeal");
  EXPECT_EQ(FocusName(), "FirstDeal");
  EXPECT_EQ(On(),
            "Generate,Poker_Load,Poker_Save,Poker_Print,Poker_print_setup,Nextd,Last,FirstDeal,"
            "cmdExit");
}

TEST_F(PokerRunsTest, AMachineThatIsSwitchedOffClosesTheWindowBehindItsBox) {
  Order();
  MeanwhileAt(kMidRun, [this] { simulated.PowerOff(); });
  desk.When("MessageBox", [this](QWidget& box) {
    EXPECT_EQ(Text("txtStatus"), "Down");
    EXPECT_EQ(Text("lblProgress"), "Lost communication with the machine");
    box.close();
  });
  Click("FirstDeal");
  EXPECT_TRUE(poker.Closed());
  EXPECT_FALSE(window->isVisible());
}

TEST_F(PokerRunsTest, ReadingFillsTheDealAndBringsToTheNext) {
  Contact();
  poker.Number_deals = "2";
  Click("Empty_set");
  Click("Generate");
  EXPECT_EQ(Steps(),
            "Ready to read. Put the stacked pack into the feeder: Pack, 52 cards, as it lies.");
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("Label1"), "Ready for next read");
  EXPECT_EQ(FocusName(), "ReadNext");
  EXPECT_EQ(Steps(),
            "Ready to read. Put the stacked pack into the feeder: Pack, 52 cards, as it lies.");
  EXPECT_TRUE(Enabled("Poker_Save") && Enabled("Poker_Print"));
  desk.AnswerBox(QMessageBox::Ok);
  PressLetter(Qt::Key_X, "ReadNext");
  EXPECT_EQ(Text("Deal_label"), "Deal: 1 of 2") << "all have been read";
}

}  // namespace
}  // namespace morvane::poker
