#include "shell/ui/preferences.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>

#include "platform/qt/window_place.h"
#include "shell/ui/main_menu_desk.h"

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PreferencesWindowTest : public MainMenuTest {
 protected:
  static std::string Focus(const QWidget& window) {
    return window.focusWidget() == nullptr ? "" : window.focusWidget()->objectName().toStdString();
  }
  static bool Checked(const QWidget& window, const char* name) {
    return test::Find<QAbstractButton>(window, name).isChecked();
  }
  /// Opens the window from the menu by its keys and lets `act` deal with it.
  void Open(std::function<void(QWidget&)> act) {
    if (test::TopWindow("MainMenu") == nullptr) Start();
    menu->activateWindow();  // as window managers do behind a window before it
    desk.Loop.Pump();
    desk.When("Preferences", std::move(act));
    test::Press(*menu, Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(test::TopWindow("Preferences"), nullptr);
    EXPECT_FALSE(shell.FlowActive());
  }
  void Retype(QWidget& window, const char* box, const std::string& text) {
    test::Click(window, box);
    desk.Loop.Pump();
    test::Type(window, text);
  }
  /// A refusal comes up, over the window, and its OK is pressed.
  void ExpectBox() { desk.AnswerBox(QMessageBox::Ok); }
  [[nodiscard]] std::string Stored(const SettingKey& key) const { return desk.Store.Get(key); }
};

TEST_F(PreferencesWindowTest, ShowsItsFramesAndTheSettings) {
  desk.Store.Set(kNewLastBoard, "28");
  desk.Store.Set(kGenerator, "0");
  Open([](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "Preferences");
    EXPECT_EQ(window.windowModality(), Qt::WindowModal);
    std::vector<std::string> frames;
    for (const auto* frame : window.findChildren<QGroupBox*>()) {
      frames.push_back(frame->title().toStdString());
    }
    EXPECT_THAT(frames, ElementsAre("Generate New BoardSet", "Load Boardset", "Save Boardset",
                                    "Deal and Main Menu", "Analyze"));
    EXPECT_EQ(test::TextOf(window, "Setup_New_FirstBoard"), "1");
    EXPECT_EQ(test::TextOf(window, "Setup_New_LastBoard"), "28");
    EXPECT_TRUE(Checked(window, "Setup_New_Inner"));
    EXPECT_FALSE(Checked(window, "Setup_New_Shapes"));
    EXPECT_TRUE(Checked(window, "Gen0"));
    EXPECT_TRUE(Checked(window, "Analize1"));
    EXPECT_EQ(test::TextOf(window, "Gen1"), "Use Morvane generator only");
    EXPECT_EQ(test::TextOf(window, "Analize2"), "Use Deep Finesse");
    EXPECT_EQ(test::TextOf(window, "Restore"), "Restore Defaults");
    EXPECT_EQ(Focus(window), "Setup_New_FirstBoard");
    test::Click(window, "Exit");
  });
}

TEST_F(PreferencesWindowTest, WhatIsSetIsReadAfterARestart) {
  Open([this](QWidget& window) {
    test::Type(window, "5");  // over the number, which is selected
    test::Press(window, Qt::Key_Tab);
    test::Type(window, "40");
    test::Click(window, "Setup_New_Shapes");
    test::Click(window, "Setup_Save_Event");
    test::Click(window, "Gen1");
    test::Click(window, "Analize2");
    EXPECT_FALSE(desk.Store.Has(kNewFirstBoard)) << "nothing before it closes";
    test::Click(window, "Exit");
  });
  EXPECT_THAT(desk.Boxes, IsEmpty());
  const Preferences restarted(desk.Prog);
  EXPECT_EQ(restarted.Setup_New_FirstBoard, "5");
  EXPECT_EQ(restarted.Setup_New_LastBoard, "40");
  EXPECT_TRUE(restarted.On[0]);
  EXPECT_EQ(Stored(kSaveEvent), "0");
  EXPECT_EQ(restarted.Generator, 1);
  EXPECT_EQ(restarted.Analyzer, 1);
}

TEST_F(PreferencesWindowTest, AClickIntoABoardBoxSelectsItsWholeText) {
  Open([this](QWidget& window) {
    test::Press(window, Qt::Key_Tab);
    Retype(window, "Setup_New_LastBoard", "1");
    EXPECT_THAT(test::TextOf(window, "Setup_New_LastBoard"), SizeIs(3))
        << "it had the focus already";
    test::Click(window, "Setup_New_FirstBoard");
    Retype(window, "Setup_New_LastBoard", "48");
    EXPECT_EQ(test::TextOf(window, "Setup_New_LastBoard"), "48");
    test::Click(window, "Exit");
  });
}

