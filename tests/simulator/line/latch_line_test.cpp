// The latch over a pseudo-terminal: a machine that is served, and a program that drops its line.

#include <gtest/gtest.h>
#include <termios.h>
#include <unistd.h>

#include <sstream>
#include <thread>

#include "platform/system_clock.h"
#include "simulator/download_frames.h"
#include "simulator/line/line_server.h"
#include "simulator/line/terminal_client.h"

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

/// The plain short reply; empty when none comes.
Bytes Ask(const TerminalClient& program, const Bytes& plain) {
  program.Send(ToWire(plain));
  const Bytes wire = program.Take(8);
  return wire.size() == 8 ? Keyed(wire, wire[7] ^ 255U, 21) : Bytes();
}

/// Of the boot code; 0 without firmware.
int BootMajor(const TerminalClient& program) {
  const Bytes reply = Ask(program, {26});
  return reply.size() == 8 ? reply[3] : -1;
}

void Load(const TerminalClient& program, const std::vector<Bytes>& frames) {
  for (const Bytes& frame : frames) {
    const Bytes reply = Ask(program, frame);
    ASSERT_EQ(reply.size(), 8U);
    ASSERT_EQ(reply[1], 0);
  }
}

TEST(LatchLine, AMachineThatWasLoadedBootsWhenItDrops) {
  MachineAtWork machine;
  const TerminalClient program(machine.Path());
  Load(program, SmallDownload());
  EXPECT_EQ(BootMajor(program), 0);
  program.SetSpeed(B0);
  EXPECT_EQ(BootMajor(program), 1);
}

TEST(LatchLine, AProgramThatLeavesDropsIt) {
  MachineAtWork machine;
  {
    const TerminalClient program(machine.Path());
    Load(program, SmallDownload());
  }
  const TerminalClient next(machine.Path());
  EXPECT_EQ(BootMajor(next), 1);
}

}  // namespace
}  // namespace morvane::simulator
