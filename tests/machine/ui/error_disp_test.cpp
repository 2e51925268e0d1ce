#include <QPushButton>
#include <QTest>
#include <algorithm>

#include "machine/ui/run_window.h"

namespace morvane::machine {
namespace {

using ErrorDisp = RunWindow;

/// The visible buttons' captions as they read, joined by "|".
std::string Buttons(const QWidget& error) {
  std::string captions;
  for (const char* name : {"Continue_button", "Cancel_button", "Cancel2"}) {
    if (!test::Visible(error, name)) continue;
    captions += (captions.empty() ? "" : "|") + test::TextOf(error, name);
  }
  captions.erase(std::remove(captions.begin(), captions.end(), '&'), captions.end());
  return captions;
}

TEST_F(ErrorDisp, ARecognitionErrorCanBeContinuedOrCancelled) {
  Contact();
  MeanwhileAt(4000, [this] { simulated.CauseFault(25); });
  desk.When("Error_disp", [](QWidget& error) {
    EXPECT_EQ(error.windowTitle(), "Dealing Error");
    EXPECT_EQ(test::TextOf(error, "Error_label"), "Card Recognition Error");
    EXPECT_EQ(test::TextOf(error, "Error_code"), "Error Code: 25");
    EXPECT_EQ(Buttons(error), "Continue|Cancel");
    test::Click(error, "Continue_button");
  });
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1));
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 25 OK");
}

TEST_F(ErrorDisp, NamesTheBoardAndTheCardThatItStoppedAt) {
  Contact();
  MeanwhileAt(4600, [this] { simulated.CauseFault(25); });  // a card every 0.28 s: 16 have fallen
  desk.When("Error_disp", [](QWidget& error) {
    EXPECT_EQ(test::TextOf(error, "Error_board"), "Board 1, card 17 of 52");
    test::Click(error, "Cancel_button");
  });
  Click("cmdDeal");
}

TEST_F(ErrorDisp, KeepsTheBlankBehindAText) {
  Contact();
  MeanwhileAt(4000, [this] { simulated.CauseFault(5); });
  desk.When("Error_disp", [](QWidget& error) {
    EXPECT_EQ(test::TextOf(error, "Error_label"), "Extra Card in South ");
    test::Click(error, "Cancel2");
  });
  Click("cmdDeal");
}

TEST_F(ErrorDisp, ContinueAndCancelHaveLetters) {
  Contact();
  MeanwhileAt(4000, [this] { simulated.CauseFault(25); });
  desk.When("Error_disp", [this](QWidget& error) {
    MeanwhileAt(3000, [this] { simulated.CauseFault(54); });
    PressLetter(error, Qt::Key_C, "Continue_button");
  });
  desk.When("Error_disp", [](QWidget& error) { PressLetter(error, Qt::Key_A, "Cancel_button"); });
  Click("cmdDeal");
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 25 54");
}

TEST_F(ErrorDisp, EachFaultOfABoardBringsItBack) {
  Contact();
  MeanwhileAt(4000, [this] { simulated.CauseFault(25); });
  desk.When("Error_disp", [this](QWidget& error) {
    MeanwhileAt(3000, [this] { simulated.CauseFault(54); });
    test::Click(error, "Continue_button");
  });
  desk.When("Error_disp", [](QWidget& error) {
    EXPECT_EQ(test::TextOf(error, "Error_label"), "Duplicate Card Error");
    test::Press(error, Qt::Key_Return);
  });
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1));
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 25 54 OK");
}

TEST_F(ErrorDisp, AMechanicalFaultCanOnlyBeCancelled) {
  Contact();
  MeanwhileAt(4000, [this] { simulated.CauseFault(9); });
  desk.When("Error_disp", [](QWidget& error) {
    EXPECT_EQ(test::TextOf(error, "Error_label"), "Card Jam Error");
    EXPECT_EQ(Buttons(error), "Cancel");
    test::Click(error, "Cancel2");
  });
  Click("cmdDeal");
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 9");
  EXPECT_EQ(Text("txtStatus"), "Idle");
}

TEST_F(ErrorDisp, EscapeCancels) {
  Contact();
  MeanwhileAt(4000, [this] { simulated.CauseFault(25); });
  desk.When("Error_disp", [](QWidget& error) { test::Press(error, Qt::Key_Escape); });
  Click("cmdDeal");
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 25");
}

