#include "platform/qt/qt_instance.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QLocalServer>
#include <QLocalSocket>
#include <QtEndian>
#include <algorithm>
#include <utility>

#include "platform/qt/instance_link.h"

namespace morvane {
namespace {

constexpr int kRetryMs = 50;
constexpr qint64 kLengthBytes = 4;
constexpr char kReady = 5;
constexpr char kTaken = 6;

/// Where the running one of this key listens; empty where there is no place for it. Short, since
/// the path of a socket is limited to about a hundred bytes.
QString PlaceOf(const std::string& key) {
  if (key.empty()) return {};
  constexpr qsizetype kDigits = 16;
  const auto hash =
      QCryptographicHash::hash(QByteArray::fromStdString(key), QCryptographicHash::Sha256);
  return LinkPlace("MorvaneLink-" + QString::fromLatin1(hash.toHex().left(kDigits)));
}

QByteArray Framed(std::string_view command) {
  QByteArray bytes(kLengthBytes, '\0');
  qToBigEndian(static_cast<quint32>(command.size()), bytes.data());
  return bytes.append(command.data(), static_cast<qsizetype>(command.size()));
}

/// One start that calls. It ends with its command, with the first wrong byte, or when its time is
/// up, and its socket goes with it.
class Call final : public QObject {
 public:
  Call(QLocalSocket& caller, EventLoop& loop, const Instance::Execute& execute)
      : QObject(&caller),
        caller_(caller),
        execute_(execute),
        patience_(loop.StartTimer(QtInstance::kPatienceMs, [this] { caller_.abort(); })) {
    connect(&caller, &QLocalSocket::disconnected, &caller, &QObject::deleteLater);
    connect(&caller, &QLocalSocket::readyRead, this, [this] { Read(); });
    caller.write(&kReady, 1);
    Read();
  }

 private:
  void Read() {
    const QByteArray start = caller_.peek(kLengthBytes);
    if (start.size() < kLengthBytes) return;
    const qint64 length = qFromBigEndian<quint32>(start.constData());
    if (length == 0 || length > static_cast<qint64>(QtInstance::kLongestCommand)) {
      caller_.abort();
      return;
    }
    if (caller_.bytesAvailable() < kLengthBytes + length) return;
    disconnect(&caller_, &QLocalSocket::readyRead, this, nullptr);
    caller_.skip(kLengthBytes);
    const std::string command = caller_.read(length).toStdString();
    execute_(command);
    caller_.write(&kTaken, 1);
    caller_.disconnectFromServer();
  }

  QLocalSocket& caller_;
  const Instance::Execute& execute_;
  std::unique_ptr<Timer> patience_;
};

/// One call. Whether the command was taken; ends without that when nobody listens, when the other
/// hangs up and when `over`. The command goes only to one that is awake: one that does not answer
/// must not take it up later, when the operator has been told otherwise.
bool Deliver(EventLoop& loop, const QString& place, std::string_view command, const bool& over) {
  bool taken = false;
  QLocalSocket socket;
  QObject::connect(&socket, &QLocalSocket::readyRead, &socket, [&] {
    for (char answer = 0; socket.getChar(&answer);) {
      if (answer == kReady) socket.write(Framed(command));
      if (answer == kTaken) taken = true;
    }
  });
  CallAt(place, socket);
  loop.RunUntil([&] { return over || taken || socket.state() == QLocalSocket::UnconnectedState; });
  return taken;
}

}  // namespace

QtInstance::QtInstance(EventLoop& loop, std::string settingsFile)
    : loop_(loop), lock_(std::move(settingsFile)) {}

QtInstance::~QtInstance() = default;

bool QtInstance::HandOver(std::string_view command) {
  const QString place = PlaceOf(lock_.Key());
  if (place.isEmpty() || command.empty() || command.size() > kLongestCommand) return false;
  bool over = false;
  const auto patience = loop_.StartTimer(kPatienceMs, [&over] { over = true; });
  while (!over && !loop_.Quitting()) {
    if (Deliver(loop_, place, command, over)) return true;
    loop_.WaitMs(kRetryMs);
  }
  return false;
}

void QtInstance::Listen(Execute execute) {
  const QString place = PlaceOf(lock_.Key());
  if (!lock_.Held() || place.isEmpty()) return;
  execute_ = std::move(execute);
  server_ = std::make_unique<QLocalServer>();
  QObject::connect(server_.get(), &QLocalServer::newConnection, server_.get(),
                   [this] { TakeCalls(); });
  ListenAt(place, *server_);
}

void QtInstance::TakeCalls() {
  while (QLocalSocket* caller = server_->nextPendingConnection()) {
    const auto callers =
        server_->findChildren<QLocalSocket*>(QString(), Qt::FindDirectChildrenOnly);
    const auto open = std::count_if(callers.begin(), callers.end(), [](const auto* one) {
      return one->state() != QLocalSocket::UnconnectedState;
    });
    if (open > kMostCalls) {
      delete caller;
    } else {
      new Call(*caller, loop_, execute_);
    }
  }
}

}  // namespace morvane
