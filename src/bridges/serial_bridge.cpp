#include "bridges/serial_bridge.h"

#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <QSignalBlocker>
#include <algorithm>
#include <filesystem>
#include <limits>
#include <optional>
#include <string_view>

#include "bridges/serial_words.h"
#include "bridges/usb/serial_holder.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace morvane::bridges {
namespace {

constexpr UsbXpress::Handle kHandle = 1;

// A library and a driver of the age that asks for no update.
constexpr std::uint32_t kVersionHigh = 0x00030001;
constexpr std::uint32_t kVersionLow = 0;

/// Bytes. The longest reply has 136, and a late one may come before it.
constexpr qint64 kMostUnread = 2048;
constexpr qint64 kMostHeld = 2 * kMostUnread;

std::string DevicePath(const std::string& path) {
  return path.find('/') == std::string::npos ? "/dev/" + path : AbsolutePath(path);
}

std::chrono::milliseconds Milliseconds(std::uint32_t ms) {
  constexpr std::uint32_t kLongest = std::numeric_limits<int>::max();
  return std::chrono::milliseconds(std::min(ms, kLongest));
}

int Remaining(const QDeadlineTimer& deadline) { return static_cast<int>(deadline.remainingTime()); }

/// A read that finds nothing is reported just as a lost device is; the difference is asked for.
bool Gone(const QSerialPort& port) {
  pollfd file{port.handle(), POLLIN, 0};
  return poll(&file, 1, 0) > 0 && (file.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

constexpr std::string_view kPseudoTerminals = "/dev/pts/";

bool IsPseudoTerminal(int file) {
  const char* const name = ttyname(file);
  return name != nullptr && std::string_view(name).starts_with(kPseudoTerminals);
}

/// A program that has the device open and bars nobody, which opening it would disturb. Whoever
/// serves a pseudo-terminal keeps it open.
std::optional<std::string> ProgramAt(const std::string& path) {
  if (TruePath(path).starts_with(kPseudoTerminals)) return std::nullopt;
  return ProgramHolding(path);
}

/// Takes the device for this program alone, by whatever name another asks for it. The system's own
/// bar does not stop its administrator, and a pseudo-terminal would stay barred behind a program
/// that died, for as long as its other end lives.
bool TakeAlone(const QSerialPort& port) {
  if (flock(port.handle(), LOCK_EX | LOCK_NB) != 0) return false;
  if (IsPseudoTerminal(port.handle())) ioctl(port.handle(), TIOCNXCL);
  return true;
}

/// A pseudo-terminal has no control line. The speed 0, by which a system drops it, can be seen at
/// the other end.
void SetPseudoLine(const QSerialPort& port, bool up) {
  termios settings{};
  if (!IsPseudoTerminal(port.handle()) || tcgetattr(port.handle(), &settings) != 0) return;
  cfsetspeed(&settings, up ? B115200 : B0);
  tcsetattr(port.handle(), TCSANOW, &settings);
}

}  // namespace

SerialBridge::SerialBridge(const std::string& path) : path_(DevicePath(path)) {
  port_.setPortName(QString::fromStdString(path_));
  port_.setBaudRate(static_cast<qint32>(kBaudRate));
  port_.setReadBufferSize(kMostHeld);
  QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] { DropBabble(); });
  // Left open, a lost device would wake the event loop without end. The port must not be closed
  // inside its own signal.
  QObject::connect(
      &port_, &QSerialPort::errorOccurred, &port_, [this] { CloseWhenGone(); },
      Qt::QueuedConnection);
}

bool SerialBridge::Attached() const {
  std::error_code failure;
  return std::filesystem::is_character_file(PathOfUtf8(path_), failure);
}

bool SerialBridge::Opened(Handle handle) const { return opened_ && handle == kHandle; }

bool SerialBridge::Usable(Handle handle) const { return Opened(handle) && port_.isOpen(); }

void SerialBridge::CloseWhenGone() {
  if (port_.isOpen() && Gone(port_)) port_.close();
}

/// A full buffer would block the line in both directions, so it is emptied before.
void SerialBridge::DropBabble() {
  if (port_.isOpen() && port_.bytesAvailable() > kMostUnread) port_.readAll();
}

UsbXpress::Status SerialBridge::GetDllVersion(std::uint32_t& high, std::uint32_t& low) {
  high = kVersionHigh;
  low = kVersionLow;
  return kSuccess;
}

UsbXpress::Status SerialBridge::GetDriverVersion(std::uint32_t& high, std::uint32_t& low) {
  return GetDllVersion(high, low);
}

UsbXpress::Status SerialBridge::GetNumDevices(std::uint32_t& count) {
  advice_.clear();
  count = Attached() ? 1 : 0;
  return count > 0 ? kSuccess : Missing();
}

UsbXpress::Status SerialBridge::Missing() {
  advice_ = WordsOfMissing(path_);
  return kDeviceNotFound;
}

UsbXpress::Status SerialBridge::Failed() {
  advice_ = WordsOfFailed(path_, port_.errorString().toStdString());
  return kDeviceNotFound;
}

UsbXpress::Status SerialBridge::Refused() {
  advice_ = WordsOfRefused(path_);
  return kDeviceIoFailed;
}

