#include "maintenance/ui/board_calibration_window.h"

#include <QProgressBar>

#include "maintenance/paper_board.h"
#include "maintenance/ui/board_curve.h"
#include "maintenance/ui/console_desk.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {
namespace {

using ::testing::SizeIs;

using Sweep = BoardCalibration::Sweep;

/// A board that is lost at 100 and seen again at 131: 156 trials go down, 33 up.
class BoardCalibrationWindowTest : public ConsoleDesk {
 protected:
  explicit BoardCalibrationWindowTest(const simulator::Options& options = MachineOf())
      : ConsoleDesk(options) {
    camera.Answer = [this](const test::Bytes& plain) {
      const test::Bytes reply = board.ReplyTo(plain);
      if (reply.empty()) return reply;
      desk.Loop.Post([this, step = board.Trials.size()] {
        if (Behind && Shown() != nullptr) Behind(step);
      });
      return reply;
    };
  }
  PaperBoard board;
  std::function<void(std::size_t step)> Behind;  ///< once the window shows the step, from 1

  /// Up to the end, the prompt having been answered with OK.
  void Run() {
    desk.AnswerBox(QMessageBox::Ok);
    Click("Calibrate_Board_Switch");
  }
  /// At the box that asks; it is answered with No.
  void AtQuestion(const std::function<void()>& look) {
    desk.AnswerBox(QMessageBox::Ok);
    desk.When("MessageBox", [look](QWidget& box) {
      look();
      static_cast<QMessageBox&>(box).button(QMessageBox::No)->click();
    });
    Click("Calibrate_Board_Switch");
  }
  static QWidget* Shown() { return test::TopWindow("Board_calibration"); }
  static std::string TextOf(const char* name) { return test::TextOf(*Shown(), name); }
  static int Progress() { return test::Find<QProgressBar>(*Shown(), "ProgressBar1").value(); }
  static BoardCurve& Curve() { return test::Find<BoardCurve>(*Shown(), "BoardCurve"); }
  static std::string Spoken() { return Curve().SpokenText().toStdString(); }
  static void PressLetter() {
    const auto& button = test::Find<QAbstractButton>(*Shown(), "Command1");
    Shown()->activateWindow();
    test::Press(*Shown(), Qt::Key_C, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  }
};

TEST_F(BoardCalibrationWindowTest, TellsWhereTheSweepIs) {
  Contact();
  int looks = 0;
  Behind = [&](std::size_t step) {
    if (step == 56) {
      ++looks;
      EXPECT_EQ(Shown()->windowTitle(), "Morvane - Calibrate Board Switch");
      EXPECT_EQ(TextOf("Label1"), "Check: 199    1");
      EXPECT_EQ(TextOf("Label2"), "");
      EXPECT_EQ(TextOf("Label3"), "");
      EXPECT_EQ(Progress(), 10);  // 56 / 255 x 50
      EXPECT_EQ(Spoken(), "down");
      EXPECT_EQ(Shown()->focusWidget()->objectName(), "Command1");
    }
    if (step == 160) {
      ++looks;
      EXPECT_EQ(TextOf("Label1"), "Check: 103    0");
      EXPECT_EQ(TextOf("Label2"), "On: 99");
      EXPECT_EQ(Progress(), 70);  // 103 / 255 x 50 + 50
      EXPECT_EQ(Spoken(), "down: lost at 100, up");
      test::Click(*Shown(), "Command1");
    }
  };
  Run();
  EXPECT_EQ(looks, 2);
}

TEST_F(BoardCalibrationWindowTest, CancelsAtEachStepByEscapeCloseBoxLetterAndClick) {
  const std::vector<std::function<void()>> ways{[] { test::Press(*Shown(), Qt::Key_Escape); },
                                                [] { Shown()->close(); }, [] { PressLetter(); },
                                                [] { test::Click(*Shown(), "Command1"); }};
  Contact();
  for (std::size_t way = 0; way < ways.size(); ++way) {
    for (const std::size_t at : {1U, 2U, 156U, 157U, 189U}) {
      SCOPED_TRACE(std::to_string(way) + " at " + std::to_string(at));
      board = {};
      Behind = [&](std::size_t step) {
        if (step == at) ways[way]();
      };
      Run();
      EXPECT_THAT(board.Trials, SizeIs(at));
      EXPECT_EQ(Shown(), nullptr);
      EXPECT_EQ(Text("Board_Sen"), "180") << "as it was";
    }
  }
  EXPECT_THAT(desk.Boxes, SizeIs(20)) << "the prompts alone";
  EXPECT_FALSE(console.Closed());
}

TEST_F(BoardCalibrationWindowTest, EnterHeldDownOverThePromptCancelsNothing) {
  Contact();
  Behind = [&](std::size_t step) {
    if (step == 2) {
      QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
      QApplication::sendEvent(&test::Find<QWidget>(*Shown(), "Command1"), &held);
    }
    if (step == 4) test::Press(*Shown(), Qt::Key_Return);
  };
  Run();
  EXPECT_THAT(board.Trials, SizeIs(4)) << "pressed anew it does";
}

TEST_F(BoardCalibrationWindowTest, WhatWasMeasuredStaysInSightWhileTheBoxAsks) {
  Contact();
  bool looked = false;
  AtQuestion([&] {
    looked = true;
    EXPECT_EQ(TextOf("Label1"), "Check: 132    1");
    EXPECT_EQ(TextOf("Label2"), "On: 99");
    EXPECT_EQ(TextOf("Label3"), "Off: 132");
    EXPECT_EQ(Progress(), 100);
    EXPECT_EQ(Spoken(),
              "down: lost at 100, up: seen again at 131, hysteresis: 101 to 130, recommended: 90");
    EXPECT_FALSE(test::Visible(*Shown(), "Command1")) << "it cannot be cancelled any more";
    Shown()->close();
    EXPECT_TRUE(Shown()->isVisible());
  });
  EXPECT_TRUE(looked);
  EXPECT_EQ(Shown(), nullptr);
  EXPECT_EQ(Text("Board_Sen"), "180");
}

TEST_F(BoardCalibrationWindowTest, AYesPutsTheValueIntoItsBoxAndTheMachine) {
  Contact();
  desk.AnswerBox(QMessageBox::Ok);
  desk.AnswerBox(QMessageBox::Yes);
  desk.AnswerBox(QMessageBox::Ok);  // the parameters are written
  Focus("Calibrate_Board_Switch");
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("Board_Sen"), "90");
  Click("Get_param");
  EXPECT_EQ(Text("Board_Sen"), "90") << "the machine holds it";
  EXPECT_EQ(Text("lblEdited"), "");
}

TEST_F(BoardCalibrationWindowTest, OtherBoardsInWords) {
  struct Row {
    PaperBoard Board;
    const char* Words;
  };
  Contact();
  for (const Row& row :
       {Row{PaperBoard(51, 50),
            "down: lost at 50, up: seen again at 51, hysteresis: none, recommended: 45"},
        Row{PaperBoard(256, 230), "down: lost at 230, up: never seen again, recommended: 200"},
        Row{PaperBoard(256, 255),
            "down: lost at 255, seen at no sensitivity: is a board in the slot?, recommended: 200"},
        Row{PaperBoard(1, 0), "down: never lost"}}) {
    board = row.Board;
    desk.AnswerBox(QMessageBox::Ok);
    std::string words;
    desk.When("MessageBox", [&](QWidget& box) {
      words = Spoken();
      box.close();
    });
    Click("Calibrate_Board_Switch");
    EXPECT_EQ(words, row.Words);
  }
}

/// What the curve looks like. The lowest sensitivity, 20, stands at the left, 255 at the right.
class BoardCurvePicture : public BoardCalibrationWindowTest {
 protected:
  QImage image;
  QRect plot;
  QRgb ground = 0;
  int downSeen = 0;  ///< the rows of pixels of the lines
  int downLost = 0;
  int upSeen = 0;
  int upLost = 0;

