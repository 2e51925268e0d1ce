#pragma once

#include <QAction>
#include <QMenu>
#include <memory>
#include <string>

#include "shell/ui/main_menu.h"
#include "shell/ui/qt_windows.h"
#include "simulator/simulated_machine.h"
#include "support/fake_desktop.h"
#include "support/qt_desk.h"

namespace morvane::shell {

/// The whole desktop program but for its `main`, on a simulated machine.
class MainMenuTest : public ::testing::Test {
 protected:
  test::QtDesk desk;
  simulator::SimulatedMachine simulated{simulator::Options(), desk.Clock};
  QtWindows windows{desk.Prog};
  LoneInstance alone;
  test::FakeProcesses processes;
  Shell shell{desk.Prog, simulated, processes, windows, alone};
  test::FakeDesktop around;
  Help help{desk.Prog,
            shell.TheMachine(),
            around,
            {"simulated", {{"Qt", "6.4.2"}, {"libusb", "1.0.26"}}}};
  std::unique_ptr<MainMenu> menu = std::make_unique<MainMenu>(desk.Prog, shell, help);

  void SetUp() override {
    shell.KeepRecentFiles();
    windows.SetMainMenu(*menu);
    desk.Ui.SetMainWindow(menu->ForUi());
  }
  void Start(const std::string& commandLine = "") {
    shell.StartUp(commandLine);
    desk.Loop.Pump();
  }
  /// As each flow that may have changed the set ends.
  void ShowFigures() { RefreshStatistics(desk.Prog, windows); }
  void Trigger(const char* entry) { test::Find<QAction>(*menu, entry).trigger(); }
  [[nodiscard]] std::string Text(const char* name) const { return test::TextOf(*menu, name); }
  void Enter(const char* box) { test::Click(*menu, box); }

  /// What stands in a menu: name and caption of each entry, its submenu's in brackets.
  static std::string Entries(const QWidget& menuOrBar) {
    std::string text;
    for (const QAction* entry : menuOrBar.actions()) {
      if (!text.empty()) text += ", ";
      const QMenu* submenu = entry->menu();
      text += (submenu != nullptr ? submenu->objectName() : entry->objectName()).toStdString();
      if (!entry->isSeparator()) text += " \"" + entry->text().toStdString() + "\"";
      if (submenu != nullptr) text += " [" + Entries(*submenu) + "]";
    }
    return text;
  }
};

}  // namespace morvane::shell