TEST_F(ErrorDisp, TheCloseBoxCancels) {
  Contact();
  MeanwhileAt(4000, [this] { simulated.CauseFault(25); });
  desk.When("Error_disp", [](QWidget& error) { error.close(); });
  Click("cmdDeal");
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 25");
}

TEST_F(ErrorDisp, ThePedalContinues) {
  Contact();
  MeanwhileAt(4000, [this] { simulated.CauseFault(25); });
  desk.When("Error_disp", [this](QWidget&) { simulated.PressPedal(); });
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1));
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 25 OK");
}

TEST_F(ErrorDisp, ItBlocksTheRunWindow) {
  Contact();
  MeanwhileAt(4000, [this] { simulated.CauseFault(25); });
  desk.When("Error_disp", [this](QWidget& error) {
    Click("cmdBreak");
    EXPECT_TRUE(Enabled("cmdBreak")) << "the click has not arrived";
    test::Click(error, "Continue_button");
  });
  Click("cmdDeal");
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 25 OK");
}

TEST_F(ErrorDisp, ALostLinkShowsBothBoxes) {
  Contact();
  MeanwhileAt(4000, [this] { simulated.CauseFault(25); });
  desk.When("Error_disp", [this](QWidget&) { simulated.PowerOff(); });
  desk.AnswerBox(QMessageBox::Ok);
  desk.AnswerBox(QMessageBox::Ok);
  Click("cmdDeal");
  ASSERT_EQ(desk.Boxes.size(), 2U);
  EXPECT_EQ(desk.Boxes[0].Text, "Lost Communication with Dealer  -  Dealing Aborted");
  EXPECT_EQ(desk.Boxes[1].Text, "Lost Communication with Morvane  -  Dealing Aborted!");
  EXPECT_TRUE(run.Closed());
}

/// Board 1 is to be dealt, board 3 is in the slot.
class WrongBoard : public RunWindow {
 protected:
  void SetUp() override {
    RunWindow::SetUp();
    desk.Store.Set(kInitStartFromBox, "0");
    desk.Store.Set(kCheckBoard, "1");
    simulated.InsertBoard(3);
    Contact();
  }
};

TEST_F(WrongBoard, IsNamedWithItsThreeAnswers) {
  desk.When("Error_disp", [](QWidget& error) {
    EXPECT_EQ(test::TextOf(error, "Error_label"),
              "Incorrect board inserted\nExpected board no: 1  -  Inserted board no: 3");
    EXPECT_EQ(test::TextOf(error, "Error_code"), "Error Code: 65");
    EXPECT_EQ(Buttons(error), "Try again|Cancel|Deal to the current board");
    EXPECT_EQ(test::TextOf(error, "Error_board"), "Board 1");
    PressLetter(error, Qt::Key_D, "Cancel2");
  });
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1));
  EXPECT_EQ(LastLine(), "  001 : 0,1 64,3,2 0,0,0,0 OK");
}

TEST_F(WrongBoard, TryAgainChecksAnew) {
  desk.When("Error_disp", [this](QWidget& error) {
    simulated.InsertBoard(1);
    PressLetter(error, Qt::Key_T, "Continue_button");
  });
  Click("cmdDeal");
  EXPECT_TRUE(LiesInThePockets(1));
  EXPECT_EQ(LastLine(), "  001 : 0,1 64,3,1 0,0,0,0 OK");
}

TEST_F(WrongBoard, EscapeDealsNothing) {
  desk.When("Error_disp", [](QWidget& error) { test::Press(error, Qt::Key_Escape); });
  Click("cmdDeal");
  EXPECT_EQ(simulated.BoardsDealt(), 0);
  EXPECT_EQ(LastLine(), "  001 : 0,1 64,3,0 ");
}

TEST_F(WrongBoard, AnUnreadableLabelHasACodeOfItsOwn) {
  simulated.InsertBoardWithLabel(0);
  desk.When("Error_disp", [](QWidget& error) {
    EXPECT_EQ(test::TextOf(error, "Error_label"),
              "Cannot read board number\nPlease check if board has correct Board Number Label");
    EXPECT_EQ(test::TextOf(error, "Error_code"), "Error Code: 64");
    test::Click(error, "Cancel_button");
  });
  Click("cmdDeal");
  EXPECT_EQ(LastLine(), "  001 : 0,1 64,0,0 ");
}

}  // namespace
}  // namespace morvane::machine