TEST_F(PreferencesWindowTest, AWrongNumberIsRefusedWhenTheTabKeyLeavesIt) {
  Open([this](QWidget& window) {
    test::Type(window, "641");
    ExpectBox();
    test::Press(window, Qt::Key_Tab);
    desk.Loop.Pump();
    ASSERT_THAT(desk.Boxes, SizeIs(1));
    EXPECT_EQ(desk.Boxes[0].Title, "Preferences Error");
    EXPECT_EQ(Focus(window), "Setup_New_FirstBoard");
    test::Type(window, "640");
    EXPECT_EQ(test::TextOf(window, "Setup_New_FirstBoard"), "640") << "it was selected again";
    test::Press(window, Qt::Key_Tab);
    test::Type(window, "640");
    test::Press(window, Qt::Key_Return);
  });
  EXPECT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(Stored(kNewFirstBoard), "640");
  EXPECT_EQ(Stored(kNewLastBoard), "640");
}

TEST_F(PreferencesWindowTest, AClickThatLeavesAWrongNumberIsRefusedOnce) {
  for (const char* elsewhere : {"Exit", "Setup_New_FirstBoard", "Setup_New_Shapes"}) {
    desk.Boxes.clear();
    Open([this, elsewhere](QWidget& window) {
      test::Click(window, "Setup_New_LastBoard");
      desk.Loop.Pump();
      test::Press(window, Qt::Key_Backspace);
      ExpectBox();
      test::Click(window, elsewhere);
      desk.Loop.Pump();
      EXPECT_THAT(desk.Boxes, SizeIs(1)) << elsewhere;
      EXPECT_EQ(Focus(window), "Setup_New_LastBoard") << elsewhere;
      test::Type(window, "8");
      test::Click(window, "Exit");
    });
    EXPECT_THAT(desk.Boxes, SizeIs(1)) << elsewhere;
  }
}

