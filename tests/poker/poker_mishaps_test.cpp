// What comes between: boxes, the pedal at the wrong time, a lost link, the end of the program.

#include "machine/run_status.h"
#include "poker/pkr_file.h"
#include "poker/poker_desk.h"
#include "program/setting_keys.h"

namespace morvane::poker {
namespace {

using machine::Cancel;
using machine::Continue;
using test::Bytes;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kLost = "      Lost Communication with Morvane  -  Dealing Aborted!      ";

class PokerMishaps : public PokerDesk {
 protected:
  void Silence() {
    Damage = [](int, const Bytes&) { return Bytes{}; };
  }
  [[nodiscard]] bool GoesOn() const { return bridge.Sent.back()[1] == 1; }
  /// The stage as each box found it.
  std::vector<PokerStage> stages;
  void NoteStages() {
    desk.Ui.OnBox = [this] { stages.push_back(poker.Stage()); };
  }
  /// A file whose third deal is none.
  std::string HalfAFile() {
    PokerOrder order = EmptyOrder(2);
    FillAtRandom(order, desk.Random);
    test::WriteContent(desk.Folder / "half.pkr", PokerFileBytes(order) + "\r\n");
    return desk.Folder / "half.pkr";
  }
};

// Boxes: nothing behind them may say what is no longer true.

TEST_F(PokerMishaps, BehindTheBoxOfTheLastDealAllFourRunsAreDone) {
  ContactWithOrder(1);
  NoteStages();
  RunTo(4);
  ASSERT_EQ(stages.size(), 1U);
  EXPECT_EQ(stages[0].Done, 4);
  EXPECT_THAT(stages[0].Carried, Each(0));
}

TEST_F(PokerMishaps, BehindTheBoxOfAnUnfinishedRunNothingIsToBeCarried) {
  ContactWithOrder(1);
  RunTo(1);
  NoteStages();
  Damage = [&](int, Bytes wire) {
    if (bridge.Sent.back()[0] != 0x20) return wire;
    Bytes plain = test::OffTheWire(wire, 21);
    *std::find(plain.begin() + 8, plain.end(), 1) = 53;
    return test::OnTheWire(plain, 21);
  };
  Press(Button::SecondDeal);
  ASSERT_EQ(stages.size(), 1U);
  EXPECT_EQ(stages[0].Done, 0);
  EXPECT_THAT(stages[0].Carried, Each(0));
}

TEST_F(PokerMishaps, BehindTheBoxOfALostLinkNothingIsToBeCarried) {
  ContactWithOrder(1);
  RunTo(1);
  NoteStages();
  Silence();
  Press(Button::SecondDeal);
  ASSERT_EQ(stages.size(), 1U);
  EXPECT_EQ(LastBox(), kLost);
  EXPECT_THAT(stages[0].Carried, Each(0));
}

// A file that is no order.

TEST_F(PokerMishaps, DealsOfAHalfReadFileAreReadyForTheirFirstRun) {
  Contact();
  poker.Empty_set = true;
  poker.Number_deals = "3";
  poker.Press(Button::Generate);
  ASSERT_EQ(poker.Label1(), " Ready for read");
  desk.Ui.Files = {HalfAFile()};
  poker.Press(Button::Poker_Load);
  ASSERT_EQ(LastBox(), "File Format Error");
  EXPECT_EQ(poker.Order().PokerDealCount, 3);
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
  EXPECT_EQ(poker.Label1(), " Ready for first run");
  EXPECT_TRUE(poker.IsOn(Button::Poker_Save));
}

TEST_F(PokerMishaps, AHalfReadFileEndsTheDealWhoseCardsItHasReplaced) {
  ContactWithOrder(3);
  RunTo(4);
  desk.Ui.Files = {HalfAFile()};
  poker.Press(Button::Poker_Load);
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::FirstDeal));
  EXPECT_EQ(poker.Stage().Done, 0);
  EXPECT_EQ(poker.Label1(), " Ready for first run");
}

TEST_F(PokerMishaps, AHalfReadFileIsNoOrderWhereThereWasNone) {
  Contact();
  desk.Ui.Files = {HalfAFile()};
  poker.Press(Button::Poker_Load);
  EXPECT_THAT(ButtonsOn(),
              ElementsAre(Button::Generate, Button::Poker_Load, Button::Poker_print_setup));
  EXPECT_EQ(poker.Label1(), "");
}

