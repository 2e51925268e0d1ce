#include "bridges/scripted_peer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cstdlib>
#include <limits>

namespace morvane::bridges {

ScriptedPeer::ScriptedPeer() : file_(posix_openpt(O_RDWR | O_NOCTTY)) {
  EXPECT_GE(file_, 0);
  EXPECT_EQ(grantpt(file_), 0);
  EXPECT_EQ(unlockpt(file_), 0);
  path_ = ptsname(file_);
}

void ScriptedPeer::Send(const Bytes& bytes) const {
  EXPECT_EQ(write(file_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

std::size_t ScriptedPeer::SendSome(const Bytes& bytes) const {
  pollfd ready{file_, POLLOUT, 0};
  if (poll(&ready, 1, 10) <= 0) return 0;
  const int flags = fcntl(file_, F_GETFL);
  fcntl(file_, F_SETFL, flags | O_NONBLOCK);
  const ssize_t sent = write(file_, bytes.data(), bytes.size());
  fcntl(file_, F_SETFL, flags);
  return sent > 0 ? static_cast<std::size_t>(sent) : 0;
}

Bytes ScriptedPeer::Take(std::size_t count) const { return TakeUpTo(count, 1000); }

Bytes ScriptedPeer::TakeAll(int ms) const {
  return TakeUpTo(std::numeric_limits<std::size_t>::max(), ms);
}

Bytes ScriptedPeer::TakeUpTo(std::size_t count, int ms) const {
  Bytes taken;
  while (taken.size() < count) {
    pollfd ready{file_, POLLIN, 0};
    std::uint8_t byte = 0;
    if (poll(&ready, 1, ms) <= 0 || read(file_, &byte, 1) != 1) break;
    taken.push_back(byte);
  }
  return taken;
}

unsigned ScriptedPeer::Speed() const {
  termios settings{};
  EXPECT_EQ(tcgetattr(file_, &settings), 0);
  return cfgetospeed(&settings);
}

void ScriptedPeer::Leave() {
  if (file_ >= 0) close(file_);
  file_ = -1;
}

}  // namespace morvane::bridges
