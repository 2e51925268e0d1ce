#include "bridges/serial_bridge.h"

#include <termios.h>

#include <QCoreApplication>
#include <QTimer>
#include <filesystem>
#include <thread>

#include "bridges/serial_desk.h"
#include "support/fakes.h"

namespace morvane::bridges {
namespace {

TEST_F(SerialBridgeTest, TheVersionsAskForNoUpdate) {
  std::uint32_t high = 0;
  std::uint32_t low = 99;
  EXPECT_EQ(bridge_.GetDllVersion(high, low), UsbXpress::kSuccess);
  EXPECT_EQ(bridge_.GetDriverVersion(high, low), UsbXpress::kSuccess);
  EXPECT_EQ(high >> 16, 3U);
  EXPECT_EQ(high & 0xFFFF, 1U);
}

TEST_F(SerialBridgeTest, ThereIsOneDeviceNamedByTheEndOfItsPath) {
  std::uint32_t count = 99;
  EXPECT_EQ(bridge_.GetNumDevices(count), UsbXpress::kSuccess);
  EXPECT_EQ(count, 1U);
  UsbXpress::ProductString text;
  text.fill('x');
  EXPECT_EQ(bridge_.GetProductString(0, text, UsbXpress::kSerialString), UsbXpress::kSuccess);
  EXPECT_EQ("/dev/pts/" + std::string(text.data()), peer_.Path());
  EXPECT_EQ(bridge_.GetProductString(1, text, UsbXpress::kSerialString),
            UsbXpress::kDeviceNotFound);
  EXPECT_EQ(bridge_.GetProductString(0, text, 1), UsbXpress::kInvalidParameter);
  EXPECT_EQ(bridge_.Open(1, handle_), UsbXpress::kDeviceNotFound);
}

TEST_F(SerialBridgeTest, AFullReadEndsAsSoonAsItIsFull) {
  Open(kLongMs);
  const Bytes frame = CountedBytes(256);
  peer_.Send(frame);
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(256), frame);
  EXPECT_EQ(status_, UsbXpress::kSuccess);
  EXPECT_LT(MsSince(start), 1000.0);
}

TEST_F(SerialBridgeTest, ALongFrameIsReadInItsTwoParts) {
  Open(kLongMs);
  const Bytes frame = CountedBytes(136);
  peer_.Send(frame);
  EXPECT_EQ(Read(8), Bytes(frame.begin(), frame.begin() + 8));
  EXPECT_EQ(Read(128), Bytes(frame.begin() + 8, frame.end()));
}

TEST_F(SerialBridgeTest, AnAnswerThatComesInPiecesIsReadWhole) {
  Open(kLongMs);
  std::thread script([this] {
    EXPECT_EQ(peer_.Take(3), (Bytes{0x11, 0x13, 0x0D}));
    peer_.Send({1, 2});
    peer_.Send({3});
    peer_.Send({4, 5, 6, 7, 8});
  });
  EXPECT_EQ(Write({0x11, 0x13, 0x0D}), 3U);
  EXPECT_EQ(Read(8), (Bytes{1, 2, 3, 4, 5, 6, 7, 8}));
  EXPECT_EQ(status_, UsbXpress::kSuccess);
  script.join();
}

TEST_F(SerialBridgeTest, AReadThatTimesOutSaysHowManyCame) {
  Open(10);
  peer_.Send({1, 2, 3});
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(8), (Bytes{1, 2, 3}));
  EXPECT_EQ(status_, UsbXpress::kReadTimedOut);
  EXPECT_GE(MsSince(start), 9.0);
}

TEST_F(SerialBridgeTest, SilenceIsAReadOfNothing) {
  Open(5);
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadTimedOut);
  EXPECT_GE(MsSince(start), 4.0);
  EXPECT_EQ(Read(8), Bytes());
}

TEST_F(SerialBridgeTest, AReadAfterATimeOutGoesOn) {
  Open(5);
  EXPECT_EQ(Read(8), Bytes());
  peer_.Send({9, 8, 7, 6});
  EXPECT_EQ(Read(4), (Bytes{9, 8, 7, 6}));
  EXPECT_EQ(status_, UsbXpress::kSuccess);
}

TEST_F(SerialBridgeTest, AReadOfNoBytesDoesNotWait) {
  Open(kLongMs);
  EXPECT_EQ(Read(0), Bytes());
  EXPECT_EQ(status_, UsbXpress::kSuccess);
}

TEST_F(SerialBridgeTest, TheTimeOutsHoldFromBeforeTheOpening) {
  ASSERT_EQ(bridge_.SetTimeouts(5, 5), UsbXpress::kSuccess);
  ASSERT_EQ(bridge_.Open(0, handle_), UsbXpress::kSuccess);
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_GE(MsSince(start), 4.0);
  EXPECT_LT(MsSince(start), 900.0);
}

