#include "simulator/line/pseudo_terminal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <numeric>
#include <vector>

#include "support/fakes.h"
#include "support/plain_user.h"

namespace morvane::simulator {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// A program that has the device open.
class Client {
 public:
  explicit Client(const std::string& path) : file_(open(path.c_str(), O_RDWR | O_NOCTTY)) {}
  ~Client() { Leave(); }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;
  void Leave() {
    if (file_ >= 0) close(file_);
    file_ = -1;
  }
  [[nodiscard]] int File() const { return file_; }
  [[nodiscard]] bool Open() const { return file_ >= 0; }

 private:
  int file_;
};

/// What can be read within a second, `count` bytes at most.
Bytes ReadFrom(int file, std::size_t count) {
  Bytes bytes;
  while (bytes.size() < count) {
    pollfd ready{file, POLLIN, 0};
    std::uint8_t byte = 0;
    if (poll(&ready, 1, 1000) <= 0 || read(file, &byte, 1) != 1) break;
    bytes.push_back(byte);
  }
  return bytes;
}

Bytes EveryByte() {
  Bytes bytes(256);
  std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
  return bytes;
}

TEST(PseudoTerminalTest, EveryByteArrivesAsItIsInBothDirections) {
  PseudoTerminal terminal;
  ASSERT_FALSE(terminal.Open());
  const Client client(terminal.Path());
  ASSERT_TRUE(client.Open());
  terminal.Write(EveryByte());
  EXPECT_EQ(ReadFrom(client.File(), 256), EveryByte());
  const Bytes sent = EveryByte();
  ASSERT_EQ(write(client.File(), sent.data(), sent.size()), 256);
  EXPECT_EQ(ReadFrom(terminal.Bytes(), 256), sent);
}

TEST(PseudoTerminalTest, ReadingDoesNotWait) {
  PseudoTerminal terminal;
  ASSERT_FALSE(terminal.Open());
  std::array<std::uint8_t, 4> bytes{};
  EXPECT_EQ(terminal.Read(bytes), 0U);
}

TEST(PseudoTerminalTest, WhoReadsNothingStopsNobody) {
  PseudoTerminal terminal;
  ASSERT_FALSE(terminal.Open());
  std::size_t gone = 0;
  for (int i = 0; i < 1000; ++i) gone += terminal.Write(EveryByte());
  EXPECT_GT(gone, 0U);
  EXPECT_LT(gone, 256'000U);
}

TEST(PseudoTerminalTest, AProgramThatWasKilledKeepsNobodyOut) {
  const test::PlainUser user;
  ASSERT_TRUE(user.Ok());
  PseudoTerminal terminal;
  ASSERT_FALSE(terminal.Open());
  Client client(terminal.Path());
  ASSERT_TRUE(client.Open());
  ASSERT_EQ(ioctl(client.File(), TIOCEXCL), 0);
  EXPECT_FALSE(Client(terminal.Path()).Open()) << "it has the device for itself";
  EXPECT_FALSE(terminal.TakeClosing());
  terminal.Write(Bytes{1, 2, 3});
  client.Leave();
  EXPECT_TRUE(terminal.TakeClosing());
  EXPECT_FALSE(terminal.TakeClosing());
  const Client next(terminal.Path());
  ASSERT_TRUE(next.Open());
  terminal.Write(Bytes{4});
  EXPECT_EQ(ReadFrom(next.File(), 1), Bytes{4}) << "nothing is left of what the first one missed";
}

TEST(PseudoTerminalTest, WhoWasRefusedDoesNotDisturbWhoHasIt) {
  PseudoTerminal terminal;
  ASSERT_FALSE(terminal.Open());
  Client first(terminal.Path());
  ASSERT_EQ(flock(first.File(), LOCK_EX | LOCK_NB), 0);
  terminal.Write(Bytes{1, 2, 3});
  {
    const Client second(terminal.Path());
    EXPECT_NE(flock(second.File(), LOCK_EX | LOCK_NB), 0);
  }
  EXPECT_FALSE(terminal.TakeClosing());
  EXPECT_EQ(ReadFrom(first.File(), 3), (Bytes{1, 2, 3}));
  first.Leave();
  EXPECT_TRUE(terminal.TakeClosing());
  const Client next(terminal.Path());
  EXPECT_EQ(flock(next.File(), LOCK_EX | LOCK_NB), 0) << "the lock is only looked at";
}

void SetSpeed(const Client& client, speed_t speed) {
  termios settings{};
  ASSERT_EQ(tcgetattr(client.File(), &settings), 0);
  cfsetspeed(&settings, speed);
  ASSERT_EQ(tcsetattr(client.File(), TCSANOW, &settings), 0);
}

TEST(PseudoTerminalTest, TheControlLineIsUpWhereTheDeviceHasASpeed) {
  PseudoTerminal terminal;
  ASSERT_FALSE(terminal.Open());
  EXPECT_FALSE(terminal.LineIsUp()) << "nobody is there";
  const Client client(terminal.Path());
  SetSpeed(client, B115200);
  EXPECT_TRUE(terminal.LineIsUp());
  SetSpeed(client, B0);
  EXPECT_FALSE(terminal.LineIsUp());
  terminal.Write(EveryByte());
  EXPECT_EQ(ReadFrom(client.File(), 256), EveryByte()) << "bytes pass all the same";
}

TEST(PseudoTerminalTest, TheControlLineDropsWithTheProgramThatHeldIt) {
  PseudoTerminal terminal;
  ASSERT_FALSE(terminal.Open());
  Client client(terminal.Path());
  SetSpeed(client, B115200);
  client.Leave();
  EXPECT_TRUE(terminal.TakeClosing());
  EXPECT_FALSE(terminal.LineIsUp());
}

TEST(PseudoTerminalTest, TheDeviceGoesWithIt) {
  std::string path;
  {
    PseudoTerminal terminal;
    ASSERT_FALSE(terminal.Open());
    path = terminal.Path();
  }
  EXPECT_FALSE(Client(path).Open());
}

class PseudoTerminalLink : public testing::Test {
 protected:
  test::TempFolder folder;
  const std::string link = folder / "machine";
};

TEST_F(PseudoTerminalLink, LeadsToTheDeviceAndGoesWithIt) {
  {
    PseudoTerminal terminal;
    ASSERT_FALSE(terminal.Open());
    ASSERT_FALSE(terminal.Link(link));
    EXPECT_EQ(std::filesystem::read_symlink(link), terminal.Path());
  }
  EXPECT_FALSE(std::filesystem::is_symlink(link));
}

TEST_F(PseudoTerminalLink, IsItsNameWhereverItIsAskedFrom) {
  PseudoTerminal terminal;
  ASSERT_FALSE(terminal.Open());
  EXPECT_EQ(terminal.Name(), terminal.Path());
  const std::string relative = std::filesystem::relative(link).string();
  ASSERT_FALSE(terminal.Link(relative));
  EXPECT_TRUE(std::filesystem::path(terminal.Name()).is_absolute());
  EXPECT_EQ(std::filesystem::read_symlink(terminal.Name()), terminal.Path());
}

TEST_F(PseudoTerminalLink, TheOneOfAMachineThatIsGoneIsReplaced) {
  std::filesystem::create_symlink("/dev/pts/999999", link);
  PseudoTerminal terminal;
  ASSERT_FALSE(terminal.Open());
  EXPECT_FALSE(terminal.Link(link));
  EXPECT_EQ(std::filesystem::read_symlink(link), terminal.Path());
}

TEST_F(PseudoTerminalLink, TheOneThatIsLeftIsReplacedAlsoWhenItsDeviceIsOursNow) {
  PseudoTerminal terminal;
  ASSERT_FALSE(terminal.Open());
  std::filesystem::create_symlink(terminal.Path(), link);
  EXPECT_FALSE(terminal.Link(link));
  EXPECT_EQ(std::filesystem::read_symlink(link), terminal.Path());
}

TEST_F(PseudoTerminalLink, TheOneOfAMachineAtWorkStays) {
  PseudoTerminal first;
  ASSERT_FALSE(first.Open());
  ASSERT_FALSE(first.Link(link));
  PseudoTerminal second;
  ASSERT_FALSE(second.Open());
  const auto error = second.Link(link);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number, EEXIST);
  EXPECT_EQ(std::filesystem::read_symlink(link), first.Path());
}

TEST_F(PseudoTerminalLink, SomebodysLinkToWhatIsNotThereNowStays) {
  std::filesystem::create_symlink(folder / "unmounted", link);
  {
    PseudoTerminal terminal;
    ASSERT_FALSE(terminal.Open());
    const auto error = terminal.Link(link);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number, EEXIST);
  }
  EXPECT_EQ(std::filesystem::read_symlink(link), folder / "unmounted");
}

TEST_F(PseudoTerminalLink, WhatStandsThereStays) {
  test::WriteContent(link, "mine");
  {
    PseudoTerminal terminal;
    ASSERT_FALSE(terminal.Open());
    const auto error = terminal.Link(link);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number, EEXIST);
  }
  EXPECT_EQ(test::Content(link), "mine");
}

TEST_F(PseudoTerminalLink, AnotherOneThatTookItsPlaceStays) {
  {
    PseudoTerminal terminal;
    ASSERT_FALSE(terminal.Open());
    ASSERT_FALSE(terminal.Link(link));
    std::filesystem::remove(link);
    std::filesystem::create_symlink("/dev/null", link);
  }
  EXPECT_EQ(std::filesystem::read_symlink(link), "/dev/null");
}

}  // namespace
}  // namespace morvane::simulator