TEST_F(PokerMishaps, AFileThatIsNotChosenOrNotThereChangesNothing) {
  ContactWithOrder(2);
  RunTo(4);
  poker.Press(Button::Poker_Load);
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::NextDeal));
  desk.Ui.Files = {desk.Folder / "none.pkr"};
  poker.Press(Button::Poker_Load);
  EXPECT_EQ(desk.Ui.Boxes.back().Title, "Load Error");
  EXPECT_THAT(RunButtonsOn(), ElementsAre(Button::NextDeal));
  EXPECT_EQ(poker.Label1(), " Done... Ready for next deal");
}

// Settings.

TEST_F(PokerMishaps, TheCheckOfBoardsIsLeftToTheRunsThatHaveBoards) {
  desk.Store.Set(kCheckBoard, "1");
  simulator::Options options = AtOnce();
  options.Hardware = 0;
  Replace(options);
  Contact();
  EXPECT_EQ(desk.Store.Get(kCheckBoard), "1");
}

// The pedal.

TEST_F(PokerMishaps, ThePedalInARunStartsNoOther) {
  ContactWithOrder(1);
  int polls = 0;
  OnCommand = [&](const Bytes& plain) {
    if (plain[0] == 0x19 && ++polls == 20) sim.PressPedal();
  };
  Press(Button::FirstDeal);
  desk.Loop.WaitMs(1000);
  EXPECT_EQ(SentOf(0x9F).size(), 1U) << "nobody has carried the piles";
}

TEST_F(PokerMishaps, ThePedalBehindTheBoxOfTheLastDealDoesNotDealTheFirstAgain) {
  ContactWithOrder(1);
  desk.Ui.OnBox = [this] {
    sim.PressPedal();
    desk.Loop.WaitMs(500);
  };
  RunTo(4);
  desk.Loop.WaitMs(1000);
  EXPECT_EQ(SentOf(0x9F).size(), 4U);
}

TEST_F(PokerMishaps, ThePedalReadsTheNextPack) {
  Contact();
  poker.Empty_set = true;
  poker.Number_deals = "3";
  poker.Press(Button::Generate);
  Press(Button::Read);
  sim.PressPedal();
  desk.Loop.WaitMs(300);
  EXPECT_EQ(SentOf(0x9F).size(), 2U);
  EXPECT_NE(poker.Order().PokerDeals[2][1], 0);
  EXPECT_EQ(poker.Order().PokerDeals[3][1], 0);
}

// Faults.

TEST_F(PokerMishaps, ContinueGoesOnOnceThePilesAreInTheEmptyFeeder) {
  ContactWithOrder(1);
  for (int run = 1; run <= 3; ++run) {
    SCOPED_TRACE(run);
    Press(ButtonOfRun(run));
    sim.CarryNext(simulator::Carry::kNothing);
    view.Answers.emplace_back(Continue);
  }
  Press(Button::FourthDeal);
  EXPECT_EQ(view.Errors, std::vector<std::string>(3, view.Errors.at(0)));
  EXPECT_THAT(view.Errors[0], ::testing::HasSubstr("Error Code: 55"));
  EXPECT_EQ(Stacked(), poker.Order().PokerDeals[1]);
}

