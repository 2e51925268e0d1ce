#pragma once

#include <QLineEdit>
#include <QMainWindow>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "edit/board_text.h"
#include "edit/ui/edit_window.h"
#include "support/qt_desk.h"

namespace morvane::edit {

/// `Edit` over boards 1 to 3 on a desktop.
class EditWindowTest : public ::testing::Test {
 protected:
  using Command = Editor::Command;

  test::QtDesk desk;
  ClipMemory clip;
  std::uint32_t startParamMouse = 1;
  std::int32_t startParamDays = 0;
  CardDeck deck{};
  Editor editor{desk.Prog, clip, {desk.Random, startParamMouse, startParamDays, deck}, {}};
  QMainWindow mainWindow;
  std::unique_ptr<EditWindow> window;

  void SetUp() override {
    std::iota(deck.begin(), deck.end(), std::int8_t{0});
    test::FillSet(desk.Prog.Set, 1, 3);
    mainWindow.setObjectName("MainMenu");
    mainWindow.show();
  }
  void Open(int current = 1) {
    desk.Prog.Set.CurrentBoard = static_cast<std::int16_t>(current);
    editor.Open();
    window = std::make_unique<EditWindow>(editor, &mainWindow);
    window->open();
    desk.Loop.Pump();
  }

  void Click(const char* name) { test::Click(*window, name); }
  void Type(const std::string& text) { test::Type(*window, text); }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    test::Press(*window, key, modifiers);
  }
  void Focus(const char* name) { test::Find<QWidget>(*window, name).setFocus(); }
  [[nodiscard]] QLineEdit& Suit(int box) const {
    return test::Find<QLineEdit>(*window, ("txtSuit" + std::to_string(box)).c_str());
  }
  [[nodiscard]] std::string Cards(int box) const { return Suit(box).text().toStdString(); }
  [[nodiscard]] std::string Text(const char* name) const { return test::TextOf(*window, name); }
  [[nodiscard]] std::string TipOf(const char* name) const {
    return test::Find<QWidget>(*window, name).toolTip().toStdString();
  }
  [[nodiscard]] bool Enabled(const char* name) const { return test::Enabled(*window, name); }
  [[nodiscard]] bool Visible(const char* name) const { return test::Visible(*window, name); }
  [[nodiscard]] std::string FocusName() const {
    const QWidget* focus = window->focusWidget();
    return focus == nullptr ? "" : focus->objectName().toStdString();
  }
};

}  // namespace morvane::edit
