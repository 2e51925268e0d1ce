#include "simulator/line/pseudo_terminal.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>

namespace morvane::simulator {
namespace {

/// Nobody is there, and bytes pass as they are: no echo, no lines, no signals.
bool Reset(int terminal) {
  termios settings{};
  if (tcgetattr(terminal, &settings) != 0) return false;
  cfmakeraw(&settings);
  cfsetspeed(&settings, B0);
  return tcsetattr(terminal, TCSANOW, &settings) == 0;
}

}  // namespace

PseudoTerminal::~PseudoTerminal() {
  if (IsOurLink()) unlink(link_.c_str());
  for (const int file : {closings_, kept_, ours_}) {
    if (file >= 0) close(file);
  }
}

std::optional<RuntimeError> PseudoTerminal::Open() {
  if (!OpenEnds()) return RuntimeError::Last();
  return std::nullopt;
}

bool PseudoTerminal::OpenEnds() {
  ours_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (ours_ < 0 || grantpt(ours_) != 0 || unlockpt(ours_) != 0) return false;
  std::array<char, 128> name{};
  if (ptsname_r(ours_, name.data(), name.size()) != 0) return false;
  path_ = name.data();
  kept_ = open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (kept_ < 0 || !Reset(kept_)) return false;
  closings_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  return closings_ >= 0 && inotify_add_watch(closings_, path_.c_str(), IN_CLOSE) >= 0;
}

std::optional<RuntimeError> PseudoTerminal::Link(const std::string& path) {
  if (IsLeftLink(path)) unlink(path.c_str());
  if (symlink(path_.c_str(), path.c_str()) != 0) return RuntimeError::Last();
  std::error_code failure;
  link_ = std::filesystem::absolute(path, failure).string();
  return std::nullopt;
}

/// One that was killed has left it. Its device is gone, unless the system has given the name to
/// ours.
bool PseudoTerminal::IsLeftLink(const std::string& path) const {
  std::error_code failure;
  const std::string target = std::filesystem::read_symlink(path, failure).string();
  if (!target.starts_with("/dev/pts/")) return false;
  return target == path_ || !std::filesystem::exists(target, failure);
}

/// Somebody may have put another one in its place.
bool PseudoTerminal::IsOurLink() const {
  std::error_code failure;
  return !link_.empty() && std::filesystem::read_symlink(link_, failure) == path_;
}

bool PseudoTerminal::LineIsUp() const {
  termios settings{};
  return tcgetattr(kept_, &settings) == 0 && cfgetospeed(&settings) != B0;
}

std::size_t PseudoTerminal::Read(std::span<std::uint8_t> bytes) const {
  const ssize_t got = read(ours_, bytes.data(), bytes.size());
  return got > 0 ? static_cast<std::size_t>(got) : 0;
}

std::size_t PseudoTerminal::Write(std::span<const std::uint8_t> bytes) const {
  const ssize_t written = write(ours_, bytes.data(), bytes.size());
  return written > 0 ? static_cast<std::size_t>(written) : 0;
}

/// Whoever came meanwhile and went was refused, and is no reason to disturb who works.
bool PseudoTerminal::IsHeld() const {
  if (flock(kept_, LOCK_EX | LOCK_NB) != 0) return true;
  flock(kept_, LOCK_UN);
  return false;
}

bool PseudoTerminal::TakeClosing() const {
  std::array<char, 4096> events{};
  if (read(closings_, events.data(), events.size()) <= 0 || IsHeld()) return false;
  // Who was killed has left its claim to have the device for itself, which would keep others out.
  ioctl(kept_, TIOCNXCL);
  tcflush(kept_, TCIFLUSH);
  Reset(kept_);
  return true;
}

}  // namespace morvane::simulator