TEST_F(SerialBridgeTest, TheTimeOutsMayChangeWhileTheLinkIsOpen) {
  Open(kLongMs);
  ASSERT_EQ(bridge_.SetTimeouts(5, 5), UsbXpress::kSuccess);
  EXPECT_EQ(Read(8), Bytes());
  ASSERT_EQ(bridge_.SetTimeouts(0, 0), UsbXpress::kSuccess);
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadTimedOut);
}

TEST_F(SerialBridgeTest, AWriteIsOnTheLineWhenItReturns) {
  Open(5);
  const Bytes frame = CountedBytes(136);
  EXPECT_EQ(Write(frame), 136U);
  EXPECT_EQ(status_, UsbXpress::kSuccess);
  EXPECT_EQ(peer_.Take(136), frame);
  EXPECT_EQ(peer_.TakeAll(0), Bytes());
}

TEST_F(SerialBridgeTest, AWriteThatThePeerDoesNotTakeEndsShortAndLeavesNothingBehind) {
  Open(5, 10);
  const Bytes flood(200000, 0x55);
  const auto start = steady_clock::now();
  const std::uint32_t written = Write(flood);
  EXPECT_EQ(status_, UsbXpress::kWriteTimedOut);
  EXPECT_LT(MsSince(start), 1000.0);
  EXPECT_GT(written, 0U);
  EXPECT_LT(written, flood.size());
  const Bytes first = peer_.TakeAll(5);
  EXPECT_LE(first.size(), written);
  QCoreApplication::processEvents();  // a rest that was kept would go out now
  EXPECT_EQ(peer_.TakeAll(5), Bytes());
  EXPECT_EQ(Write({1, 2, 3}), 3U);
  EXPECT_EQ(peer_.Take(3), (Bytes{1, 2, 3}));
}

TEST_F(SerialBridgeTest, AFlushDropsWhatCameAndWasNotRead) {
  Open(5);
  peer_.Send({1, 2, 3, 4, 5});
  EXPECT_EQ(Read(1), Bytes{1});  // all five have come
  EXPECT_EQ(bridge_.FlushBuffers(handle_, 1, 1), UsbXpress::kSuccess);
  EXPECT_EQ(Read(4), Bytes());
  peer_.Send({6});
  EXPECT_EQ(Read(1), Bytes{6});
}

TEST_F(SerialBridgeTest, AFlushOfTheOtherDirectionKeepsWhatCame) {
  Open(5);
  peer_.Send({1, 2, 3});
  EXPECT_EQ(Read(1), Bytes{1});
  EXPECT_EQ(bridge_.FlushBuffers(handle_, 1, 0), UsbXpress::kSuccess);
  EXPECT_EQ(bridge_.FlushBuffers(handle_, 0, 0), UsbXpress::kSuccess);
  EXPECT_EQ(Read(2), (Bytes{2, 3}));
}

TEST_F(SerialBridgeTest, AFlushDropsWhatThePeerHasNotTaken) {
  Open(5);
  // A pseudo-terminal holds 4095 bytes at the peer's end and queues the rest, as a driver does.
  const Bytes queued(8000, 0x55);
  EXPECT_EQ(Write(queued), 8000U);
  EXPECT_EQ(bridge_.FlushBuffers(handle_, 1, 1), UsbXpress::kSuccess);
  EXPECT_LT(peer_.TakeAll(5).size(), 8000U);
  EXPECT_EQ(Write({1, 2}), 2U);
  EXPECT_EQ(peer_.Take(2), (Bytes{1, 2}));
}

TEST_F(SerialBridgeTest, NoEventRunsInsideAReadOrAWrite) {
  Open(10);
  int events = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++events; });
  timer.start(1);
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(Write(CountedBytes(136)), 136U);
  EXPECT_EQ(events, 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(events, 1);
}

TEST_F(SerialBridgeTest, BytesThatCameWhileEventsRanAreReadLater) {
  Open(kLongMs);
  peer_.Send({1, 2, 3, 4});
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
  EXPECT_EQ(Read(4), (Bytes{1, 2, 3, 4}));
}

TEST_F(SerialBridgeTest, AWakeUpForBytesThatWereReadMeanwhileIsNoLoss) {
  Open(kLongMs);
  // The loop has seen the bytes when the timer's own event takes them away from under it.
  Bytes taken;
  QTimer::singleShot(0, [&] { taken = Read(2); });
  peer_.Send({1, 2});
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
  EXPECT_EQ(taken, (Bytes{1, 2}));
  peer_.Send({3});
  EXPECT_EQ(Read(1), Bytes{3});
}

TEST_F(SerialBridgeTest, TheLatchNeedsNoLine) {
  Open(5);
  EXPECT_EQ(bridge_.WriteLatch(handle_, 1, 1), UsbXpress::kSuccess);
  EXPECT_EQ(bridge_.WriteLatch(handle_, 1, 0), UsbXpress::kSuccess);
  EXPECT_EQ(bridge_.WriteLatch(handle_, 0, 1), UsbXpress::kSuccess);
  peer_.Send({1});
  EXPECT_EQ(Read(1), Bytes{1});  // the refusal did no harm
}

