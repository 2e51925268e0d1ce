#include "shell/ui/qt_windows.h"

#include <QApplication>

#include "analysis/ui/deep_f.h"
#include "edit/ui/edit_window.h"
#include "files/ui/load_number.h"
#include "generate/ui/generate.h"
#include "machine/ui/dealin_prog.h"
#include "machine/ui/sort_prog.h"
#include "maintenance/ui/maintenance_window.h"
#include "maintenance/ui/read_service_window.h"
#include "poker/ui/poker_window.h"
#include "print/ui/hand_record.h"
#include "shell/ui/main_menu.h"
#include "shell/ui/preferences.h"

namespace morvane::shell {

void QtWindows::ShowMainMenu() {
  mainMenu_->RefreshSet();
  mainMenu_->show();
}

void QtWindows::BringToFront() {
  mainMenu_->setWindowState(mainMenu_->windowState() & ~Qt::WindowMinimized);
  QWidget* modal = QApplication::activeModalWidget();
  for (QWidget* window : {static_cast<QWidget*>(mainMenu_), modal}) {
    if (window == nullptr) continue;
    window->raise();
    window->activateWindow();
  }
}

void QtWindows::ShowStatistics(const StatisticsPage& page) { mainMenu_->ShowStatistics(page); }

void QtWindows::ShowLoadNumber(files::LoadNumber& dialog) {
  files::LoadNumberWindow window(dialog, mainMenu_);
  window.open();
  program_.Loop.RunUntil([&dialog] { return dialog.Closed(); });
}

bool QtWindows::ShowEdit(edit::Editor& editor) {
  edit::EditWindow window(editor, mainMenu_);
  window.open();
  program_.Loop.RunUntil([&editor] { return editor.Closed(); });
  return true;
}

bool QtWindows::ShowHandRecord(print::HandRecord& dialog) {
  print::HandRecordWindow window(dialog, mainMenu_);
  window.open();
  program_.Loop.RunUntil([&dialog] { return dialog.Closed(); });
  return true;
}

void QtWindows::ShowGenerate(generate::GenerateForm& form) {
  generate::GenerateWindow window(form, mainMenu_);
  window.open();
  form.Open(window);
  program_.Loop.RunUntil([&form] { return form.Closed(); });
  form.cmdExit();  // the program may be quitting
}

void QtWindows::ShowPreferences(Preferences& preferences) {
  PreferencesWindow window(preferences, mainMenu_);
  window.open();
  program_.Loop.RunUntil([&preferences] { return preferences.Closed(); });
}

std::unique_ptr<machine::RunView> QtWindows::OpenDealinProg(machine::BoardRun& run) {
  return std::make_unique<machine::DealinProg>(program_, run, mainMenu_);
}

std::unique_ptr<machine::RunView> QtWindows::OpenSortProg(machine::SortingRun& run) {
  return std::make_unique<machine::SortProg>(program_, run, mainMenu_);
}

std::unique_ptr<machine::RunView> QtWindows::OpenPoker(poker::Poker& poker) {
  return std::make_unique<poker::PokerWindow>(program_, poker, mainMenu_);
}

std::unique_ptr<maintenance::MaintenanceView> QtWindows::OpenMaintenance(
    maintenance::Maintenance& maintenance) {
  return std::make_unique<maintenance::MaintenanceWindow>(program_, maintenance, Below());
}

bool QtWindows::ShowReadService(maintenance::ReadService& viewer, const std::string& path) {
  maintenance::ReadServiceWindow window(viewer, Below());
  viewer.Open(window, path);
  program_.Loop.RunUntil([&viewer] { return viewer.Closed(); });
  return true;
}

std::unique_ptr<analysis::DeepFView> QtWindows::OpenDeepF(analysis::DeepF& run) {
  return std::make_unique<analysis::DeepFWindow>(run, run.IsModal() ? Below() : mainMenu_);
}

QWidget* QtWindows::Below() const {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : mainMenu_;
}

}  // namespace morvane::shell
