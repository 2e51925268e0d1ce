#include "maintenance/ui/auto_setup_window.h"

#include <QProgressBar>

#include "maintenance/ui/picture_desk.h"
#include "maintenance/ui/search_map_view.h"
#include "platform/qt/window_place.h"

namespace morvane::maintenance {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

class AutoSetupWindowTest : public PictureDesk {
 protected:
  using PictureDesk::PictureDesk;

  int trials = 0;
  int seenFrom = 256;                     ///< the position from which on the card is seen
  std::function<void(int trial)> Behind;  ///< once the window shows the trial, from 1

  AutoSetupWindowTest() {
    replies[0x0F] = test::Short({0x0F, 0, 0, 54, 94, 20, 80});
    replies[0x10] = test::Short({0x10, 0, 0, 54, 94, 10, 60});
    Seen = [this](int x, int /*y*/) {
      const int trial = ++trials;
      desk.Loop.After(50, [this, trial] {
        if (Behind && Search() != nullptr) Behind(trial);
      });
      desk.Clock.Spend(std::chrono::milliseconds(400));
      return x >= seenFrom;
    };
  }
  /// Up to the end, the prompt having been answered with OK.
  void Run() {
    OpenPicture();
    desk.AnswerBox(QMessageBox::Ok);
    Click("AutoSetup_command");
  }
  static QWidget* Search() { return test::TopWindow("AutoSetup"); }
  static std::string TextOf(const char* name) { return test::TextOf(*Search(), name); }
  static int Progress() { return test::Find<QProgressBar>(*Search(), "ProgressBar1").value(); }
  static void PressLetter() {
    const auto& button = test::Find<QAbstractButton>(*Search(), "Cancel");
    Search()->activateWindow();
    test::Press(*Search(), Qt::Key_C, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  }
  static void Cancel() { test::Click(*Search(), "Cancel"); }
};

TEST_F(AutoSetupWindowTest, TellsWhereTheSearchIs) {
  bool looked = false;
  Behind = [&](int trial) {
    if (trial != 25) return;
    looked = true;
    EXPECT_EQ(TextOf("posx"), "Position X: 40");
    EXPECT_EQ(TextOf("posy"), "Position Y: 100");
    EXPECT_EQ(TextOf("startx"), "Start X: 66");
    EXPECT_EQ(TextOf("starty"), "Start Y: 60");
    EXPECT_EQ(TextOf("Doing"), "Looking for the ten of spades: row 2 of 10");
    EXPECT_EQ(Progress(), 5);  // (40 - 20 + 220) / 48
    EXPECT_FALSE(test::Visible(*Search(), "symy"));
    EXPECT_FALSE(test::Visible(*Search(), "suity"));
    // 205 trials of about half a second.
    EXPECT_EQ(TextOf("TimeLeft"), "Time left at most: about 2 minutes");
    EXPECT_EQ(test::Find<SearchMapView>(*Search(), "SearchMap").SpokenText(),
              "Row 2 of 10, seen and lost: 0");
    Cancel();
  };
  Run();
  EXPECT_TRUE(looked);
}

TEST_F(AutoSetupWindowTest, CancelsAtEachTrialByEscapeCloseBoxLetterAndClick) {
  const std::vector<std::function<void()>> ways{[] { test::Press(*Search(), Qt::Key_Escape); },
                                                [] { Search()->close(); }, [] { PressLetter(); },
                                                [] { Cancel(); }};
  OpenPicture();
  seenFrom = 40;  // the third trial is a hit, the fourth and the fifth bring it to its place
  for (std::size_t way = 0; way < ways.size(); ++way) {
    for (int at = 1; at <= 4; ++at) {
      SCOPED_TRACE(std::to_string(way) + " at " + std::to_string(at));
      trials = 0;
      Behind = [&](int trial) {
        if (trial == at) ways[way]();
      };
      desk.AnswerBox(QMessageBox::Ok);
      Click("AutoSetup_command");
      EXPECT_EQ(trials, at);
      EXPECT_EQ(Search(), nullptr);
      EXPECT_EQ(Text("pos_x"), "60") << "as it was";
    }
  }
  EXPECT_THAT(desk.Boxes, SizeIs(16)) << "the prompts alone";
  EXPECT_FALSE(console.Closed());
}

TEST_F(AutoSetupWindowTest, EnterHeldDownOverThePromptCancelsNothing) {
  Behind = [&](int trial) {
    if (trial == 2) {
      QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
      QApplication::sendEvent(&test::Find<QWidget>(*Search(), "Cancel"), &held);
    }
    if (trial == 4) Cancel();
  };
  Run();
  EXPECT_EQ(trials, 4);
}

TEST_F(AutoSetupWindowTest, AHitIsBroughtToItsPlaceAndItsPictureIsShownBehindIt) {
  seenFrom = 40;
  std::vector<std::string> doing;
  Behind = [&](int) { doing.push_back(TextOf("Doing") + " " + std::to_string(Progress())); };
  bool fetched = false;
  OnLine = [&](int line) {
    if (line != 100) return;
    fetched = true;
    EXPECT_EQ(TextOf("Doing"), "The card is found. Fetching its picture ...");
    EXPECT_FALSE(test::Visible(*Search(), "Cancel"));
    EXPECT_EQ(Progress(), 100);
    EXPECT_EQ(Shown(10, 20), 0x505050U) << "in the console, line by line";
    EXPECT_EQ(Shown(10, 100), 0xFF0000U);
    test::Press(*Search(), Qt::Key_Escape);
    Search()->close();
    EXPECT_TRUE(Search()->isVisible()) << "it cannot be cancelled any more";
  };
  OpenPicture();
  desk.AnswerBox(QMessageBox::Ok);
  desk.When("MessageBox", [&](QWidget& box) {
    EXPECT_EQ(TextOf("Doing"), "The card is found.");
    EXPECT_EQ(Shown(61, 60), 0x0000FFU) << "the start point is drawn";
    static_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click();
  });
  desk.AnswerBox(QMessageBox::Ok);  // the parameters are written
  Click("AutoSetup_command");
  EXPECT_TRUE(fetched);
  EXPECT_THAT(doing, ElementsAre("Looking for the ten of spades: row 1 of 10 0",
                                 "Looking for the ten of spades: row 1 of 10 0",
                                 "Seen. Bringing it to its place: 1 of 3 90",
                                 "Seen. Bringing it to its place: 2 of 3 95",
                                 "Seen. Bringing it to its place: 3 of 3 100"));
  EXPECT_EQ(Search(), nullptr);
  EXPECT_EQ(Text("pos_x") + "," + Text("pos_y"), "40,110");
}

TEST_F(AutoSetupWindowTest, HighSymbolsShowTheLimitsThatStay) {
  seenFrom = 20;
  replies[0x0F] = test::Short({0x0F, 0, 0, 54, 94, 20, 92});  // 72 high
  OpenPicture();
  desk.AnswerBox(QMessageBox::Ok);
  desk.When("MessageBox", [&](QWidget& box) {
    EXPECT_TRUE(test::Visible(*Search(), "symy"));
    EXPECT_EQ(TextOf("symy"), "Max Symbol Y:86");
    EXPECT_EQ(TextOf("suity"), "Max Suit Y:76");
    static_cast<QMessageBox&>(box).button(QMessageBox::No)->click();
  });
  Click("AutoSetup_command");
  EXPECT_EQ(Text("Sym_y_max"), "48") << "put back";
}

TEST_F(AutoSetupWindowTest, TheEndOfTheProgramEndsIt) {
  Behind = [&](int trial) {
    if (trial == 3) desk.Loop.Quit();
  };
  Run();
  EXPECT_EQ(trials, 3);
  EXPECT_EQ(Search(), nullptr);
}

TEST_F(AutoSetupWindowTest, ALostLinkEndsItAndTheServiceBehindOneBox) {
  Behind = [&](int trial) {
    if (trial != 3) return;
    camera.Answer = nullptr;
    simulated.PowerOff();
    desk.AnswerBox(QMessageBox::Ok);
  };
  Run();
  EXPECT_EQ(trials, 3);
  EXPECT_EQ(Search(), nullptr);
  EXPECT_TRUE(console.Closed());
  ASSERT_THAT(desk.Boxes, SizeIs(2)) << "the prompt, and one for the link";
  EXPECT_EQ(desk.Boxes[1].Title, "Communication Error");
}

TEST_F(AutoSetupWindowTest, ThePictureStaysInSight) {
  bool looked = false;
  Behind = [&](int trial) {
    if (trial != 2) return;
    const QRect screen(0, 0, 1280, 768);
    window->resize(1250, 720);
    FitToScreen(*window, screen);
    desk.Loop.Pump();
    FitToScreen(*Search(), screen);
    const QRect picture(View().viewport()->mapToGlobal(QPoint()), View().viewport()->size());
    EXPECT_FALSE(Search()->frameGeometry().intersects(picture));
    EXPECT_TRUE(screen.contains(Search()->frameGeometry()));
    looked = true;
    Cancel();
  };
  Run();
  EXPECT_TRUE(looked);
}

}  // namespace
}  // namespace morvane::maintenance
