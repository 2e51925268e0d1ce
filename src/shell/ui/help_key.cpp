#include "shell/ui/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>
#include <string>

#include "platform/qt/qt_text.h"
#include "shell/help_pages.h"

namespace morvane::shell {
namespace {

bool IsHelpKey(const QEvent& event) {
  if (event.type() != QEvent::KeyPress && event.type() != QEvent::ShortcutOverride) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

/// The window that the event is for; of an open menu or list the one below it.
QWidget* WindowOf(const QObject& receiver) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->windowType() == Qt::Popup) continue;
    if (window == &receiver || window->windowHandle() == &receiver) return window;
  }
  return QApplication::activeWindow();
}

std::string PageOn(const QWidget& window) {
  const std::string title = FromQt(window.windowTitle());
  if (window.objectName() != "MessageBox") {
    return std::string(PageOnWindow(FromQt(window.objectName()), title));
  }
  return title == Guide::kCaption ? "" : std::string(PageOnBox(title));
}

}  // namespace

HelpKey::HelpKey(Help& help) : help_(help) { qApp->installEventFilter(this); }

/// An accepted override keeps the key from being a menu entry's, which has it for show: a window
/// in front of the menu would not get it.
bool HelpKey::eventFilter(QObject* receiver, QEvent* event) {
  if (!IsHelpKey(*event)) return false;
  const QWidget* window = WindowOf(*receiver);
  const std::string page = window == nullptr ? "" : PageOn(*window);
  if (page.empty()) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (event->type() == QEvent::KeyPress && !key.isAutoRepeat()) help_.OpenPage(page);
  event->accept();
  return true;
}

}  // namespace morvane::shell
