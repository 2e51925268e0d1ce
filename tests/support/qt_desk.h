#pragma once

#include <QMessageBox>
#include <QWidget>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/qt/qt_ui.h"
#include "program/program.h"
#include "support/fakes.h"
#include "support/qt_virtual_time.h"

namespace morvane::test {

/// The control `name` of `window`; the test fails and ends when there is none.
template <typename Control = QWidget>
Control& Find(const QObject& window, const char* name) {
  auto* control = window.findChild<Control*>(name);
  if (control == nullptr) {
    ADD_FAILURE() << "no control " << name;
    std::abort();
  }
  return *control;
}

/// The text that the control shows: a label's, a box's or a button's.
[[nodiscard]] std::string TextOf(const QObject& window, const char* name);
[[nodiscard]] bool Enabled(const QObject& window, const char* name);
[[nodiscard]] bool Visible(const QObject& window, const char* name);

// Real events, sent to the window as the window system would: a window that another one blocks does
// not get them.
void Click(QWidget& control);
void Click(const QObject& window, const char* name);
/// To what has the focus in the window.
void Type(QWidget& window, const std::string& text);
void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// The visible window of that name, null when there is none.
[[nodiscard]] QWidget* TopWindow(const std::string& name);

/// A program at a desktop: real windows, virtual time, and an operator who answers what comes up in
/// the order that the test has said.
class QtDesk {
 public:
  QtDesk();
  /// Whatever was expected must have come up.
  ~QtDesk();
  QtDesk(const QtDesk&) = delete;
  QtDesk& operator=(const QtDesk&) = delete;

  TempFolder Folder;
  VirtualClock Clock;
  QtVirtualEventLoop Loop{Clock};
  QtUi Ui{Loop};
  MemorySettings Store;
  FakeEntropy Random;
  FakeSound Speaker;
  FakePrinter ThePrinter;
  Program Prog;

  /// When a window called `name` comes up next, `act` is done with it.
  void When(const std::string& name, std::function<void(QWidget&)> act);
  /// When a message box comes up next, this button is pressed.
  void AnswerBox(QMessageBox::StandardButton button);

  struct Box {
    std::string Title;
    std::string Text;
  };
  std::vector<Box> Boxes;  ///< the message boxes that came up

  [[nodiscard]] std::vector<std::string> LogLines() const;

 private:
  void LookAround();
  struct Expectation {
    std::string Name;
    std::function<void(QWidget&)> Act;
  };
  std::deque<Expectation> expected_;
};

}  // namespace morvane::test