  void Take() {
    image = Curve().grab().toImage();
    plot = Curve().Plot();
    ground = Curve().palette().color(QPalette::Base).rgb();
    downSeen = Curve().LevelOf(true, Sweep::kDown);
    downLost = Curve().LevelOf(false, Sweep::kDown);
    upSeen = Curve().LevelOf(true, Sweep::kUp);
    upLost = Curve().LevelOf(false, Sweep::kUp);
  }
  [[nodiscard]] int At(int sensitivity) const {
    return plot.left() + (sensitivity - 20) * (plot.width() - 1) / 235;
  }
  /// The share of the pixels of a row, between two sensitivities, that are dark.
  [[nodiscard]] double Ink(int row, int from, int to) const {
    int dark = 0;
    for (int x = At(from); x <= At(to); ++x) dark += qGray(image.pixel(x, row)) < 128 ? 1 : 0;
    return static_cast<double>(dark) / (At(to) - At(from) + 1);
  }
};

TEST_F(BoardCurvePicture, TheSweepDownIsOneLineAndTheSweepUpABrokenOne) {
  Contact();
  AtQuestion([&] { Take(); });
  EXPECT_EQ(Ink(downSeen, 104, 250), 1);
  EXPECT_LT(Ink(downSeen, 25, 98), 0.1) << "the recommendation alone crosses it";
  EXPECT_LT(Ink(downLost, 103, 250), 0.1) << "the way up crosses it at its turn";
  EXPECT_LT(Ink(upLost, 25, 96), 0.1);
  EXPECT_GT(Ink(upLost, 103, 129), 0.4);
  EXPECT_LT(Ink(upLost, 103, 129), 0.95);
  EXPECT_EQ(Ink(upLost, 134, 250), 0);
  EXPECT_EQ(Ink(upSeen, 134, 250), 0) << "it ends where the board is seen again";
}

TEST_F(BoardCurvePicture, BetweenTheTwoStandsABand) {
  Contact();
  AtQuestion([&] { Take(); });
  const int middle = plot.center().y();
  EXPECT_NE(image.pixel(At(115), middle), ground);
  EXPECT_EQ(image.pixel(At(115), middle), image.pixel(At(105), middle));
  for (const int sensitivity : {30, 60, 140, 240}) {
    EXPECT_EQ(image.pixel(At(sensitivity), middle), ground) << sensitivity;
  }
}

TEST_F(BoardCurvePicture, TheRecommendationIsALineWithItsNumberAboveIt) {
  Contact();
  AtQuestion([&] { Take(); });
  const auto darkIn = [&](int from, int to) {
    int dark = 0;
    for (int x = At(from); x <= At(to); ++x) {
      for (int y = plot.top() + 15; y < plot.bottom() - 2; ++y) {
        dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
      }
    }
    return dark;
  };
  EXPECT_GT(darkIn(89, 91), plot.height() / 4);
  EXPECT_EQ(darkIn(25, 85), 0);
  const QRgb paper = image.pixel(1, 1);
  const auto written = [&](int from, int to) {
    for (int x = At(from); x <= At(to); ++x) {
      for (int y = 0; y < plot.top() - 2; ++y) {
        if (image.pixel(x, y) != paper) return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(written(80, 100));
  EXPECT_FALSE(written(180, 255));
}

TEST_F(BoardCurvePicture, InTheMiddleOfASweepItEndsAtADot) {
  Contact();
  Behind = [&](std::size_t step) {
    if (step != 106) return;  // 255 to 150
    Take();
    test::Press(*Shown(), Qt::Key_Escape);
  };
  Run();
  EXPECT_EQ(Ink(downSeen, 152, 250), 1);
  EXPECT_EQ(Ink(downSeen, 25, 145), 0);
  EXPECT_EQ(Ink(downSeen + 2, 150, 150), 1) << "the dot is thicker than the line";
  EXPECT_EQ(Ink(downSeen + 2, 160, 250), 0);
}

TEST_F(BoardCalibrationWindowTest, ItGrowsAndFitsIntoASmallScreen) {
  Contact();
  bool looked = false;
  Behind = [&](std::size_t step) {
    if (step != 5) return;
    looked = true;
    const int before = Curve().Plot().width();
    Shown()->resize(Shown()->width() + 200, Shown()->height() + 100);
    desk.Loop.Pump();
    EXPECT_EQ(Curve().Plot().width(), before + 200);
    const QRect screen(0, 0, 800, 600);
    FitToScreen(*Shown(), screen);
    EXPECT_TRUE(screen.contains(Shown()->frameGeometry()));
    test::Press(*Shown(), Qt::Key_Escape);
  };
  Run();
  EXPECT_TRUE(looked);
}

// What ends it.

TEST_F(BoardCalibrationWindowTest, TheEndOfTheProgramEndsIt) {
  Contact();
  Behind = [&](std::size_t step) {
    if (step == 3) desk.Loop.Quit();
  };
  Run();
  EXPECT_THAT(board.Trials, SizeIs(3));
  EXPECT_EQ(Shown(), nullptr);
}

TEST_F(BoardCalibrationWindowTest, ALostLinkEndsItAndTheServiceBehindOneBox) {
  Contact();
  Behind = [&](std::size_t step) {
    if (step != 160) return;
    camera.Answer = nullptr;
    simulated.PowerOff();
    desk.AnswerBox(QMessageBox::Ok);
  };
  Run();
  EXPECT_EQ(Shown(), nullptr);
  EXPECT_TRUE(console.Closed());
  ASSERT_THAT(desk.Boxes, SizeIs(2)) << "the prompt, and one for the link";
  EXPECT_EQ(desk.Boxes[1].Title, "Communication Error");
}

// The button.

class OlderFirmware : public BoardCalibrationWindowTest {
 protected:
  OlderFirmware() : BoardCalibrationWindowTest(MachineOf(0x7F)) {}
};

TEST_F(OlderFirmware, TheButtonIsOffAndSaysWhy) {
  Contact();
  EXPECT_TRUE(Visible("Calibrate_Board_Switch"));
  EXPECT_FALSE(Enabled("Calibrate_Board_Switch"));
  EXPECT_EQ(test::Find<QWidget>(*window, "Calibrate_Board_Switch").toolTip(),
            "Calibration requires firmware 2.80 or later. The machine has 2.7F.");
}

class NoOpticalSwitch : public BoardCalibrationWindowTest {
 protected:
  NoOpticalSwitch() : BoardCalibrationWindowTest(MachineOf(0x90, 0x3F)) {}
};

TEST_F(NoOpticalSwitch, TheButtonIsNotThere) {
  Contact();
  EXPECT_FALSE(Visible("Calibrate_Board_Switch"));
}

TEST_F(BoardCalibrationWindowTest, TheButtonIsOffUntilTheMachineIsKnown) {
  Open();
  EXPECT_FALSE(Enabled("Calibrate_Board_Switch"));
  desk.Loop.WaitMs(Maintenance::kFirstContactMs + 100);
  EXPECT_TRUE(Enabled("Calibrate_Board_Switch"));
  EXPECT_EQ(test::Find<QWidget>(*window, "Calibrate_Board_Switch").toolTip(),
            "Finds the sensitivity that a problem board needs");
}

}  // namespace
}  // namespace morvane::maintenance
