#include <QAbstractButton>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <algorithm>
#include <set>

#include "machine/ui/run_window.h"

namespace morvane::machine {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Opening = RunWindow;
using Dealing = RunWindow;
using Breaking = RunWindow;
using EndOfSet = RunWindow;
using Closing = RunWindow;

constexpr int kMidBoard = 5000;  // milliseconds

TEST_F(Opening, NothingCanBePressedUntilTheMachineHasAnswered) {
  Open();
  EXPECT_EQ(Text("txtStatus"), "Down");
  EXPECT_EQ(Counts(), "   ");
  for (const char* name : {"cmdDeal", "Deal_next", "cmdBreak", "cmdExit", "cmdFirst", "cmdPrev",
                           "cmdNext", "cmdLast"}) {
    EXPECT_FALSE(Enabled(name)) << name;
  }
  for (const char* name : {"National_1", "CardType_1", "Threshold_1", "Card_Index_st",
                           "Start_from_box", "Check_board"}) {
    EXPECT_FALSE(Visible(name)) << name;
  }
}

TEST_F(Opening, NoScrollBarStandsBesideTheOptionsThatAreNotThereYet) {
  const auto bars = [this] {
    window->resize(851, 448);
    desk.Loop.Pump();
    const auto all = window->findChildren<QScrollBar*>();
    return std::count_if(all.begin(), all.end(), [](const auto* bar) { return bar->isVisible(); });
  };
  Open();
  EXPECT_EQ(bars(), 0);
  const auto& picture = test::Find<QWidget>(*window, "Picture1");
  const int before = picture.width();
  desk.Loop.WaitMs(DealingRun::kFirstContactMs + 100);
  EXPECT_EQ(bars(), 1);
  EXPECT_NEAR(picture.width(), before, 20) << "gives way to the bar alone";
}

TEST_F(Opening, TheTitleAndTheLogSayThatTheMachineIsSimulated) {
  Contact();
  EXPECT_EQ(window->windowTitle(), "Morvane - Dealing - Simulated machine");
  const auto lines = desk.LogLines();
  ASSERT_GE(lines.size(), 2U);
  EXPECT_THAT(lines[lines.size() - 2], ::testing::StartsWith("  S/N:4711 "));
  EXPECT_EQ(lines.back(), " Machine: simulated");
}

TEST_F(Opening, TheTitleOfARealMachinesRunHasNoAddition) {
  Machine real(desk.Random, simulated);
  DealingRun realRun(desk.Prog, real, memory);
  const DealinProg realWindow(desk.Prog, realRun, &mainWindow);
  EXPECT_EQ(realWindow.windowTitle(), "Morvane - Dealing");
}

TEST_F(Opening, TwoSecondsLaterTheMachineIsIdleAndTheControlsAreThere) {
  Contact();
  EXPECT_EQ(Text("txtStatus"), "Idle");
  for (const char* name : {"cmdDeal", "cmdExit", "cmdNext", "cmdLast", "National_7", "CardType_2",
                           "Threshold_3", "Card_Index_sm", "Start_from_box", "Check_board"}) {
    EXPECT_TRUE(Enabled(name) && Visible(name)) << name;
  }
  EXPECT_FALSE(Enabled("Deal_next") || Enabled("cmdBreak"));
  EXPECT_EQ(FocusName(), "cmdDeal");
}

TEST_F(Opening, AMachineThatIsOffClosesTheWindowAgain) {
  simulated.PowerOff();
  Open();
  desk.AnswerBox(QMessageBox::Ok);
  desk.Loop.WaitMs(4000);
  ASSERT_EQ(desk.Boxes.size(), 1U);
  EXPECT_EQ(desk.Boxes[0].Title, "Communication Error");
  EXPECT_EQ(desk.Boxes[0].Text,
            "Cannot communicate with Morvane.\n"
            "Please check if power is connected to the machine and try again.");
  EXPECT_TRUE(run.Closed());
  EXPECT_FALSE(window->isVisible());
}

TEST_F(Opening, CopiesAndSubRangeAreHiddenWhereTheyAreSwitchedOff) {
  Contact();
  EXPECT_FALSE(Visible("NumberCopies") || Visible("NextCopy") || Visible("Subfrom"));
}

TEST_F(Opening, CopiesAndSubRangeShowWhereTheyAreSwitchedOn) {
  desk.Store.Set(kDealCopy, "1");
  desk.Store.Set(kDealSub, "1");
  Contact();
  EXPECT_TRUE(Visible("NumberCopies") && Visible("NextCopy") && Visible("Subfrom"));
  EXPECT_EQ(Text("NumberCopies"), "1");
  EXPECT_EQ(Text("Subfrom") + Text("Subto") + Text("Subfirst") + Text("Sublast"), "1313");
}

TEST_F(Opening, TheTestButtonIsForAdvanceService) {
  desk.Prog.ServiceLevel = 1;
  Contact();
  EXPECT_FALSE(Visible("Command1"));
}

TEST_F(Opening, TheTestButtonShowsWhatTheMachineAnswers) {
  desk.Prog.ServiceLevel = 2;
  Contact();
  Click("Command1");
  const auto text = test::Find<QPlainTextEdit>(*window, "TestText").toPlainText();
  EXPECT_TRUE(text.startsWith("9 ")) << "the bytes from the ninth on, each behind its index";
}

TEST_F(Opening, EachLetterOfTheCaptionsBelongsToOneButton) {
  desk.Store.Set(kDealCopy, "1");
  desk.Store.Set(kDealSub, "1");
  Contact();
  std::set<QString> letters;
  for (const auto* button : window->findChildren<QAbstractButton*>()) {
    if (button->shortcut().isEmpty()) continue;
    EXPECT_TRUE(letters.insert(button->shortcut().toString()).second)
        << button->text().toStdString();
  }
  EXPECT_TRUE(letters.contains("Alt+D") && letters.contains("Alt+X") && letters.contains("Alt+B"));
}

TEST_F(Opening, TheTabKeyWalksFromControlToControl) {
  desk.Store.Set(kDealCopy, "1");
  desk.Store.Set(kDealSub, "1");
  desk.Prog.ServiceLevel = 2;
  Contact();
  for (const char* name :
       {"cmdFirst", "cmdPrev", "cmdNext", "cmdLast", "NumberCopies", "Subfrom", "Subto",
        "National_1", "CardType_1", "Threshold_1", "Card_Index_st", "Start_from_box", "Check_board",
        "Disp_boards", "Command1", "TestText", "cmdExit", "cmdDeal"}) {
    test::Press(*window, Qt::Key_Tab);
    EXPECT_EQ(FocusName(), name);
  }
}

TEST_F(Dealing, APressOfCmdDealDealsTheBoard) {
  Contact();
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1));
  EXPECT_EQ(Counts(), "13 13 13 13");
  EXPECT_EQ(Text("txtStatus"), "Idle");
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK");
  EXPECT_TRUE(Enabled("Deal_next"));
  EXPECT_EQ(FocusName(), "Deal_next");
}

