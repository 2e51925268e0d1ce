#pragma once

#include <QLineEdit>
#include <QTest>
#include <functional>
#include <string>

#include "shell/ui/main_menu_desk.h"

namespace morvane::generate {

/// `Generate` as the menu brings it up over the main window.
class GenerateWindowTest : public shell::MainMenuTest {
 protected:
  /// Opens it by its key, lets `act` deal with it and closes what is still open.
  void Open(std::function<void(QWidget&)> act) {
    if (test::TopWindow("MainMenu") == nullptr) Start();
    menu->activateWindow();  // as window managers do behind a window before it
    desk.Loop.Pump();
    desk.When("Generate", [act = std::move(act)](QWidget& window) {
      act(window);
      if (window.isVisible()) window.close();
    });
    test::Press(*menu, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(test::TopWindow("Generate"), nullptr);
    EXPECT_FALSE(shell.FlowActive());
  }
  static std::string Focus(const QWidget& window) {
    return window.focusWidget() == nullptr ? "" : window.focusWidget()->objectName().toStdString();
  }
  static std::string Text(const QWidget& window, const char* name) {
    return test::TextOf(window, name);
  }
  /// Types both numbers over what stands there.
  static void Range(QWidget& window, const std::string& first, const std::string& last) {
    for (const auto& [box, text] : {std::pair("txtFirstBoard", first), {"txtLastBoard", last}}) {
      test::Find<QLineEdit>(window, box).setFocus();
      test::Find<QLineEdit>(window, box).selectAll();
      test::Type(window, text);
    }
  }
  /// The button's letter; it stays down for a moment.
  static void PressLetter(QWidget& window, Qt::Key letter, const char* name) {
    window.activateWindow();
    const auto& button = test::Find<QAbstractButton>(window, name);
    test::Press(window, letter, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  }
};

}  // namespace morvane::generate
