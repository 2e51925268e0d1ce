#pragma once

#include <QWidget>
#include <map>

#include "edit/editor.h"

class QGridLayout;
class QPushButton;

namespace morvane::edit {

/// The buttons of the editor's commands, with their keys. The window places them in groups.
class CommandButtons final : public QObject {
 public:
  /// The buttons and keys work in `window`.
  CommandButtons(Editor& editor, QWidget* window);

  /// Puts the buttons of `commands` into a new layout, two in a row, in the order in which the tab
  /// key walks through them.
  QGridLayout* Place(std::initializer_list<Editor::Command> commands);
  /// What can be pressed now.
  void Show();

 private:
  QPushButton* Make(Editor::Command command);

  Editor& editor_;
  QWidget* window_;
  std::map<Editor::Command, QPushButton*> buttons_;
};

}  // namespace morvane::edit
