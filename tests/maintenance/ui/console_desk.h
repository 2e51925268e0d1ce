#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTabWidget>
#include <QTest>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "machine/machine.h"
#include "machine/open_link.h"
#include "maintenance/maintenance.h"
#include "maintenance/ui/camera_bridge.h"
#include "maintenance/ui/maintenance_window.h"
#include "platform/qt/spoken.h"
#include "simulator/simulated_machine.h"
#include "support/bridge_tap.h"
#include "support/qt_desk.h"
#include "wire/service_commands.h"

namespace morvane::maintenance {

/// A machine with firmware 2 and this minor number.
inline simulator::Options MachineOf(std::uint8_t minor = 0x90, std::uint16_t hardware = 0x7F) {
  simulator::Options options;
  options.Seed = 7;
  options.FirmwareMinor = minor;
  options.Hardware = hardware;
  return options;
}

/// The window `Maintenance` on a simulated machine.
class ConsoleDesk : public ::testing::Test {
 protected:
  explicit ConsoleDesk(const simulator::Options& options = MachineOf())
      : simulated(options, desk.Clock) {}
  ~ConsoleDesk() override { window.reset(); }  // before the logic that it shows

  test::QtDesk desk;
  simulator::SimulatedMachine simulated;
  CameraBridge camera{simulated};
  test::BridgeTap bridge{camera};
  machine::Machine machine{desk.Random, bridge, machine::MachineKind::kSimulated};
  int feeds = 0;                                ///< frames that move a card
  std::vector<std::pair<int, int>> testWrites;  ///< the numbers sent
  std::unique_ptr<PictureStore> pictures = std::make_unique<PictureStore>();
  Maintenance console{desk.Prog, machine, *pictures};
  QMainWindow mainWindow;
  std::unique_ptr<MaintenanceWindow> window;

  void SetUp() override {
    mainWindow.setObjectName("MainMenu");
    mainWindow.show();
    bridge.OnFrame = [this] { Note(machine.Link.TxFrame); };
  }

  void Open() {
    ASSERT_TRUE(machine::OpenLink(desk.Prog, machine.Link, Maintenance::kLinkTimeoutMs));
    window = std::make_unique<MaintenanceWindow>(desk.Prog, console, &mainWindow);
    console.Open(*window);
    window->activateWindow();
    desk.Loop.Pump();
  }
  /// The first contact, and some polls.
  void Contact() {
    Open();
    desk.Loop.WaitMs(Maintenance::kFirstContactMs + 100);
    ASSERT_TRUE(console.Controls().MachineKnown);
    Polls();
  }
  void Polls() { desk.Loop.WaitMs(500); }
  void Service(int level) { desk.Prog.ServiceLevel = level; }

  void Click(const char* name) { test::Click(*window, name); }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    test::Press(*window, key, modifiers);
  }
  /// Alt and the letter of the button `name`, which stays down for a moment.
  void PressLetter(Qt::Key letter, const char* name) {
    const auto& button = test::Find<QAbstractButton>(*window, name);
    window->activateWindow();  // a box may have had the keyboard
    Press(letter, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  }
  void Page(int page) {
    test::Find<QTabWidget>(*window, "tabs").setCurrentIndex(page);
    desk.Loop.Pump();
  }
  void Focus(const char* name) { test::Find<QWidget>(*window, name).setFocus(); }
  /// In place of what stands in the box, which keeps the focus.
  void TypeInto(const char* box, const std::string& text) {
    Focus(box);
    test::Find<QLineEdit>(*window, box).selectAll();
    if (text.empty()) Press(Qt::Key_Delete);
    test::Type(*window, text);
  }
  [[nodiscard]] std::string Text(const char* name) const { return test::TextOf(*window, name); }
  [[nodiscard]] bool Enabled(const char* name) const { return test::Enabled(*window, name); }
  [[nodiscard]] bool Visible(const char* name) const { return test::Visible(*window, name); }
  [[nodiscard]] bool Checked(const char* name) const {
    return test::Find<QAbstractButton>(*window, name).isChecked();
  }
  [[nodiscard]] bool There(const char* name) const {
    return window->findChild<QWidget*>(name) != nullptr;
  }
  [[nodiscard]] std::string FocusName() const {
    const QWidget* focus = window->focusWidget();
    return focus == nullptr ? "" : focus->objectName().toStdString();
  }

  // Of what is always in sight.
  [[nodiscard]] std::string Caption(const char* name) const {
    return QString::fromStdString(Text(name)).remove('&').toStdString();
  }
  /// Of an indicator; empty for the window's own.
  [[nodiscard]] std::string Ground(const char* name) const {
    const auto& label = test::Find<QLabel>(*window, name);
    return label.autoFillBackground() ? label.palette().color(QPalette::Window).name().toStdString()
                                      : "";
  }
  [[nodiscard]] std::string Word(const char* name) const {
    return Text((std::string(name) + "_word").c_str());
  }
  [[nodiscard]] std::string SpokenBy(const char* name) const {
    return dynamic_cast<Spoken&>(test::Find<QWidget>(*window, name)).SpokenText().toStdString();
  }
  [[nodiscard]] int Outputs() { return simulated.Opened().Outputs(); }

 private:
  void Note(const wire::Frame& frame) {
    if (wire::CodeOf(frame) == wire::OutputsCommand::Code) {
      feeds += wire::Get<wire::OutputsCommand>(frame).Feed ? 1 : 0;
    } else if (wire::CodeOf(frame) == wire::TestWriteCommand::Code) {
      const auto write = wire::Get<wire::TestWriteCommand>(frame);
      testWrites.emplace_back(write.First, write.Second);
    }
  }
};

/// The pages, by their place.
enum ConsolePage { kParameterPage, kPicturePage, kCardPage, kIdentityPage, kDeveloperPage };

}  // namespace morvane::maintenance
