// The latch over a pseudo-terminal: a machine that is served, and a program that drops its line.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <sstream>
#include <thread>

#include "platform/system_clock.h"
#include "simulator/download_frames.h"
#include "simulator/line/line_server.h"

namespace morvane::simulator {
namespace {

/// A machine at work on its line, for as long as this object lives.
class MachineAtWork {
 public:
  MachineAtWork() {
    served_.emplace_back(Talk::Fast(), Pace::kFast, clock_);
    EXPECT_FALSE(served_[0].Terminal().Open());
    EXPECT_EQ(pipe(endWish_.data()), 0);
    server_ = std::thread([this] {
      std::ostringstream words;
      LineServer(served_, words, words).Run({-1, endWish_[0]});
    });
  }
  ~MachineAtWork() {
    EXPECT_EQ(write(endWish_[1], "", 1), 1);
    server_.join();
    for (const int file : endWish_) close(file);
  }
  MachineAtWork(const MachineAtWork&) = delete;
  MachineAtWork& operator=(const MachineAtWork&) = delete;
  [[nodiscard]] std::string Path() { return served_[0].Terminal().Path(); }

 private:
  SystemClock clock_;
  std::deque<ServedMachine> served_;
  std::array<int, 2> endWish_{};
  std::thread server_;
};

/// The program at the other end.
class Program {
 public:
  explicit Program(const std::string& path) : file_(open(path.c_str(), O_RDWR | O_NOCTTY)) {
    SetSpeed(B115200);
  }
  ~Program() { close(file_); }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void SetSpeed(speed_t speed) const {
    termios settings{};
    ASSERT_EQ(tcgetattr(file_, &settings), 0);
    cfsetspeed(&settings, speed);
    ASSERT_EQ(tcsetattr(file_, TCSANOW, &settings), 0);
  }
  /// The plain short reply; empty when none comes within a second.
  [[nodiscard]] Bytes Ask(const Bytes& plain) const {
    const Bytes sent = ToWire(plain);
    EXPECT_EQ(write(file_, sent.data(), sent.size()), static_cast<ssize_t>(sent.size()));
    Bytes wire;
    while (wire.size() < 8) {
      pollfd ready{file_, POLLIN, 0};
      std::uint8_t byte = 0;
      if (poll(&ready, 1, 1000) <= 0 || read(file_, &byte, 1) != 1) return {};
      wire.push_back(byte);
    }
    return Keyed(wire, wire[7] ^ 255U, 21);
  }
  /// Of the boot code; 0 without firmware.
  [[nodiscard]] int BootMajor() const {
    const Bytes reply = Ask({26});
    return reply.size() == 8 ? reply[3] : -1;
  }
  void Load(const std::vector<Bytes>& frames) const {
    for (const Bytes& frame : frames) {
      const Bytes reply = Ask(frame);
      ASSERT_EQ(reply.size(), 8U);
      ASSERT_EQ(reply[1], 0);
    }
  }

 private:
  int file_;
};

TEST(LatchLine, AMachineThatWasLoadedBootsWhenItDrops) {
  MachineAtWork machine;
  const Program program(machine.Path());
  program.Load(SmallDownload());
  EXPECT_EQ(program.BootMajor(), 0);
  program.SetSpeed(B0);
  EXPECT_EQ(program.BootMajor(), 1);
}

TEST(LatchLine, AProgramThatLeavesDropsIt) {
  MachineAtWork machine;
  {
    const Program program(machine.Path());
    program.Load(SmallDownload());
  }
  const Program next(machine.Path());
  EXPECT_EQ(next.BootMajor(), 1);
}

}  // namespace
}  // namespace morvane::simulator
