#include "bridges/replayed_runs.h"
#include "program/setting_keys.h"

namespace morvane::bridges {
namespace {

/// A trace of two boards, the first with a fault, whose runs are begun otherwise now. There is time
/// enough for ten polls before each, so that a board in the slot begins one.
class ReplayedStarts : public ReplayedRuns {
 protected:
  ReplayedStarts() { pauseMs = first.ThinkingMs = 1500; }

  const Script deal = [this](LinkSession& at) { Deal(at); };

  void TraceStartsWith(Start how) {
    starts = how;
    Trace(",speed=0,seed=5,fault=1:20:25", deal);
    ExpectALogOf("  001 : 1,0 0,0,0,0 25 OK");
    ExpectALogOf("  002 : 1,0 0,0,0,0 OK");
  }
  /// The buttons are pressed before what began the run then.
  void ExpectTheSameOfTheButton() {
    starts = Start::kButton;
    pauseMs = second.ThinkingMs = 250;
    ASSERT_EQ(Replay(deal), "");
    ExpectTheSame();
  }
};

TEST_F(ReplayedStarts, AButtonForThePedal) {
  TraceStartsWith(Start::kPedal);
  ExpectTheSameOfTheButton();
}

TEST_F(ReplayedStarts, AButtonForABoard) {
  TraceStartsWith(Start::kBoard);
  ExpectTheSameOfTheButton();
}

TEST_F(ReplayedStarts, ABoardThatStartedARunDoesSoAgain) {
  TraceStartsWith(Start::kBoard);
  ASSERT_EQ(Replay(deal), "");
  ExpectTheSame();
}

TEST_F(ReplayedStarts, AButtonForThePedalInTheBoxOfAFault) {
  first.Answer = [this](machine::ErrorDialog&) { simulated->PressPedal(); };
  TraceStartsWith(Start::kPedal);
  ExpectTheSameOfTheButton();
}

TEST_F(ReplayedStarts, ThePedalInTheBoxOfAFaultClosesItAgain) {
  first.Answer = [this](machine::ErrorDialog&) { simulated->PressPedal(); };
  TraceStartsWith(Start::kPedal);
  second.Answer = [](machine::ErrorDialog&) {};
  ASSERT_EQ(Replay(deal), "");
  ExpectTheSame();
}

TEST_F(ReplayedStarts, AnAnswerThatTakesNoTimeForThePedalInTheBox) {
  first.Answer = [this](machine::ErrorDialog&) { simulated->PressPedal(); };
  TraceStartsWith(Start::kPedal);
  starts = Start::kButton;
  pauseMs = second.ThinkingMs = 0;
  ASSERT_EQ(Replay(deal), "");
  ExpectTheSame();
}

/// Board 2 is in its place only when its box has been answered.
TEST_F(ReplayedStarts, TheLabelOfABoardIsItsOwnAlsoForWhoIsQuicker) {
  for (LinkSession* each : {&first, &second}) {
    each->Desk.Store.Set(kCheckBoard, "1");
    each->Desk.Store.Set(kInitStartFromBox, "0");
  }
  first.Answer = [this](machine::ErrorDialog& dialog) {
    simulated->InsertBoard(2);
    dialog.PressContinue();
  };
  Trace(",speed=0,seed=5", deal, [this] { simulated->InsertBoard(1); });
  ASSERT_EQ(first.Errors.size(), 1U);
  EXPECT_THAT(first.Errors[0], ::testing::EndsWith("|Error Code: 65"));
  ExpectALogOf(" OK");
  ExpectTheSameOfTheButton();
}

TEST_F(ReplayedStarts, ABreakSoonerOrLater) {
  boards = 1;
  breakMs = 6000;
  Trace(",seed=5", deal);
  ExpectALogOf("001 : 1,0 0,0,0,0 57 OK");
  for (const int ms : {2500, 12000}) {
    breakMs = ms;
    ASSERT_EQ(Replay(deal), "") << ms;
    EXPECT_EQ(playback->LeftOver(), "");
    EXPECT_EQ(first.Errors, second.Errors);
    second.Errors.clear();
    second.Disconnect();
  }
}

TEST_F(ReplayedStarts, PressesThatWereForgottenAreAcknowledgedWhereTheTraceHasNone) {
  TraceStartsWith(Start::kButton);
  forgets = true;
  ASSERT_EQ(Replay(deal), "");
  ExpectTheSame();
}

}  // namespace
}  // namespace morvane::bridges
