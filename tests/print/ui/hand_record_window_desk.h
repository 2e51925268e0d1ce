#pragma once

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>
#include <functional>
#include <string>
#include <utility>

#include "shell/ui/main_menu_desk.h"

namespace morvane::shell {

/// The printing dialog from the menu until its window has gone.
class HandRecordWindowTest : public MainMenuTest {
 protected:
  void SetUp() override {
    MainMenuTest::SetUp();
    Start();
    test::FillSet(desk.Prog.Set, 5, 9);
    for (int n = 5; n <= 9; ++n) desk.Prog.Set.At(n).Tricks[0] = 3;
    desk.Prog.Set.EventName = "Club evening";
    desk.Prog.Set.BoardSetFile = "/sets/evening.pbn";
    desk.Store.Set(kPrintPerPage, "2");
  }
  /// Opens the window from the menu by its key and lets `act` deal with it.
  void Open(std::function<void(QWidget&)> act) {
    menu->activateWindow();  // as window managers do behind a window before it
    desk.Loop.Pump();
    desk.When("HandRecord", [act = std::move(act)](QWidget& window) {
      act(window);
      window.close();
    });
    test::Press(*menu, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(test::TopWindow("HandRecord"), nullptr);
    EXPECT_FALSE(shell.FlowActive());
    EXPECT_EQ(Text("Panel1"), "Ready");
  }
  static std::string Focus(const QWidget& window) {
    return window.focusWidget() == nullptr ? "" : window.focusWidget()->objectName().toStdString();
  }
  static bool Checked(const QWidget& window, const char* name) {
    return test::Find<QAbstractButton>(window, name).isChecked();
  }
  static std::string Caption(const QWidget& window, const char* name) {
    return test::Find<QAbstractButton>(window, name).text().remove('&').toStdString();
  }
  /// A button that a letter presses stays down for a moment.
  static void PressLetter(QWidget& window, Qt::Key letter, const std::function<bool()>& done) {
    test::Press(window, letter, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor(done)) << static_cast<char>(letter);
  }
  static void Retype(QWidget& window, const char* box, const std::string& text) {
    test::Click(window, box);
    test::Find<QLineEdit>(window, box).selectAll();
    test::Type(window, text);
  }
};

}  // namespace morvane::shell