TEST_F(Dealing, EnterPressesTheDefaultButton) {
  Contact();
  test::Press(*window, Qt::Key_Return);
  EXPECT_TRUE(LiesInThePockets(1));
  test::Press(*window, Qt::Key_Return);
  EXPECT_TRUE(LiesInThePockets(2)) << "by now Deal_next is the default";
}

TEST_F(Dealing, WhatTheMachineDoesShowsWhileItDoesIt) {
  Contact();
  MeanwhileAt(kMidBoard, [this] {
    EXPECT_EQ(Text("txtStatus"), "Busy");
    EXPECT_THAT(Text("txtDealTime"), ::testing::MatchesRegex("[45]\\.[0-9]"));
    for (const char* name : {"lblCnt_1", "lblCnt_2", "lblCnt_3", "lblCnt_4"}) {
      const int count = std::stoi(Text(name));
      EXPECT_TRUE(count >= 0 && count < 13) << count;
    }
    EXPECT_NE(Counts(), "0 0 0 0");
  });
  Click("cmdDeal");
  EXPECT_THAT(Text("txtDealTime"), ::testing::MatchesRegex("1[0-9]\\.[0-9]"));
}

TEST_F(Dealing, OnlyBreakCanBePressedMeanwhile) {
  Contact();
  MeanwhileAt(kMidBoard, [this] {
    for (const char* name : {"cmdDeal", "Deal_next", "cmdExit", "cmdFirst", "cmdPrev", "cmdNext",
                             "cmdLast", "Disp_boards", "National_1", "Start_from_box"}) {
      EXPECT_FALSE(Enabled(name)) << name;
      Click(name);
    }
    EXPECT_TRUE(Enabled("cmdBreak"));
  });
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1));
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 1);
}

