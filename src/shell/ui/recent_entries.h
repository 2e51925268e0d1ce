#pragma once

#include <QObject>
#include <vector>

#include "shell/shell.h"

class QAction;
class QMenu;

namespace morvane::shell {

/// The entries `menuRecent1` to `menuRecent8` of the File menu, which open the board files used
/// last.
class RecentEntries final : public QObject {
 public:
  /// They come to stand behind what the menu has so far.
  RecentEntries(Shell& shell, QMenu& menu);

 private:
  void AddEntry(std::size_t place);
  void ShowFiles();

  Shell& shell_;
  QMenu& menu_;
  QAction* above_ = nullptr;
  std::vector<QAction*> entries_;
  std::vector<RecentFile> files_;  ///< as the entries show them
};

}  // namespace morvane::shell