// Each may fail once; the second time in a row the link is lost.
TEST_F(PokerMishaps, TheProbeOfACancelledRunAndTheStartThatGoesOnMayFailOnce) {
  for (const int code : {0x1A, 0x98}) {
    for (const int times : {1, 2}) {
      SCOPED_TRACE(std::to_string(code) + " times " + std::to_string(times));
      Poker other(desk.Prog, machine, memory);
      machine.Link.UsbHandle = 7;
      desk.Ui.Boxes.clear();
      other.Open(view);
      desk.Loop.WaitMs(Poker::kFirstContactMs);
      PokerOrder order = EmptyOrder(1);
      FillAtRandom(order, desk.Random);
      other.Take(order);
      other.Press(Button::FirstDeal);
      view.Answers = {code == 0x1A ? Cancel : Continue};
      sim.CarryNext(simulator::Carry::kNothing);
      int harmed = 0;
      Damage = [&](int, const Bytes& wire) {
        const bool hit = bridge.Sent.back()[0] == code && (code == 0x1A || GoesOn());
        return hit && ++harmed <= times ? Bytes{} : wire;
      };
      other.Press(Button::SecondDeal);
      Damage = nullptr;
      EXPECT_EQ(harmed, 2) << "it is sent again, once";
      EXPECT_EQ(other.Closed(), times == 2);
      EXPECT_EQ(LastBox(), times == 2 ? kLost : "");
      EXPECT_EQ(other.IsOn(Button::FirstDeal), times == 1 && code == 0x1A);
      EXPECT_EQ(other.IsOn(Button::ThirdDeal), times == 1 && code == 0x98);
      other.Exit();
    }
  }
}

TEST_F(PokerMishaps, ALinkLostInTheErrorDialogIsToldAndClosesTheWindow) {
  ContactWithOrder(1);
  RunTo(1);
  sim.CarryNext(simulator::Carry::kPilesSwapped);
  view.Answers = {[this](machine::ErrorDialog&) { Silence(); }};
  Press(Button::SecondDeal);
  ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "            Lost Communication with Dealer  -  Dealing Aborted             ");
  EXPECT_EQ(desk.Ui.Boxes[1].Text, kLost);
  EXPECT_TRUE(poker.Closed());
  EXPECT_EQ(view.Closings, 1);
}

TEST_F(PokerMishaps, TheEndOfTheProgramInTheErrorDialogCancelsAndCloses) {
  ContactWithOrder(1);
  RunTo(1);
  sim.CarryNext(simulator::Carry::kPilesSwapped);
  view.Answers = {[this](machine::ErrorDialog&) { desk.Loop.Quit(); }};
  Press(Button::SecondDeal);
  EXPECT_TRUE(poker.Closed());
  EXPECT_FALSE(machine.Link.IsOpen());
  EXPECT_EQ(LastLine(), "  Poker: Deal 1, run 2 62");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(PokerMishaps, TheFirstContactWaitsForABoxThatIsOpen) {
  Silence();
  poker.Open(view);
  bool first = true;
  desk.Ui.OnBox = [&] {
    if (!std::exchange(first, false)) return;
    desk.Loop.WaitMs(3000);
    EXPECT_FALSE(poker.Closed()) << "not behind the box";
    EXPECT_THAT(bridge.Sent, IsEmpty());
  };
  poker.Number_deals = "0";
  poker.Press(Button::Generate);
  EXPECT_FALSE(poker.Closed());
  desk.Loop.WaitMs(2000);  // the time of its tries
  EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg047);
  EXPECT_TRUE(poker.Closed());
  EXPECT_EQ(view.Closings, 1);
  EXPECT_THAT(ButtonsOn(), IsEmpty());
  EXPECT_FALSE(machine.PollLock) << "no other window is kept from polling";
}

TEST_F(PokerMishaps, BehindALostLinkTheNextWindowBeginsAfresh) {
  Contact();
  Silence();
  desk.Loop.WaitMs(300);
  ASSERT_EQ(LastBox(), kLost);
  ASSERT_TRUE(poker.Closed());
  Damage = nullptr;
  machine.Link.UsbHandle = 7;
  Poker other(desk.Prog, machine, memory);
  other.Open(view);
  EXPECT_EQ(machine::StatusLine(machine::StatusOf(other)), "Waiting for the machine ...");
  // The first contact waits for a box.
  desk.Ui.OnBox = [this] { desk.Loop.WaitMs(3000); };
  other.Number_deals = "0";
  other.Press(Button::Generate);
  desk.Ui.OnBox = nullptr;
  PokerOrder order = EmptyOrder(1);
  FillAtRandom(order, desk.Random);
  other.Take(order);
  desk.Loop.WaitMs(300);  // what came behind the box is forgotten
  bridge.Sent.clear();
  sim.PressPedal();
  desk.Loop.WaitMs(300);
  EXPECT_EQ(SentOf(0x9F).size(), 1U) << "the machine is polled";
  other.Exit();
}

}  // namespace
}  // namespace morvane::poker