TEST_F(PreferencesWindowTest, RestoreReplacesAWrongNumber) {
  Open([this](QWidget& window) {
    test::Type(window, "641");
    test::Click(window, "Restore");
    desk.Loop.Pump();
    EXPECT_EQ(test::TextOf(window, "Setup_New_FirstBoard"), "1");
    test::Click(window, "Exit");
  });
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(PreferencesWindowTest, EveryWayOutRunsBothChecks) {
  const std::vector<std::function<void(QWidget&)>> ways{
      [](QWidget& window) { test::Press(window, Qt::Key_Escape); },
      [](QWidget& window) { window.close(); },
      [](QWidget& window) { test::Press(window, Qt::Key_Return); }};
  for (const auto& leave : ways) {
    desk.Boxes.clear();
    Open([&](QWidget& window) {
      test::Type(window, "641");
      ExpectBox();
      leave(window);
      EXPECT_TRUE(window.isVisible());
      EXPECT_EQ(Focus(window), "Setup_New_FirstBoard");
      test::Type(window, "33");
      ExpectBox();
      leave(window);
      EXPECT_EQ(Focus(window), "Setup_New_LastBoard") << "32 is below 33";
      test::Type(window, "33");
      leave(window);
      EXPECT_FALSE(window.isVisible());
    });
    EXPECT_THAT(desk.Boxes, SizeIs(2));
    EXPECT_EQ(Stored(kNewFirstBoard), "33");
    EXPECT_EQ(Stored(kNewLastBoard), "33");
    desk.Store.Set(kNewLastBoard, "32");
  }
}

TEST_F(PreferencesWindowTest, AFocusLostToAnotherWindowIsNoLeaving) {
  Open([this](QWidget& window) {
    test::Type(window, "641");
    QFocusEvent lost(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(&test::Find<QLineEdit>(window, "Setup_New_FirstBoard"), &lost);
    desk.Loop.Pump();
    EXPECT_THAT(desk.Boxes, IsEmpty());
    test::Press(window, Qt::Key_Backspace);
    test::Press(window, Qt::Key_Backspace);
    test::Click(window, "Exit");
  });
  EXPECT_EQ(Stored(kNewFirstBoard), "6");
}

TEST_F(PreferencesWindowTest, RestoreShowsTheDefaultsAndLeavesDealSub) {
  desk.Store.Set(kNewFirstBoard, "9");
  desk.Store.Set(kGenerator, "1");
  desk.Store.Set(kAnalyzer, "1");
  desk.Store.Set(kDealSub, "1");
  desk.Store.Set(kDealCopy, "1");
  Open([this](QWidget& window) {
    test::Click(window, "Restore");
    EXPECT_EQ(test::TextOf(window, "Setup_New_FirstBoard"), "1");
    EXPECT_TRUE(Checked(window, "Gen2"));
    EXPECT_TRUE(Checked(window, "Analize1"));
    EXPECT_TRUE(Checked(window, "Setup_Deal_Sub"));
    EXPECT_FALSE(Checked(window, "Setup_Deal_Copy"));
    EXPECT_EQ(Stored(kGenerator), "2") << "written at once";
    EXPECT_EQ(Stored(kDealNumberCopies), "1");
    test::Press(window, Qt::Key_Escape);
  });
  EXPECT_EQ(Stored(kGenerator), "2");
  EXPECT_EQ(Stored(kAnalyzer), "0");
  EXPECT_EQ(Stored(kDealSub), "1");
}

TEST_F(PreferencesWindowTest, TheSoundOfAFaultCanBeHeardAndSwitchedOff) {
  Open([this](QWidget& window) {
    EXPECT_TRUE(Checked(window, "Setup_Error_sound"));
    test::Click(window, "Hear");
    EXPECT_THAT(desk.Speaker.Played, SizeIs(1));
    test::Click(window, "Setup_Error_sound");
    test::Press(window, Qt::Key_Escape);
  });
  EXPECT_EQ(Stored(kErrorSound), "0");
}

TEST_F(PreferencesWindowTest, AProgramThatEndsWritesNothing) {
  Open([this](QWidget& window) {
    test::Type(window, "5");
    desk.Loop.Quit();
  });
  EXPECT_FALSE(desk.Store.Has(kNewFirstBoard));
}

TEST_F(PreferencesWindowTest, TheTabKeyGoesThroughItAsTheEyeDoes) {
  Open([](QWidget& window) {
    std::vector<std::string> order;
    do {
      order.push_back(Focus(window));
      test::Press(window, Qt::Key_Tab);
    } while (Focus(window) != order.front() && order.size() < 30);
    EXPECT_THAT(
        order, ElementsAre("Setup_New_FirstBoard", "Setup_New_LastBoard", "Setup_New_Shapes",
                           "Setup_New_Inner", "Setup_New_History", "Gen2", "Setup_Load_Allocation",
                           "Setup_Save_Event", "Setup_Save_Incomplete", "Setup_Save_Numbers",
                           "Setup_Save_Analyze", "Show_boards", "Setup_Deal_Sub", "Setup_Deal_Copy",
                           "Setup_Error_sound", "Hear", "Analize1", "Restore", "Exit"));
    test::Click(window, "Exit");
  });
}

TEST_F(PreferencesWindowTest, ASmallScreenHoldsItWithoutScrolling) {
  Open([this](QWidget& window) {
    FitToScreen(window, QRect(0, 0, 800, 600));
    desk.Loop.Pump();
    for (const auto* bar : window.findChildren<QScrollBar*>()) EXPECT_FALSE(bar->isVisible());
    test::Click(window, "Exit");
  });
}

TEST_F(PreferencesWindowTest, TheTabKeyComesBackToTheOptionThatIsSetNow) {
  Open([](QWidget& window) {
    test::Find<QWidget>(window, "Gen2").setFocus();
    test::Press(window, Qt::Key_Up);
    EXPECT_TRUE(Checked(window, "Gen1"));
    test::Press(window, Qt::Key_Tab);
    test::Press(window, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Focus(window), "Gen1");
    test::Click(window, "Gen0");
    test::Press(window, Qt::Key_Tab);
    test::Press(window, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Focus(window), "Gen0");
    test::Click(window, "Restore");
    test::Press(window, Qt::Key_Tab);
    EXPECT_EQ(Focus(window), "Gen2") << "set by the defaults, and next to where the focus was";
    test::Click(window, "Exit");
  });
}

TEST_F(PreferencesWindowTest, OfKeysThatComeAtOnceTheFirstWrongNumberIsRefused) {
  Open([this](QWidget& window) {
    test::Type(window, "641");
    ExpectBox();
    for (int n = 1; n <= 2; ++n) {  // both before the window comes to look
      QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, {});
      QApplication::sendEvent(window.focusWidget(), &tab);
    }
    desk.Loop.Pump();
    ASSERT_THAT(desk.Boxes, SizeIs(1));
    EXPECT_THAT(desk.Boxes[0].Text, ::testing::StartsWith("First Board number"));
    EXPECT_EQ(Focus(window), "Setup_New_FirstBoard");
    test::Type(window, "1");
    test::Click(window, "Exit");
  });
}

}  // namespace
}  // namespace morvane::shell
