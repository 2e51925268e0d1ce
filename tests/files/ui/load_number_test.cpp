#include "files/ui/load_number.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "shell/ui/main_menu.h"
#include "shell/ui/qt_windows.h"
#include "simulator/simulated_machine.h"
#include "support/fake_desktop.h"
#include "support/qt_desk.h"

namespace morvane::files {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

/// `Load_number` as a load brings it up over the main window.
class LoadNumberWindowTest : public ::testing::Test {
 protected:
  test::QtDesk desk;
  simulator::SimulatedMachine simulated{simulator::Options(), desk.Clock};
  shell::QtWindows windows{desk.Prog};
  LoneInstance alone;
  test::FakeProcesses processes;
  shell::Shell shell{desk.Prog, simulated, processes, windows, alone};
  test::FakeDesktop around;
  shell::Help help{desk.Prog, shell.TheMachine(), around, {}};
  shell::MainMenu menu{desk.Prog, shell, help};

  void SetUp() override {
    windows.SetMainMenu(menu);
    desk.Ui.SetMainWindow(menu.ForUi());
    menu.show();
  }

  /// Brings it up for `count` boards, lets `act` deal with it; whether it was closed by its button.
  bool Ask(int count, std::function<void(QWidget&)> act, const char* extension = "BRI") {
    test::FillSet(desk.Prog.Set, 1, count);
    LoadNumber dialog(desk.Prog, *FindFormat(extension));
    desk.When("Load_number", std::move(act));
    windows.ShowLoadNumber(dialog);
    EXPECT_EQ(test::TopWindow("Load_number"), nullptr);
    return dialog.Closed();
  }
  static std::string Text(const QWidget& window, const char* name) {
    return test::TextOf(window, name);
  }
  static QLineEdit& FirstBoard(const QWidget& window) {
    return test::Find<QLineEdit>(window, "txtFirstBoard");
  }
  static std::string FocusName(const QWidget& window) {
    return window.focusWidget() == nullptr ? "" : window.focusWidget()->objectName().toStdString();
  }
};

TEST_F(LoadNumberWindowTest, ShowsItsTextsAndTheNumbersOffered) {
  EXPECT_TRUE(Ask(
      36,
      [](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Boards Numbers");
        EXPECT_EQ(Text(window, "lblBoardLoaded"), "36 Boards were loaded");
        EXPECT_EQ(Text(window, "lblFormat"),
                  "DEAL305 format does not support board numbers. Loaded boards are allocated as "
                  "follows:");
        EXPECT_EQ(Text(window, "lblFirstBoard"), "First Board:");
        EXPECT_EQ(Text(window, "lblLastBoard"), "Last Board:");
        EXPECT_EQ(
            Text(window, "lblChangeBoards"),
            "To change board allocation enter a new First Board number in the text box above.");
        EXPECT_EQ(Text(window, "Command1"), "OK");
        EXPECT_EQ(Text(window, "txtFirstBoard"), "1");
        EXPECT_EQ(Text(window, "txtLastBoard"), "36");
        test::Click(window, "Command1");
      },
      "ALL"));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 36);
}

TEST_F(LoadNumberWindowTest, IsModalToTheMainWindow) {
  EXPECT_TRUE(Ask(2, [this](QWidget& window) {
    EXPECT_EQ(window.windowModality(), Qt::WindowModal);
    EXPECT_EQ(window.parentWidget(), &menu);
    test::Click(menu, "ShowStat");
    EXPECT_FALSE(desk.Prog.ShowStatistics) << "the click has not arrived";
    test::Click(window, "Command1");
  }));
}

TEST_F(LoadNumberWindowTest, TheNumberIsReadyToBeTypedOver) {
  EXPECT_TRUE(Ask(36, [](QWidget& window) {
    EXPECT_EQ(FocusName(window), "txtFirstBoard");
    EXPECT_EQ(FirstBoard(window).selectedText(), "1");
    test::Type(window, "37");
    EXPECT_EQ(Text(window, "txtFirstBoard"), "37");
    EXPECT_EQ(Text(window, "txtLastBoard"), "72");
    test::Press(window, Qt::Key_Return);
  }));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 37);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 72);
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

TEST_F(LoadNumberWindowTest, EnterAloneTakesTheNumbersOffered) {
  EXPECT_TRUE(Ask(36, [](QWidget& window) { test::Press(window, Qt::Key_Enter); }));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
}

