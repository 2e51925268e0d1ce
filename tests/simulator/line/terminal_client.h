#pragma once

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <string>

#include "simulator/talk.h"

namespace morvane::simulator {

/// The system hands over what was written a little later: waits until there is something to read.
inline void WaitForBytes(int file) {
  pollfd ready{file, POLLIN, 0};
  EXPECT_EQ(poll(&ready, 1, 1000), 1);
}

/// A program at the other end of a pseudo-terminal.
class TerminalClient {
 public:
  explicit TerminalClient(const std::string& path) : file_(open(path.c_str(), O_RDWR | O_NOCTTY)) {
    SetSpeed(B115200);
  }
  ~TerminalClient() { close(file_); }
  TerminalClient(const TerminalClient&) = delete;
  TerminalClient& operator=(const TerminalClient&) = delete;

  void SetSpeed(speed_t speed) const {
    termios settings{};
    ASSERT_EQ(tcgetattr(file_, &settings), 0);
    cfsetspeed(&settings, speed);
    ASSERT_EQ(tcsetattr(file_, TCSANOW, &settings), 0);
  }
  void Send(const Bytes& wire) const {
    EXPECT_EQ(write(file_, wire.data(), wire.size()), static_cast<ssize_t>(wire.size()));
  }
  /// Of the wire; fewer when nothing comes for a second.
  [[nodiscard]] Bytes Take(std::size_t count) const {
    Bytes wire;
    while (wire.size() < count) {
      pollfd ready{file_, POLLIN, 0};
      std::uint8_t byte = 0;
      if (poll(&ready, 1, 1000) <= 0 || read(file_, &byte, 1) != 1) break;
      wire.push_back(byte);
    }
    return wire;
  }

 private:
  int file_;
};

}  // namespace morvane::simulator
