#include "platform/qt/instance_link.h"

#include <windows.h>

#include <QLocalServer>
#include <QLocalSocket>

#include "platform/windows/access_list.h"
#include "platform/windows/handle.h"

namespace morvane {
namespace {

/// A pipe that this user owns and nobody else can open; one of that name that is there already
/// stays its maker's.
OpenedHandle MakePipe(const std::wstring& place) {
  OwnAccess own(OwnAccess::Of::kUser);
  constexpr DWORD kBytes = PIPE_TYPE_BYTE | PIPE_READMODE_BYTE | PIPE_WAIT;
  return TakeHandle(CreateNamedPipeW(place.c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED,
                                     kBytes, PIPE_UNLIMITED_INSTANCES, 0, 0, 0, own.Get()));
}

/// Whoever listens there may ask who we are, not act as us.
OpenedHandle OpenPipe(const std::wstring& place) {
  constexpr DWORD kFlags = FILE_FLAG_OVERLAPPED | SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION;
  return TakeHandle(CreateFileW(place.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                OPEN_EXISTING, kFlags, nullptr));
}

}  // namespace

QString LinkPlace(const QString& name) { return R"(\\.\pipe\)" + name; }

// All users' programs make pipes in one place. Who was first with a name says who may open it.
void ListenAt(const QString& place, QLocalServer& server) {
  const OpenedHandle pipe = MakePipe(place.toStdWString());
  if (!pipe || !BelongsToUser(pipe.get())) return;
  server.setSocketOptions(QLocalServer::UserAccessOption);
  server.listen(place);
}

// Qt's own call would wait for seconds on a pipe that is busy.
void CallAt(const QString& place, QLocalSocket& caller) {
  OpenedHandle pipe = OpenPipe(place.toStdWString());
  if (!pipe || !BelongsToUser(pipe.get())) return;
  caller.setSocketDescriptor(reinterpret_cast<qintptr>(pipe.release()));
}

}  // namespace morvane
