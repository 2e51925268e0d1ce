#pragma once

#include <QKeySequence>
#include <QMenuBar>
#include <functional>

#include "shell/shell.h"
#include "shell/ui/reachable_entries.h"

class QAction;
class QMenu;

namespace morvane::shell {

/// The menu of the main window: its entries in their order, their keys and the flow that each
/// starts. An entry without a flow is disabled and says why in its tool tip and in the status bar.
class MenuBar final : public QMenuBar {
 public:
  MenuBar(Shell& shell, int serviceLevel, QWidget* parent);

 protected:
  bool event(QEvent* event) override;

 private:
  using Flow = std::function<void()>;
  QMenu& AddMenu(const char* name, const char* caption);
  QAction* AddEntry(QWidget& menu, const char* name, const char* caption,
                    const QKeySequence& keys = {}, Flow flow = nullptr);
  void AddFileMenu(Shell& shell);
  void AddMaintenanceMenu(Shell& shell, int serviceLevel);
  void AddSetupMenu(Shell& shell);
  void FollowEntry();
  void ShowToolTip(const QAction* entry, const QPoint& at);

  ReachableEntries style_;
  QAction* disabled_ = nullptr;  ///< the entry of the bar that says now why it cannot be used
};

}  // namespace morvane::shell
