#include "edit/ui/edit_widgets.h"

#include <QKeySequence>
#include <QShortcut>

namespace morvane::edit {
namespace {

/// The button's own way waits a moment, in which another key would come first, and presses again
/// and again while the keys are held.
void PressByLetter(QPushButton& button) {
  const QKeySequence letter = QKeySequence::mnemonic(button.text());
  if (letter.isEmpty()) return;
  button.setShortcut({});
  auto* shortcut = new QShortcut(letter, &button);
  shortcut->setAutoRepeat(false);
  QObject::connect(shortcut, &QShortcut::activated, &button, &QPushButton::click);
  QObject::connect(shortcut, &QShortcut::activatedAmbiguously, &button,
                   [&button] { button.setFocus(Qt::ShortcutFocusReason); });
}

}  // namespace

QPushButton* NewEditButton(const QString& name, const QString& caption, const QString& tip,
                           QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setAutoDefault(false);
  button->setFocusPolicy(Qt::TabFocus);
  PressByLetter(*button);
  return button;
}

}  // namespace morvane::edit