TEST_F(Dealing, TheKeyThatStartedItDoesNotBreakItWhenPressedAgain) {
  Contact();
  for (int ms = 500; ms < 10000; ms += 500) {
    MeanwhileAt(ms, [this] {
      test::Press(*window, Qt::Key_Space);
      test::Press(*window, Qt::Key_Return);
      test::Press(*window, Qt::Key_Tab);
    });
  }
  test::Press(*window, Qt::Key_Space);
  EXPECT_TRUE(LiesInThePockets(1));
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK");
}

TEST_F(Dealing, EscapeDoesNothing) {
  Contact();
  MeanwhileAt(kMidBoard, [this] { test::Press(*window, Qt::Key_Escape); });
  Click("cmdDeal");
  test::Press(*window, Qt::Key_Escape);
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(LiesInThePockets(1));
}

TEST_F(Dealing, ThePedalStartsABoard) {
  Contact();
  simulated.PressPedal();
  desk.Loop.WaitMs(200);
  EXPECT_TRUE(LiesInThePockets(1));
  simulated.PressPedal();
  desk.Loop.WaitMs(200);
  EXPECT_TRUE(LiesInThePockets(2)) << "the pedal presses Deal_next when it is enabled";
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 2);
}

TEST_F(Dealing, AnInsertedBoardStartsIt) {
  Contact();
  desk.Loop.WaitMs(1500);
  simulated.InsertBoard(1);
  desk.Loop.WaitMs(300);
  EXPECT_TRUE(LiesInThePockets(1));
}

TEST_F(Dealing, AnInsertedBoardDoesNotStartItWhereThatIsSwitchedOff) {
  Contact();
  Click("Start_from_box");
  desk.Loop.WaitMs(1500);
  simulated.InsertBoard(1);
  desk.Loop.WaitMs(2000);
  EXPECT_EQ(simulated.BoardsDealt(), 0);
}

TEST_F(Dealing, DealNextDealsTheNextBoard) {
  Contact();
  Click("cmdDeal");
  Click("Deal_next");
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 2);
  EXPECT_TRUE(LiesInThePockets(2));
  EXPECT_EQ(LastLine(), "  002 : 1,0 0,0,0,0 OK");
}

TEST_F(Dealing, AnIncompleteBoardIsRefused) {
  desk.Prog.Set.At(1).Cards[1] = 0;
  AnalyzeBoard(desk.Prog.Set.At(1));
  Contact();
  desk.AnswerBox(QMessageBox::Ok);
  Click("cmdDeal");
  EXPECT_EQ(desk.Boxes.at(0).Title, "Dealing Error");
  EXPECT_EQ(desk.Boxes.at(0).Text, "Board incomplete - cannot deal this board.");
  EXPECT_TRUE(Enabled("cmdDeal"));
}

TEST_F(Dealing, TheMachineSwitchedOffInTheMiddleClosesTheWindow) {
  Contact();
  MeanwhileAt(kMidBoard, [this] { simulated.PowerOff(); });
  desk.AnswerBox(QMessageBox::Ok);
  Click("cmdDeal");
  EXPECT_EQ(desk.Boxes.at(0).Text, "Lost Communication with Morvane  -  Dealing Aborted!");
  EXPECT_TRUE(run.Closed());
  EXPECT_FALSE(window->isVisible());
}

TEST_F(Dealing, AMachineThatRestartsInTheMiddleOfABoardHasNotDealtIt) {
  Contact();
  // A card falls every 0.28 s: 16 after 4.48 s.
  MeanwhileAt(4600, [this] {
    simulated.PowerOff();
    simulated.PowerOn();
  });
  desk.AnswerBox(QMessageBox::Ok);
  Click("cmdDeal");
  EXPECT_EQ(desk.Boxes.at(0).Title, "Dealing Error");
  EXPECT_EQ(desk.Boxes.at(0).Text,
            "The machine has stopped without dealing all cards: "
            "16 of 52 cards of board 1 have been dealt.\n\n"
            "Please put the cards together and deal the board again.");
  EXPECT_THAT(desk.LogLines(), Contains("  001 : 1,0 0,0,0,0"));
  EXPECT_FALSE(Enabled("Deal_next"));
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1));
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK");
}

