#include "shell/ui/menu_bar.h"

#include <QAction>
#include <QMenu>
#include <utility>

#include "shell/ui/about.h"
#include "shell/ui/recent_entries.h"

namespace morvane::shell {

MenuBar::MenuBar(Shell& shell, Help& help, int serviceLevel, QWidget* parent) : QMenuBar(parent) {
  AddFileMenu(shell);
  AddEntry(*this, "menuDeal", "&Deal", Qt::CTRL | Qt::Key_D, [&shell] { shell.MenuDeal(); });
  AddEntry(*this, "menuRead", "&Read", Qt::CTRL | Qt::Key_R, [&shell] { shell.MenuRead(); });
  AddEntry(*this, "menuSort", "S&ort", Qt::CTRL | Qt::Key_T, [&shell] { shell.MenuSort(); });
  AddEntry(*this, "menuEdit", "&Edit", Qt::CTRL | Qt::Key_E, [&shell] { shell.MenuEdit(); });
  AddEntry(*this, "Analize", "&Analyze", Qt::CTRL | Qt::Key_Y, [&shell] { shell.MenuAnalyze(); });
  AddEntry(*this, "menuPrint", "&Print", QKeySequence::Print, [&shell] { shell.MenuPrint(); });
  AddMaintenanceMenu(shell, serviceLevel);
  AddEntry(*this, "menuPoker", "Po&ker", Qt::CTRL | Qt::Key_K, [&shell] { shell.MenuPoker(); });
  AddSetupMenu(shell);
  AddHelpMenu(help);
}

void MenuBar::AddFileMenu(Shell& shell) {
  QMenu& file = AddMenu("menuFile", "&File");
  AddEntry(file, "menuNew", "&New", QKeySequence::New, [&shell] { shell.MenuNew(); });
  AddEntry(file, "menuLoad", "&Load", QKeySequence::Open, [&shell] { shell.MenuLoad(); });
  AddEntry(file, "menuImport", "&Import PBN", {}, [&shell] { shell.MenuImport(); });
  AddEntry(file, "menuSave", "&Save", QKeySequence::Save, [&shell] { shell.MenuSave(); });
  new RecentEntries(shell, file);
  file.addSeparator()->setObjectName("div1");
  AddEntry(file, "menuExit", "E&xit", Qt::CTRL | Qt::Key_Q, [this] { window()->close(); });
}

void MenuBar::AddMaintenanceMenu(Shell& shell, int serviceLevel) {
  QMenu& maintenance = AddMenu("cmdMaintenance_direct", "&Maintenance");
  AddEntry(maintenance, "cmdMaintenance", "&Maintenance", Qt::CTRL | Qt::Key_M,
           [&shell] { shell.MenuMaintenance(); });
  AddEntry(maintenance, "Read_Service_File", "&Read Service File", {}, [&shell] {
    shell.MenuReadServiceFile();
  })->setVisible(serviceLevel > 0);
}

void MenuBar::AddSetupMenu(Shell& shell) {
  QMenu& setup = AddMenu("cmdSetup", "&Setup");
  AddEntry(setup, "cmdPref", "&Preferences", Qt::CTRL | Qt::Key_Comma,
           [&shell] { shell.CmdPref(); });
}

void MenuBar::AddHelpMenu(Help& help) {
  // Alt+H hides the statistics.
  QMenu& menu = AddMenu("menuHelp", "He&lp");
  AddEntry(menu, "menuContents", "&Contents", QKeySequence::HelpContents,
           [&help] { help.OpenContents(); });
  AddEntry(menu, "menuErrorCodes", "&Error Codes", {}, [&help] { help.OpenErrorCodes(); });
  AddEntry(menu, "menuDiagnosis", "Copy &Diagnosis", {}, [&help] { help.CopyDiagnosis(); });
  menu.addSeparator()->setObjectName("divAbout");
  AddEntry(menu, "menuAbout", "&About Morvane", {}, [this, &help] { ShowAbout(help, *window()); });
}

QMenu& MenuBar::AddMenu(const char* name, const char* caption) {
  QMenu* menu = addMenu(caption);
  menu->setObjectName(name);
  menu->setToolTipsVisible(true);
  return *menu;
}

/// While its flow runs, an entry cannot be chosen again.
QAction* MenuBar::AddEntry(QWidget& menu, const char* name, const char* caption,
                           const QKeySequence& keys, Flow flow) {
  QAction* entry = menu.addAction(caption);
  entry->setObjectName(name);
  entry->setShortcut(keys);
  connect(entry, &QAction::triggered, this, [entry, flow = std::move(flow)] {
    entry->setEnabled(false);
    flow();
    entry->setEnabled(true);
  });
  return entry;
}

}  // namespace morvane::shell
