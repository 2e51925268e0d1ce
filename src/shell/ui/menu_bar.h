#pragma once

#include <QKeySequence>
#include <QMenuBar>
#include <functional>

#include "shell/help.h"
#include "shell/shell.h"

class QAction;
class QMenu;

namespace morvane::shell {

/// The menu of the main window: its entries in their order, their keys and the flow that each
/// starts.
class MenuBar final : public QMenuBar {
 public:
  MenuBar(Shell& shell, Help& help, int serviceLevel, QWidget* parent);

 private:
  using Flow = std::function<void()>;
  QMenu& AddMenu(const char* name, const char* caption);
  QAction* AddEntry(QWidget& menu, const char* name, const char* caption, const QKeySequence& keys,
                    Flow flow);
  void AddFileMenu(Shell& shell);
  void AddMaintenanceMenu(Shell& shell, int serviceLevel);
  void AddSetupMenu(Shell& shell);
  void AddHelpMenu(Help& help);
};

}  // namespace morvane::shell