TEST_F(LoadNumberWindowTest, OnlyNumbersUpTo999CanBeTyped) {
  EXPECT_TRUE(Ask(36, [](QWidget& window) {
    test::Type(window, "x");
    EXPECT_EQ(Text(window, "txtFirstBoard"), "1") << "remembered, although nothing was typed yet";
    FirstBoard(window).selectAll();
    test::Type(window, "9x999");
    EXPECT_EQ(Text(window, "txtFirstBoard"), "999");
    EXPECT_EQ(Text(window, "txtLastBoard"), "1034") << "more than there can be, until OK";
    FirstBoard(window).selectAll();
    test::Press(window, Qt::Key_Backspace);
    EXPECT_EQ(Text(window, "txtFirstBoard"), "");
    EXPECT_EQ(Text(window, "txtLastBoard"), "35");
    test::Type(window, "05");
    EXPECT_EQ(Text(window, "txtFirstBoard"), "5");
    test::Press(window, Qt::Key_Return);
  }));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 5);
}

TEST_F(LoadNumberWindowTest, ANumberWithoutRoomIsToldAndTheDialogStays) {
  EXPECT_TRUE(Ask(36, [this](QWidget& window) {
    test::Type(window, "606");
    desk.AnswerBox(QMessageBox::Ok);
    test::Click(window, "Command1");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(FocusName(window), "txtFirstBoard");
    EXPECT_EQ(FirstBoard(window).selectedText(), "606");
    EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
    test::Type(window, "605");
    test::Press(window, Qt::Key_Return);
  }));
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Incorrect value entered");
  EXPECT_EQ(desk.Boxes[0].Text,
            "Incorrect value for First Board number\nFirst Board numbers must be between 1 and "
            "605\n\nPlease enter correct value.");
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 605);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 640);
}

TEST_F(LoadNumberWindowTest, ThereIsNoCancel) {
  EXPECT_TRUE(Ask(36, [](QWidget& window) {
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    test::Type(window, "37");
    test::Press(window, Qt::Key_Escape);
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Text(window, "txtFirstBoard"), "37") << "what was typed stays";
    test::Press(window, Qt::Key_Return);
  }));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 37);
}

TEST_F(LoadNumberWindowTest, TheProgramsEndEndsIt) {
  EXPECT_FALSE(Ask(36, [this](QWidget& window) {
    test::Type(window, "37");
    desk.Loop.Quit();
  }));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
}

TEST_F(LoadNumberWindowTest, TheProgramsEndEndsItBehindItsMessageToo) {
  EXPECT_FALSE(Ask(36, [this](QWidget& window) {
    test::Type(window, "999");
    desk.When("MessageBox", [this](QWidget&) { desk.Loop.Quit(); });
    test::Press(window, Qt::Key_Return);
  }));
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
}

TEST_F(LoadNumberWindowTest, TabGoesBetweenTheNumberAndTheButton) {
  EXPECT_TRUE(Ask(36, [](QWidget& window) {
    test::Press(window, Qt::Key_Tab);
    EXPECT_EQ(FocusName(window), "Command1");
    test::Press(window, Qt::Key_Tab);
    EXPECT_EQ(FocusName(window), "txtFirstBoard");
    EXPECT_EQ(FirstBoard(window).selectedText(), "1");
    test::Press(window, Qt::Key_Backtab);
    EXPECT_EQ(FocusName(window), "Command1");
    test::Press(window, Qt::Key_Space);
  }));
}

TEST_F(LoadNumberWindowTest, TheLastBoardFollowsAndIsNotTyped) {
  EXPECT_TRUE(Ask(36, [](QWidget& window) {
    test::Click(window, "txtLastBoard");
    test::Type(window, "5");
    EXPECT_EQ(Text(window, "txtLastBoard"), "36");
    test::Press(window, Qt::Key_Return);
  }));
}

TEST_F(LoadNumberWindowTest, NoTextIsCutHoweverLargeTheFontAndSmallTheWindow) {
  const QFont before = QApplication::font();
  for (const int points : {9, 18}) {
    QFont font = before;
    font.setPointSize(points);
    QApplication::setFont(font);
    EXPECT_TRUE(Ask(36, [this](QWidget& window) {
      window.resize(10, 10);
      desk.Loop.Pump();
      for (const QLabel* label : window.findChildren<QLabel*>()) {
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->objectName().toStdString();
        EXPECT_GE(label->height(), label->sizeHint().height());
      }
      window.resize(1300, 500);
      desk.Loop.Pump();
      EXPECT_EQ(window.size(), QSize(1300, 500)) << "larger it may be";
      test::Click(window, "Command1");
    }));
  }
  QApplication::setFont(before);
}

}  // namespace
}  // namespace morvane::files