TEST_F(Breaking, CmdBreakStopsTheBoardAndCancelEndsIt) {
  Contact();
  MeanwhileAt(kMidBoard, [this] { Click("cmdBreak"); });
  desk.When("Error_disp", [](QWidget& error) {
    EXPECT_EQ(test::TextOf(error, "Error_label"), "Break Dealing");
    EXPECT_EQ(test::TextOf(error, "Error_code"), "Error Code: 57");
    test::Click(error, "Cancel_button");
  });
  Click("cmdDeal");
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 57");
  EXPECT_TRUE(Enabled("cmdDeal"));
  EXPECT_FALSE(Enabled("Deal_next"));
  EXPECT_EQ(FocusName(), "cmdDeal");
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1)) << "the same board can be started again";
}

TEST_F(Breaking, ContinueFinishesTheBoard) {
  Contact();
  MeanwhileAt(kMidBoard, [this] { Click("cmdBreak"); });
  desk.When("Error_disp", [](QWidget& error) { test::Click(error, "Continue_button"); });
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1));
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 57 OK");
}

TEST_F(EndOfSet, YesGoesToTheFirstBoard) {
  Contact();
  Click("cmdLast");
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 3);
  desk.AnswerBox(QMessageBox::Yes);
  Click("cmdDeal");
  EXPECT_EQ(desk.Boxes.at(0).Title, "Dealing");
  EXPECT_EQ(desk.Boxes.at(0).Text,
            "You have succesfully dealt the last board in the set.\n\n"
            "Do you wish to move to the first board?");
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 1);
  EXPECT_FALSE(Enabled("Deal_next"));
}

TEST_F(EndOfSet, NoStaysAtTheLastBoard) {
  Contact();
  Click("cmdLast");
  desk.AnswerBox(QMessageBox::No);
  Click("cmdDeal");
  EXPECT_EQ(desk.Prog.Set.CurrentBoard, 3);
  EXPECT_TRUE(Enabled("cmdFirst") && Enabled("cmdPrev"));
  EXPECT_FALSE(Enabled("cmdNext") || Enabled("cmdLast"));
}

TEST_F(Closing, TheCloseBoxInTheMiddleOfABoardBreaksItAndClosesAfterIt) {
  Contact();
  bool visibleMeanwhile = false;
  MeanwhileAt(kMidBoard, [&] {
    window->close();
    visibleMeanwhile = window->isVisible();
    EXPECT_FALSE(run.Closed());
  });
  Click("cmdDeal");
  EXPECT_TRUE(visibleMeanwhile) << "it goes when the run has returned, not before";
  EXPECT_TRUE(run.Closed());
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(simulated.LatchOn());
  EXPECT_FALSE(simulated.Busy());
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 57");
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(Closing, CmdExitBetweenBoardsClosesAtOnce) {
  Contact();
  Click("cmdExit");
  EXPECT_TRUE(run.Closed());
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(machine.Link.IsOpen());
}

TEST_F(Closing, TheCloseBoxBeforeTheFirstContactClosesAtOnce) {
  Open();
  window->close();
  EXPECT_TRUE(run.Closed());
  EXPECT_FALSE(window->isVisible());
  desk.Loop.WaitMs(3000);
}

TEST_F(Closing, AQuitInTheMiddleEndsTheRun) {
  Contact();
  MeanwhileAt(kMidBoard, [this] { desk.Loop.Quit(); });
  Click("cmdDeal");
  EXPECT_TRUE(run.Closed());
}

TEST_F(Closing, AQuitWhileTheErrorDialogIsOpenEndsTheRun) {
  Contact();
  MeanwhileAt(kMidBoard, [this] { simulated.CauseFault(25); });
  desk.When("Error_disp", [this](QWidget&) { desk.Loop.Quit(); });
  Click("cmdDeal");
  EXPECT_TRUE(run.Closed());
  EXPECT_EQ(test::TopWindow("Error_disp"), nullptr);
}

}  // namespace
}  // namespace morvane::machine
