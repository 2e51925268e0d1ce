#pragma once

#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace morvane {

/// The file that is dragged; empty when it is not a single one of this computer.
[[nodiscard]] inline QString DraggedFile(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  return urls.size() == 1 ? QDir::toNativeSeparators(urls.front().toLocalFile()) : QString();
}

/// The file stays with whoever drags it, also where a move was proposed.
inline void AcceptCopy(QDropEvent& event) {
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

}  // namespace morvane
