#include "platform/qt/instance_link.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>

namespace morvane {

// In a folder that is the user's alone.
QString LinkPlace(const QString& name) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  return folder.isEmpty() ? QString() : folder + '/' + name;
}

void ListenAt(const QString& place, QLocalServer& server) {
  server.setSocketOptions(QLocalServer::UserAccessOption);
  QLocalServer::removeServer(place);  // a program that was killed leaves its socket
  server.listen(place);
}

void CallAt(const QString& place, QLocalSocket& caller) { caller.connectToServer(place); }

}  // namespace morvane
