#include "support/qt_desk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

namespace morvane::test {
namespace {

constexpr const char* kSeen = "seen";

/// Check boxes and options are wider than what answers a click.
QPoint ClickPoint(const QWidget& control) {
  const bool option = qobject_cast<const QCheckBox*>(&control) != nullptr ||
                      qobject_cast<const QRadioButton*>(&control) != nullptr;
  return option ? QPoint(8, control.height() / 2) : control.rect().center();
}

QWidget* Unseen(const std::string& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName().toStdString() == name &&
        !window->property(kSeen).toBool()) {
      return window;
    }
  }
  return nullptr;
}

}  // namespace

std::string TextOf(const QObject& window, const char* name) {
  const auto& control = Find<QWidget>(window, name);
  if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text().toStdString();
  if (const auto* box = qobject_cast<const QLineEdit*>(&control)) return box->text().toStdString();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
    return button->text().toStdString();
  }
  ADD_FAILURE() << name << " shows no text";
  return "";
}

bool Enabled(const QObject& window, const char* name) {
  return Find<QWidget>(window, name).isEnabled();
}

bool Visible(const QObject& window, const char* name) {
  return Find<QWidget>(window, name).isVisible();
}

void Click(QWidget& control) {
  QWidget* window = control.window();
  if (window->windowHandle() == nullptr || !control.isVisible()) {
    ADD_FAILURE() << control.objectName().toStdString() << " is not there to be clicked";
    return;
  }
  QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                    control.mapTo(window, ClickPoint(control)));
}

void Click(const QObject& window, const char* name) { Click(Find<QWidget>(window, name)); }

void Type(QWidget& window, const std::string& text) {
  for (const char letter : text) QTest::keyClick(window.windowHandle(), letter);
}

void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(window.windowHandle(), key, modifiers);
}

QWidget* TopWindow(const std::string& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName().toStdString() == name) return window;
  }
  return nullptr;
}

QtDesk::QtDesk()
    : Prog({Ui, Loop, Clock, Store, Random, Speaker, ThePrinter},
           {Folder.Path(), Folder / "Morvane_Data", Folder / "settings.ini"}) {
  std::filesystem::create_directory(Prog.Paths.Data);
  RuntimeError error;
  EXPECT_TRUE(Prog.Log.Start(Prog.Paths.Data, error)) << error.Description;
  Loop.OnPump = [this] { LookAround(); };
}

QtDesk::~QtDesk() {
  for (const auto& missing : expected_) ADD_FAILURE() << missing.Name << " never came up";
}

void QtDesk::When(const std::string& name, std::function<void(QWidget&)> act) {
  expected_.push_back({name, std::move(act)});
}

void QtDesk::AnswerBox(QMessageBox::StandardButton button) {
  When("MessageBox", [button](QWidget& window) {
    QAbstractButton* control = static_cast<QMessageBox&>(window).button(button);
    ASSERT_NE(control, nullptr) << "the box has no such button";
    Click(*control);
  });
}

void QtDesk::LookAround() {
  while (QWidget* window = Unseen("MessageBox")) {
    const auto& box = static_cast<QMessageBox&>(*window);
    Boxes.push_back({box.windowTitle().toStdString(), box.text().toStdString()});
    if (expected_.empty() || expected_.front().Name != "MessageBox") {
      ADD_FAILURE() << "a box that the test does not expect: " << Boxes.back().Text;
      window->setProperty(kSeen, true);
      window->close();
      continue;
    }
    break;
  }
  if (expected_.empty()) return;
  QWidget* window = Unseen(expected_.front().Name);
  if (window == nullptr) return;
  window->setProperty(kSeen, true);
  const auto act = std::move(expected_.front().Act);
  expected_.pop_front();
  act(*window);
}

std::vector<std::string> QtDesk::LogLines() const {
  std::vector<std::string> lines;
  std::string bytes = Content(Prog.Log.Path());
  for (std::size_t end = bytes.find("\r\n"); end != std::string::npos; end = bytes.find("\r\n")) {
    lines.push_back(bytes.substr(0, end));
    bytes.erase(0, end + 2);
  }
  return lines;
}

}  // namespace morvane::test
