#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <filesystem>
#include <thread>

#include "bridges/babble.h"
#include "bridges/serial_desk.h"

// Peers that leave, and lines that babble.

namespace morvane::bridges {
namespace {

TEST_F(SerialBridgeTest, APeerThatLeavesGivesShortReadsAtOnce) {
  Open(kLongMs, kLongMs);
  peer_.Leave();
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadError);
  EXPECT_EQ(Write({1, 2, 3}), 0U);
  EXPECT_EQ(status_, UsbXpress::kWriteError);
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadError);
  EXPECT_EQ(bridge_.FlushBuffers(handle_, 1, 1), UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge_.WriteLatch(handle_, 1, 0), UsbXpress::kInvalidHandle);
  EXPECT_LT(MsSince(start), 1000.0);
  EXPECT_EQ(bridge_.Close(handle_), UsbXpress::kSuccess);
}

TEST_F(SerialBridgeTest, APeerThatLeavesDuringAReadEndsIt) {
  Open(kLongMs);
  peer_.Send({1, 2, 3});
  EXPECT_EQ(Read(3), (Bytes{1, 2, 3}));
  const auto start = steady_clock::now();
  std::thread script([this] {
    EXPECT_EQ(peer_.Take(1), Bytes{7});
    peer_.Leave();
  });
  EXPECT_EQ(Write({7}), 1U);
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadError);
  EXPECT_LT(MsSince(start), 1000.0);
  script.join();
}

TEST_F(SerialBridgeTest, AWriteToAPeerThatLeftFailsAtOnce) {
  Open(kLongMs, kLongMs);
  peer_.Leave();
  const auto start = steady_clock::now();
  EXPECT_EQ(Write(CountedBytes(136)), 0U);
  EXPECT_EQ(status_, UsbXpress::kWriteError);
  EXPECT_LT(MsSince(start), 1000.0);
}

TEST_F(SerialBridgeTest, APeerThatLeavesWhileNobodyReadsDoesNotKeepTheLoopAwake) {
  Open(kLongMs);
  peer_.Leave();
  bool over = false;
  int turns = 0;
  QTimer::singleShot(10, [&] { over = true; });
  while (!over) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    ++turns;
  }
  EXPECT_LT(turns, 30);
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_NE(status_, UsbXpress::kSuccess);
  EXPECT_EQ(bridge_.Close(handle_), UsbXpress::kSuccess);
}

TEST_F(SerialBridgeTest, ADeviceThatLeftIsNotFoundAnyMore) {
  Open(5);
  peer_.Leave();
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(bridge_.Close(handle_), UsbXpress::kSuccess);
  // The system may give its name to another one at once.
  const auto notThere = [this](UsbXpress::Status status) {
    return status == UsbXpress::kDeviceNotFound || std::filesystem::exists(peer_.Path());
  };
  std::uint32_t count = 99;
  UsbXpress::ProductString text;
  EXPECT_TRUE(notThere(bridge_.GetNumDevices(count))) << count;
  EXPECT_TRUE(notThere(bridge_.GetProductString(0, text, 0)));
  EXPECT_TRUE(notThere(bridge_.Open(0, handle_)));
}

TEST_F(SerialBridgeTest, ABabblingLineIsDroppedBehindABoxAndKeepsWorking) {
  Open(20);
  constexpr std::size_t kPlenty = 1'000'000;
  Babble babble(peer_);
  const auto start = steady_clock::now();
  // As a box does: nobody reads, events pass.
  while (babble.Sent() < kPlenty && MsSince(start) < kLongMs) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
  }
  babble.Stop();
  EXPECT_GE(babble.Sent(), kPlenty) << "what is not kept must not block the line";
  std::size_t held = 0;
  while (status_ != UsbXpress::kReadTimedOut) held += Read(512).size();
  // The bridge's 4 kB, and what the system keeps for a terminal: 64 kB and 4 kB.
  EXPECT_LE(held, 72U * 1024U);

  peer_.Send({1, 2, 3, 4, 5, 6, 7, 8});
  EXPECT_EQ(Read(8), (Bytes{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(SerialBridgeTest, ABabblingLineLetsCommandsOut) {
  Open(5, kLongMs);
  Babble babble(peer_);
  for (int command = 0; command < 50; ++command) {
    EXPECT_EQ(Write(CountedBytes(8)), 8U);
    EXPECT_EQ(Read(8).size(), 8U);
    QCoreApplication::processEvents();
  }
}

}  // namespace
}  // namespace morvane::bridges
