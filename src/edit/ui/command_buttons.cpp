#include "edit/ui/command_buttons.h"

#include <QGridLayout>
#include <QKeySequence>
#include <QShortcut>
#include <algorithm>
#include <array>
#include <initializer_list>

#include "edit/ui/edit_widgets.h"

namespace morvane::edit {
namespace {

using Command = Editor::Command;

struct Row {
  Command Does;
  const char* Name;
  const char* Caption;
  const char* Tip;
  std::array<const char*, 2> Keys{};  ///< the first one is told in the tip
};

constexpr std::array kRows{
    Row{Command::kFirst, "cmdFirst", "&First", "First board of the set", {"Ctrl+Home"}},
    Row{Command::kPrev, "cmdPrev", "Pre&vious", "One board back", {"PgUp"}},
    Row{Command::kNext, "cmdNext", "&Next", "One board on", {"PgDown"}},
    Row{Command::kLast, "cmdLast", "&Last", "Last board of the set", {"Ctrl+End"}},
    Row{Command::kAccept,
        "cmdAccept",
        "Acce&pt",
        "Accept the changes into the set",
        {"Ctrl+Return", "Ctrl+Enter"}},
    Row{Command::kRestore, "cmdRestore", "Res&tore", "Take the board of the set again"},
    Row{Command::kRandom, "cmdRandom", "&Random fill", "Complete the board at random"},
    Row{Command::kClear, "cmdClear", "Cl&ear", "Take all cards away"},
    Row{Command::kUndo, "cmdUndo", "&Undo", "Undo the last change of a board", {"Ctrl+Z"}},
    Row{Command::kRedo, "cmdRedo", "Red&o", "Redo what was undone", {"Ctrl+Shift+Z", "Ctrl+Y"}},
    Row{Command::kAdd, "cmdAdd", "Add &board", "Add an empty board behind the last"},
    Row{Command::kInsert, "cmdInsert", "&Insert", "Insert an empty board here"},
    Row{Command::kDelete, "cmdDelete", "&Delete", "Delete this board"},
    Row{Command::kCut, "cmdCut", "&Cut", "Hold this board and delete it", {"Ctrl+Shift+X"}},
    Row{Command::kCopy, "cmdCopy", "Cop&y", "Hold this board", {"Ctrl+Shift+C"}},
    Row{Command::kPaste, "cmdPaste", "Pa&ste", "Insert the held board here", {"Ctrl+Shift+V"}},
    Row{Command::kShiftLeft, "cmdShiftLeft", "S&hift left",
        "All boards one number down; dealer and vulnerability change too"},
    Row{Command::kShiftRight, "cmdShiftRight", "Shift ri&ght",
        "All boards one number up; dealer and vulnerability change too"}};

const Row& RowOf(Command command) {
  return *std::find_if(kRows.begin(), kRows.end(),
                       [command](const Row& row) { return row.Does == command; });
}

/// A key that is held must not cut or paste board after board; these can be taken back.
bool MayRepeat(Command command) {
  return command == Command::kPrev || command == Command::kNext || command == Command::kUndo ||
         command == Command::kRedo;
}

QString TipOf(const Row& row) {
  QString tip = row.Tip;
  if (row.Keys[0] == nullptr) return tip;
  return tip + " (" + QKeySequence(row.Keys[0]).toString(QKeySequence::NativeText) + ")";
}

}  // namespace

CommandButtons::CommandButtons(Editor& editor, QWidget* window)
    : QObject(window), editor_(editor), window_(window) {}

QGridLayout* CommandButtons::Place(std::initializer_list<Command> commands) {
  auto* grid = new QGridLayout;
  MakeTight(*grid);
  int place = 0;
  for (const Command command : commands) {
    grid->addWidget(Make(command), place / 2, place % 2);
    ++place;
  }
  return grid;
}

QPushButton* CommandButtons::Make(Command command) {
  const Row& row = RowOf(command);
  auto* button = NewEditButton(row.Name, row.Caption, TipOf(row), window_);
  connect(button, &QPushButton::clicked, this, [this, command] { editor_.Do(command); });
  for (const char* key : row.Keys) {
    if (key == nullptr) continue;
    auto* shortcut = new QShortcut(QKeySequence(key), window_);
    shortcut->setAutoRepeat(MayRepeat(command));
    connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
  }
  return buttons_[command] = button;
}

void CommandButtons::Show() {
  for (const auto& [command, button] : buttons_) button->setEnabled(editor_.Can(command));
}

}  // namespace morvane::edit
