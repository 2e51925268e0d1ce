#include "maintenance/ui/service_dialog.h"

#include <QAbstractButton>
#include <QKeyEvent>

#include "platform/qt/held_enter.h"

namespace morvane::maintenance {

ServiceDialog::ServiceDialog(const char* name, const char* title, QWidget* parent)
    : QDialog(parent) {
  setObjectName(name);
  setWindowTitle(title);
  setWindowModality(Qt::WindowModal);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void ServiceDialog::WatchButtons() {
  for (auto* button : findChildren<QAbstractButton*>()) button->installEventFilter(this);
}

void ServiceDialog::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (parentWidget() != nullptr) parentWidget()->window()->activateWindow();
}

void ServiceDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
  // Held down, it has closed a box over this window, and does not close this one, too.
  if (event->key() == Qt::Key_Escape && event->isAutoRepeat()) return;
  QDialog::keyPressEvent(event);
}

bool ServiceDialog::eventFilter(QObject* button, QEvent* event) {
  return IsHeldEnter(*event) || QDialog::eventFilter(button, event);
}

}  // namespace morvane::maintenance
