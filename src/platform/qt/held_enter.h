#pragma once

#include <QKeyEvent>

namespace morvane {

/// Whether it repeats a press of Enter. One press of it must not do what the next window, or the
/// same one after its run, has as its default.
inline bool IsHeldEnter(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  return key.isAutoRepeat() && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
}

}  // namespace morvane