TEST_F(SerialBridgeTest, WithoutALineTheLatchIsTheSpeedOfTheDevice) {
  Open(5);
  EXPECT_EQ(peer_.Speed(), unsigned{B115200});
  EXPECT_EQ(bridge_.WriteLatch(handle_, 1, 0), UsbXpress::kSuccess);
  EXPECT_EQ(peer_.Speed(), unsigned{B0});
  EXPECT_EQ(bridge_.WriteLatch(handle_, 2, 2), UsbXpress::kSuccess);
  EXPECT_EQ(peer_.Speed(), unsigned{B0}) << "another line";
  EXPECT_EQ(bridge_.WriteLatch(handle_, 1, 1), UsbXpress::kSuccess);
  EXPECT_EQ(peer_.Speed(), unsigned{B115200});
}

TEST_F(SerialBridgeTest, TheLinkMayBeOpenedAgain) {
  Open(kLongMs);
  EXPECT_EQ(bridge_.Close(handle_), UsbXpress::kSuccess);
  Open(kLongMs);
  peer_.Send({1});
  EXPECT_EQ(Read(1), Bytes{1});
}

TEST_F(SerialBridgeTest, WhatTheLineHasNotTakenIsDroppedWithTheLink) {
  Open(5);
  EXPECT_EQ(Write(Bytes(8000, 0x55)), 8000U);
  EXPECT_EQ(bridge_.Close(handle_), UsbXpress::kSuccess);
  EXPECT_LT(peer_.TakeAll(5).size(), 8000U);
}

TEST_F(SerialBridgeTest, AClosedHandleIsGoodForNothing) {
  Open(5);
  EXPECT_EQ(bridge_.Close(handle_), UsbXpress::kSuccess);
  EXPECT_EQ(bridge_.Close(handle_), UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge_.SetBaudRate(handle_, UsbXpress::kBaudRate), UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge_.SetLineControl(handle_, UsbXpress::kEightDataBitsNoParity),
            UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge_.FlushBuffers(handle_, 1, 1), UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge_.WriteLatch(handle_, 1, 1), UsbXpress::kInvalidHandle);
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kInvalidHandle);
  EXPECT_EQ(Write({1}), 0U);
  EXPECT_EQ(status_, UsbXpress::kInvalidHandle);
}

TEST_F(SerialBridgeTest, AnotherNumberIsNoHandle) {
  Open(5);
  EXPECT_EQ(bridge_.FlushBuffers(handle_ + 1, 1, 1), UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge_.FlushBuffers(kNoHandle, 1, 1), UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge_.Close(kNoHandle), UsbXpress::kInvalidHandle);
  EXPECT_EQ(bridge_.Close(handle_), UsbXpress::kSuccess);
}

TEST_F(SerialBridgeTest, OtherLineSettingsAreRefused) {
  Open(5);
  EXPECT_EQ(bridge_.SetBaudRate(handle_, 0), UsbXpress::kInvalidParameter);
  EXPECT_EQ(bridge_.SetBaudRate(handle_, 0xFFFFFFFF), UsbXpress::kInvalidParameter);
  EXPECT_EQ(bridge_.SetLineControl(handle_, 0x0801), UsbXpress::kInvalidParameter);
}

TEST_F(SerialBridgeTest, ALinkToTheDeviceWillDo) {
  test::TempFolder folder;
  std::filesystem::create_symlink(peer_.Path(), folder / "machine");
  SerialBridge bridge(folder / "machine");
  EXPECT_EQ(bridge.Open(0, handle_), UsbXpress::kSuccess);
  UsbXpress::ProductString text;
  EXPECT_EQ(bridge.GetProductString(0, text, 0), UsbXpress::kSuccess);
  EXPECT_STREQ(text.data(), "machine");
}

TEST(SerialBridge, AShortNameIsADevicesName) {
  SerialBridge bridge("full");
  std::uint32_t count = 0;
  EXPECT_EQ(bridge.GetNumDevices(count), UsbXpress::kSuccess);  // /dev/full stands there
  UsbXpress::Handle handle = kNoHandle;
  EXPECT_EQ(bridge.Open(0, handle), UsbXpress::kDeviceNotFound);  // but it is no serial line
  EXPECT_EQ(handle, kNoHandle);
}

TEST(SerialBridge, WhatIsNoDeviceIsNotFound) {
  test::TempFolder folder;
  test::WriteContent(folder / "plain", "x");
  for (const std::string& path :
       {folder / "none", folder / "plain", folder.Path(), std::string()}) {
    SerialBridge bridge(path);
    std::uint32_t count = 99;
    EXPECT_EQ(bridge.GetNumDevices(count), UsbXpress::kDeviceNotFound) << path;
    EXPECT_EQ(count, 0U);
    UsbXpress::Handle handle = kNoHandle;
    EXPECT_NE(bridge.Open(0, handle), UsbXpress::kSuccess) << path;
    EXPECT_EQ(handle, kNoHandle);
  }
  EXPECT_EQ(test::Content(folder / "plain"), "x");
}
}  // namespace
}  // namespace morvane::bridges

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
