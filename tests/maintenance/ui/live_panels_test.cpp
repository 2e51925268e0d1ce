#include <QApplication>

#include "maintenance/ui/console_desk.h"
#include "maintenance/ui/service_widgets.h"

// What of the console is always in sight: sensors, outputs, the last card.

namespace morvane::maintenance {
namespace {

class LivePanels : public ConsoleDesk {
 protected:
  using ConsoleDesk::ConsoleDesk;
};

TEST_F(LivePanels, APhotoSensorTellsItsValueByAWordAndByColour) {
  Contact();
  simulated.Opened().Cover(2, true);
  Polls();
  EXPECT_EQ(Text("Photo2"), "210");
  EXPECT_EQ(Word("Photo2"), "covered");
  EXPECT_EQ(Ground("Photo2"), "#80ff80");
  EXPECT_EQ(SpokenBy("Photo2"), "210, covered");
  EXPECT_EQ(Text("Photo1"), "35");
  EXPECT_EQ(Word("Photo1"), "free");
  EXPECT_EQ(Ground("Photo1"), "");
}

TEST_F(LivePanels, SwitchesAreOnOrOff) {
  Contact();
  simulated.Opened().Set(simulator::Sensors::Switch::Front, true);
  simulated.Opened().Set(simulator::Sensors::Switch::Cover, false);
  simulated.InsertBoard(7);
  Polls();
  EXPECT_EQ(Text("Front_Switch"), "ON");
  EXPECT_EQ(Ground("Front_Switch"), "#80ff80");
  EXPECT_EQ(Text("Cover_Switch"), "OFF");
  EXPECT_EQ(Ground("Cover_Switch"), "");
  EXPECT_EQ(Text("Box_Switch"), "ON");
  EXPECT_EQ(Text("Board_no_txt"), "7");
  EXPECT_NE(Text("Board_no_test_txt"), "");
}

TEST_F(LivePanels, TheFlipPlateNeedsTheLightOfTheCamera) {
  Contact();
  EXPECT_EQ(Text("Flip_Switch"), "");
  EXPECT_EQ(Word("Flip_Switch"), "LEDs off");
  Click("Cam_leds");
  Polls();
  EXPECT_EQ(Text("Flip_Switch"), "ON");
  EXPECT_EQ(Word("Flip_Switch"), "");
  EXPECT_EQ(Ground("Flip_Switch"), "#80ff80");
  simulated.Opened().Set(simulator::Sensors::Switch::FlipPlate, false);
  Polls();
  EXPECT_EQ(Text("Flip_Switch"), "OFF");
  EXPECT_EQ(Ground("Flip_Switch"), "#ff4040");
}

TEST_F(LivePanels, AMotorStandsOrRunsAtTheRightOrTheWrongSpeed) {
  Contact();
  EXPECT_EQ(Text("Motor_speed_1"), "0");
  EXPECT_EQ(Word("Motor_speed_1"), "stands");
  EXPECT_EQ(Ground("Motor_speed_1"), "#ffffff");
  simulated.Opened().SetSpeed(3, 9000);
  Click("Motors");
  desk.Loop.WaitMs(10'000);  // they run up
  EXPECT_EQ(Word("Motor_speed_1"), "right speed");
  EXPECT_EQ(Ground("Motor_speed_1"), "#80ff80");
  EXPECT_EQ(Text("Motor_speed_3"), "9000");
  EXPECT_EQ(Word("Motor_speed_3"), "wrong speed");
  EXPECT_EQ(Ground("Motor_speed_3"), "#ff4040");
  EXPECT_EQ(SpokenBy("Motor_speed_3_trace"), "0 to 9000 in the last half minute");
}

TEST_F(LivePanels, TheTraceForgetsWhatIsOlderThanHalfAMinute) {
  Contact();
  EXPECT_EQ(SpokenBy("Supply_volt_trace"), "24 to 24 in the last half minute");
  simulated.Opened().SetSupply(231);
  desk.Loop.WaitMs(1000);
  EXPECT_EQ(SpokenBy("Supply_volt_trace"), "23.1 to 24 in the last half minute");
  desk.Loop.WaitMs(31'000);
  EXPECT_EQ(SpokenBy("Supply_volt_trace"), "23.1 to 23.1 in the last half minute");
}

TEST_F(LivePanels, APollPlacesNothingAnew) {
  struct Counter final : QObject {
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() == QEvent::LayoutRequest) ++Requests;
      return false;
    }
    int Requests = 0;
  } counter;
  Contact();
  qApp->installEventFilter(&counter);
  for (int volts = 200; volts < 240; ++volts) {
    simulated.Opened().SetSupply(volts);
    simulated.Opened().Cover(1, volts % 2 == 0);
    desk.Loop.WaitMs(100);
  }
  EXPECT_EQ(counter.Requests, 0);
  EXPECT_EQ(Text("Supply_volt"), "23.9");
}

TEST_F(LivePanels, EachCheckBoxSwitchesItsOutput) {
  Contact();
  const std::vector<std::pair<const char*, int>> outputs{{"Motors", 1},
                                                         {"Gate1", 2},
                                                         {"Gate2", 4},
                                                         {"Gate3", 8},
                                                         {"Cam_leds", 16},
                                                         {"Cam_power", 32},
                                                         {"Front_green_led", 64},
                                                         {"Front_Red_Led", 128}};
  for (const auto& [name, bit] : outputs) {
    Click(name);
    Polls();
    EXPECT_EQ(Outputs(), bit) << name;
    Click(name);
    Polls();
    EXPECT_EQ(Outputs(), 0) << name;
  }
}

TEST_F(LivePanels, OutputsAreSwitchedByTheirLetters) {
  Contact();
  PressLetter(Qt::Key_M, "Motors");
  PressLetter(Qt::Key_2, "Gate2");
  PressLetter(Qt::Key_N, "Front_Red_Led");
  Polls();
  EXPECT_EQ(Outputs(), 1 + 4 + 128);
  PressLetter(Qt::Key_M, "Motors");
  Polls();
  EXPECT_EQ(Outputs(), 4 + 128);
}

TEST_F(LivePanels, EnterOnACheckBoxDoesNothing) {
  Contact();
  TypeInto("pos_x", "61");
  Focus("Gate1");
  Press(Qt::Key_Return);
  Polls();
  EXPECT_EQ(Text("pos_x"), "61") << "nothing was read from the machine";
  EXPECT_EQ(Outputs(), 0);
  EXPECT_EQ(feeds, 0);
  EXPECT_FALSE(console.Closed());
}

TEST_F(LivePanels, FeedCardMovesOneCard) {
  Contact();
  Click("Feed_card");
  Polls();
  EXPECT_EQ(feeds, 1);
  PressLetter(Qt::Key_F, "Feed_card");
  EXPECT_EQ(feeds, 2);
  Polls();
  EXPECT_EQ(Text("Reco_error"), "OK") << "the machine has told what it took the card for";
}

TEST_F(LivePanels, WhatTheLastCardWasTakenForIsShown) {
  Contact();
  EXPECT_EQ(Text("Symbol") + Text("Suit") + Text("Threshold") + Text("Reco_error"), "");
  wire::Frame verdict{};
  wire::Put(wire::VerdictReply{.Time = 300, .Rank = 13, .Suit = 2, .Threshold = 45, .Error = 0},
            verdict);
  EXPECT_TRUE(machine.OnUnasked(verdict));
  Polls();
  EXPECT_EQ(Text("Symbol"), "K");
  EXPECT_EQ(Text("Suit"), "H");
  EXPECT_EQ(Text("Threshold"), "45");
  EXPECT_EQ(Text("Reco_time"), "300");
  EXPECT_EQ(Text("Reco_error"), "OK");
}

TEST_F(LivePanels, EnterHeldDownFeedsOneCard) {
  Contact();
  Focus("Feed_card");
  Press(Qt::Key_Return);
  for (int i = 0; i < 5; ++i) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(&test::Find<QWidget>(*window, "Feed_card"), &held);
  }
  Polls();
  EXPECT_EQ(feeds, 1);
}

TEST_F(LivePanels, ALetterHeldDownPressesOnce) {
  Contact();
  feeds = 0;
  PressLetter(Qt::Key_F, "Feed_card");
  PressLetter(Qt::Key_M, "Motors");
  const auto hold = [this](Qt::Key letter, const char* name) {
    QTest::simulateEvent(window->windowHandle(), true, letter, Qt::AltModifier, "", true);
    const auto& button = test::Find<QAbstractButton>(*window, name);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  };
  for (int i = 0; i < 3; ++i) {
    hold(Qt::Key_F, "Feed_card");
    hold(Qt::Key_M, "Motors");
  }
  Polls();
  EXPECT_EQ(feeds, 1);
  EXPECT_EQ(Outputs(), 1);
  PressLetter(Qt::Key_F, "Feed_card");
  EXPECT_EQ(feeds, 2) << "pressed anew";
}

/// What the formulas give for a raw 65535.
TEST_F(LivePanels, NoReadingIsCutHoweverSenseless) {
  Open();
  for (const auto& [name, text] :
       {std::pair("Inside_temp", "10810.1"), std::pair("Supply_volt", "2502.7")}) {
    const auto& label = test::Find<QLabel>(*window, name);
    EXPECT_LE(label.fontMetrics().horizontalAdvance(text),
              label.contentsRect().width() - 2 * label.margin())
        << name;
  }
}

TEST_F(LivePanels, TheGateTestCountsItsRounds) {
  Service(2);
  Contact();
  EXPECT_EQ(Text("GateTestText"), "");
  PressLetter(Qt::Key_A, "GateTest");
  Polls();
  EXPECT_GE(std::stoi(Text("GateTestText")), 2);
  Click("GateTest");
  Polls();
  const std::string rounds = Text("GateTestText");
  Polls();
  EXPECT_EQ(Text("GateTestText"), rounds);
  EXPECT_EQ(Outputs(), 0);
}

/// Too old to tell of its motors.
class OldFirmware : public LivePanels {
 protected:
  OldFirmware() : LivePanels(MachineOf(0x1F, 0)) {}
};

TEST_F(OldFirmware, WhatItDoesNotTellStaysEmpty) {
  Contact();
  EXPECT_EQ(Text("Photo1"), "35");
  for (const char* name :
       {"Motor_speed_1", "Motor_speed_4", "Inside_temp", "Supply_volt", "Flip_Switch"}) {
    EXPECT_EQ(Text(name), "") << name;
    EXPECT_EQ(Ground(name), "") << name;
  }
  EXPECT_EQ(Word("Flip_Switch"), "");
  EXPECT_EQ(SpokenBy("Inside_temp_trace"), "");
}

TEST(ServiceColours, AreTheRequiredOnes) {
  EXPECT_EQ(kGoodGround, QColor(0x80, 0xFF, 0x80));
  EXPECT_EQ(kBadGround, QColor(0xFF, 0x40, 0x40));
  EXPECT_EQ(kStillGround, QColor(0xFF, 0xFF, 0xFF));
}

}  // namespace
}  // namespace morvane::maintenance
