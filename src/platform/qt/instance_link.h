#pragma once

#include <QString>

class QLocalServer;
class QLocalSocket;

namespace morvane {

// The way between the programs of one user, as the system has it.

/// Where the running one of the link `name` listens; empty where there is no place for it.
[[nodiscard]] QString LinkPlace(const QString& name);
/// Listens there, for this user alone. Does nothing where that cannot be had.
void ListenAt(const QString& place, QLocalServer& server);
/// Calls there without waiting. The socket stays unconnected where nobody of this user listens.
void CallAt(const QString& place, QLocalSocket& caller);

}  // namespace morvane
