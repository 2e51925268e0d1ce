#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>

#include "shell/ui/main_menu_desk.h"

// The boxes of the event texts, which behave alike.

namespace morvane::shell {
namespace {

struct EventBox {
  const char* Name;
  std::string BoardSet::*Text;
};

class EventBoxes : public MainMenuTest, public ::testing::WithParamInterface<EventBox> {
 protected:
  QLineEdit& Box() { return test::Find<QLineEdit>(*menu, GetParam().Name); }
  std::string& InSet() { return desk.Prog.Set.*GetParam().Text; }
  /// The box with the focus and so many characters, its caret at that place.
  void Begin(std::size_t characters, Qt::Key caret) {
    InSet() = std::string(characters, 'a');
    Start();
    menu->RefreshSet();
    Enter(GetParam().Name);
    test::Press(*menu, caret);
    desk.Prog.Set.BoardSetChanged = "0";
  }
};

INSTANTIATE_TEST_SUITE_P(All, EventBoxes,
                         ::testing::Values(EventBox{"txtEventName", &BoardSet::EventName},
                                           EventBox{"txtEventSite", &BoardSet::EventSite},
                                           EventBox{"txtEventDate", &BoardSet::EventDate}));

TEST_P(EventBoxes, TheCharacter200IsTaken) {
  Begin(199, Qt::Key_End);
  test::Type(*menu, "b");
  EXPECT_EQ(InSet(), std::string(199, 'a') + "b");
  EXPECT_EQ(Box().cursorPosition(), 200);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
}

TEST_P(EventBoxes, TheCharacter201IsRefusedTheCaretStaysBeforeItAndTheSetCountsAsChanged) {
  Begin(200, Qt::Key_End);
  test::Type(*menu, "b");
  EXPECT_EQ(InSet(), std::string(200, 'a'));
  EXPECT_EQ(Box().text().toStdString(), std::string(200, 'a'));
  EXPECT_EQ(Box().cursorPosition(), 200);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1") << "all the same: required";
  EXPECT_TRUE(menu->isWindowModified());
}

TEST_P(EventBoxes, InTheMiddleTheCaretStaysWhereItWas) {
  Begin(200, Qt::Key_End);
  for (int n = 0; n < 50; ++n) test::Press(*menu, Qt::Key_Left);
  test::Type(*menu, "b");
  EXPECT_EQ(InSet(), std::string(200, 'a'));
  EXPECT_EQ(Box().cursorPosition(), 150);
}

TEST_P(EventBoxes, AtTheStartTheCaretStaysThere) {
  Begin(200, Qt::Key_Home);
  test::Type(*menu, "b");
  EXPECT_EQ(InSet(), std::string(200, 'a'));
  EXPECT_EQ(Box().cursorPosition(), 0);
}

TEST_P(EventBoxes, AreEmptiedWithTheKeys) {
  Begin(20, Qt::Key_End);
  test::Press(*menu, Qt::Key_A, Qt::ControlModifier);
  test::Press(*menu, Qt::Key_Delete);
  EXPECT_EQ(InSet(), "");
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
}

TEST_P(EventBoxes, WhatIsPastedIsOneLine) {
  Begin(3, Qt::Key_End);
  QGuiApplication::clipboard()->setText("Open\nPairs\r\n");  // a cell of a table ends so
  test::Press(*menu, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(InSet(), "aaaOpen Pairs");
  EXPECT_EQ(Box().text(), "aaaOpen Pairs");
  EXPECT_EQ(Box().cursorPosition(), 13);
  test::Press(*menu, Qt::Key_Home);
  test::Press(*menu, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(InSet(), "Open PairsaaaOpen Pairs");
  EXPECT_EQ(Box().cursorPosition(), 10);
}

using FirstFocus = MainMenuTest;

TEST_F(FirstFocus, GoesToTheEventNameAtTheFirstActivationOnly) {
  Start();
  EXPECT_EQ(menu->focusWidget()->objectName(), "txtEventName");
  Enter("txtEventDate");
  QWidget other;
  other.show();
  other.activateWindow();
  desk.Loop.Pump();
  ASSERT_FALSE(menu->isActiveWindow());
  menu->activateWindow();
  desk.Loop.Pump();
  ASSERT_TRUE(menu->isActiveWindow());
  EXPECT_EQ(menu->focusWidget()->objectName(), "txtEventDate");
}

}  // namespace
}  // namespace morvane::shell