UsbXpress::Status SerialBridge::GetProductString(std::uint32_t index, ProductString& text,
                                                 std::uint32_t option) {
  if (index != 0) return kDeviceNotFound;
  if (!Attached()) return Missing();
  if (option != kSerialString) return kInvalidParameter;
  const std::string name = FileTitle(path_);
  text.fill('\0');
  std::copy_n(name.begin(), std::min(name.size(), text.size() - 1), text.begin());
  return kSuccess;
}

UsbXpress::Status SerialBridge::Open(std::uint32_t index, Handle& handle) {
  if (opened_) return kInvalidParameter;
  advice_.clear();
  if (index != 0) return kDeviceNotFound;
  if (!Attached()) return Missing();
  if (const auto program = ProgramAt(path_)) {
    advice_ = WordsOfHeld(path_, *program);
    return kDeviceIoFailed;
  }
  if (!port_.open(QIODevice::ReadWrite)) {
    return port_.error() == QSerialPort::PermissionError ? Refused() : Failed();
  }
  if (!TakeAlone(port_)) {
    port_.close();
    return Refused();
  }
  opened_ = true;
  handle = kHandle;
  return kSuccess;
}

UsbXpress::Status SerialBridge::SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) {
  readTime_ = Milliseconds(readMs);
  writeTime_ = Milliseconds(writeMs);
  return kSuccess;
}

UsbXpress::Status SerialBridge::SetBaudRate(Handle handle, std::uint32_t rate) {
  if (!Usable(handle)) return kInvalidHandle;
  if (rate == 0 || rate > std::numeric_limits<qint32>::max()) return kInvalidParameter;
  return port_.setBaudRate(static_cast<qint32>(rate)) ? kSuccess : kInvalidParameter;
}

UsbXpress::Status SerialBridge::SetLineControl(Handle handle, std::uint16_t control) {
  if (!Usable(handle)) return kInvalidHandle;
  const bool done = control == kEightDataBitsNoParity && port_.setDataBits(QSerialPort::Data8) &&
                    port_.setParity(QSerialPort::NoParity) &&
                    port_.setStopBits(QSerialPort::OneStop);
  return done ? kSuccess : kInvalidParameter;
}

UsbXpress::Status SerialBridge::FlushBuffers(Handle handle, std::uint8_t transmit,
                                             std::uint8_t receive) {
  if (!Usable(handle)) return kInvalidHandle;
  QSerialPort::Directions directions;
  directions.setFlag(QSerialPort::Output, transmit != 0);
  directions.setFlag(QSerialPort::Input, receive != 0);
  return !directions || port_.clear(directions) ? kSuccess : kInvalidHandle;
}

UsbXpress::Status SerialBridge::Write(Handle handle, std::span<const std::uint8_t> bytes,
                                      std::uint32_t& written) {
  written = 0;
  if (!Opened(handle)) return kInvalidHandle;
  if (!port_.isOpen()) return kWriteError;
  DropBabble();
  const QSignalBlocker quiet(port_);
  const QDeadlineTimer deadline(writeTime_, Qt::PreciseTimer);
  const auto size = static_cast<qint64>(bytes.size());
  if (port_.write(reinterpret_cast<const char*>(bytes.data()), size) != size) return kWriteError;
  while (port_.bytesToWrite() > 0) {
    const bool sent = port_.waitForBytesWritten(Remaining(deadline));
    if (!sent && (deadline.hasExpired() || Gone(port_))) break;
  }
  const qint64 left = port_.bytesToWrite();
  written = static_cast<std::uint32_t>(size - left);
  if (left == 0) return kSuccess;
  port_.clear(QSerialPort::Output);
  CloseWhenGone();
  return port_.isOpen() ? kWriteTimedOut : kWriteError;
}

UsbXpress::Status SerialBridge::Read(Handle handle, std::span<std::uint8_t> bytes,
                                     std::uint32_t& read) {
  read = 0;
  if (!Opened(handle)) return kInvalidHandle;
  const QSignalBlocker quiet(port_);  // the bytes are waited for here
  const QDeadlineTimer deadline(readTime_, Qt::PreciseTimer);
  while (port_.isOpen()) {
    const auto rest = bytes.subspan(read);
    const qint64 got =
        port_.read(reinterpret_cast<char*>(rest.data()), static_cast<qint64>(rest.size()));
    if (got > 0) read += static_cast<std::uint32_t>(got);
    if (read == bytes.size()) return kSuccess;
    if (port_.waitForReadyRead(Remaining(deadline))) continue;
    if (deadline.hasExpired()) return kReadTimedOut;
    CloseWhenGone();
  }
  return kReadError;
}

UsbXpress::Status SerialBridge::WriteLatch(Handle handle, std::uint8_t mask, std::uint8_t value) {
  if (!Usable(handle)) return kInvalidHandle;
  constexpr std::uint8_t kLine0 = 1;
  const bool on = (value & kLine0) != 0;
  if ((mask & kLine0) != 0 && !port_.setDataTerminalReady(on)) SetPseudoLine(port_, on);
  return kSuccess;
}

UsbXpress::Status SerialBridge::Close(Handle handle) {
  if (!Opened(handle)) return kInvalidHandle;
  // A system may hold a program up here until the line has taken everything.
  if (port_.isOpen()) port_.clear(QSerialPort::Output);
  port_.close();
  opened_ = false;
  return kSuccess;
}

}  // namespace morvane::bridges
