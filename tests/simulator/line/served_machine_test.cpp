#include "simulator/line/served_machine.h"

#include <gmock/gmock.h>

#include <optional>

#include "simulator/line/terminal_client.h"
#include "support/fakes.h"

namespace morvane::simulator {
namespace {

using ::testing::ElementsAre;

/// Notes what it is told, with the milliseconds.
class NotingListener final : public LineListener {
 public:
  void Heard(std::span<const std::uint8_t> bytes, Time now) override {
    Note("heard " + std::to_string(bytes.size()), now);
    Count += bytes.size();
    Most = std::max(Most, bytes.size());
  }
  void Said(std::span<const std::uint8_t> bytes, Time now) override {
    Note("said " + std::to_string(bytes.size()), now);
    Told += bytes.size();
  }
  void Latched(bool on, Time now) override { Note(on ? "on" : "off", now); }
  void Closed(Time now) override { Note("closed", now); }
  [[nodiscard]] const std::string& Trouble() const override { return Wrong; }

  std::vector<std::string> Notes;
  std::string Wrong;
  std::size_t Told = 0;   ///< of all that was said
  std::size_t Count = 0;  ///< of all that was heard
  std::size_t Most = 0;   ///< of it at once

 private:
  void Note(const std::string& what, Time now) {
    Notes.push_back(what + " at " + std::to_string(now.count() / 1000));
  }
};

class ServedMachineTest : public testing::Test {
 protected:
  ServedMachineTest() {
    EXPECT_FALSE(machine_.Terminal().Open());
    machine_.TellTo(listener_);
    client_.emplace(machine_.Terminal().Path());
  }
  /// Serves what lies there, also whether the client has left.
  void Serve() {
    auto files = machine_.Files();
    ppoll(files.data(), files.size(), &kNow, nullptr);
    machine_.Carry(files);
  }

  void SendPoll() {
    client_->Send(ToWire({0x19, 0, 0, 0, 0, 0, 0, 0}));
    WaitForBytes(machine_.Files()[0].fd);
  }

  static constexpr timespec kNow{};
  test::VirtualClock clock_;
  NotingListener listener_;
  ServedMachine machine_{Talk::Fast(), Pace::kWire, clock_};
  std::optional<TerminalClient> client_;
};

TEST_F(ServedMachineTest, WhatPassesIsToldWithItsTime) {
  Serve();
  clock_.Spend(std::chrono::milliseconds(3));
  SendPoll();
  Serve();
  clock_.Spend(std::chrono::milliseconds(4));
  Serve();
  EXPECT_EQ(client_->Take(8).size(), 8U);
  EXPECT_THAT(listener_.Notes, ElementsAre("on at 0", "heard 8 at 3", "said 8 at 7"));
}

TEST_F(ServedMachineTest, WhoLeavesDropsTheLineAndIsTold) {
  Serve();
  client_.reset();
  Serve();
  EXPECT_THAT(listener_.Notes, ElementsAre("on at 0", "off at 0", "closed at 0"));
  EXPECT_FALSE(machine_.Machine().LatchOn());
}

TEST_F(ServedMachineTest, AFloodIsHeardInTurns) {
  constexpr std::size_t kFlood = 3000;
  client_->Send(Bytes(kFlood, 0x55));
  while (listener_.Count < kFlood && !HasFailure()) {
    WaitForBytes(machine_.Files()[0].fd);
    Serve();
  }
  EXPECT_LE(listener_.Most, 1024U);
}

// A command is 694 us on the line, the machine thinks for 2000 at the pace of a real one and not at
// all as fast as asked, and the head of its reply takes 694.
TEST_F(ServedMachineTest, ItWaitsForItsNextByteAndForTheLineToDrop) {
  EXPECT_EQ(machine_.Patience(), std::chrono::milliseconds(500));
  Serve();
  EXPECT_EQ(machine_.Patience(), std::chrono::milliseconds(50));
  SendPoll();
  Serve();
  EXPECT_EQ(machine_.Patience(), std::chrono::microseconds(694 + 694));
}

// The system makes room a little later than it says that there is none.
TEST_F(ServedMachineTest, WhatAProgramThatDoesNotReadHasNoRoomForIsNotSaid) {
  const Bytes flood(4096, 0x55);
  std::size_t before = 0;
  for (int refused = 0; refused < 1000;) {
    const std::size_t went = machine_.Terminal().Write(flood);
    before += went;
    refused = went == 0 ? refused + 1 : 0;
  }
  SendPoll();
  Serve();
  clock_.Spend(std::chrono::milliseconds(4));
  Serve();
  EXPECT_EQ(listener_.Count, 8U);
  EXPECT_EQ(client_->Take(before + listener_.Told).size(), before + listener_.Told);
}

TEST_F(ServedMachineTest, ATroubleIsToldOnce) {
  EXPECT_EQ(machine_.NewTrouble(), "");
  listener_.Wrong = "no room";
  EXPECT_EQ(machine_.NewTrouble(), "no room");
  EXPECT_EQ(machine_.NewTrouble(), "");
}

}  // namespace
}  // namespace morvane::simulator
