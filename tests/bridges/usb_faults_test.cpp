#include <sys/time.h>

#include <csignal>
#include <thread>

#include "bridges/usb_desk.h"

// Machines that are unplugged, and programs and buses that are disturbed.

namespace morvane::bridges {
namespace {

constexpr auto kSuccess = UsbXpress::kSuccess;
constexpr std::uint8_t kEnableCode = 0x00;
constexpr std::uint8_t kPurgeCode = 0x12;
constexpr std::uint8_t kFurtherCode = 0xFF;

TEST_F(UsbDirectTest, AMachineThatIsGoneGivesShortCountsAtOnce) {
  Open(kLongMs, kLongMs);
  chip_.Pull();
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadError);
  EXPECT_EQ(Write({1, 2, 3}), 0U);
  EXPECT_EQ(status_, UsbXpress::kWriteError);
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadError);
  EXPECT_EQ(usb_.FlushBuffers(handle_, 1, 1), UsbXpress::kInvalidHandle);
  EXPECT_EQ(usb_.WriteLatch(handle_, 1, 0), UsbXpress::kInvalidHandle);
  EXPECT_EQ(usb_.SetBaudRate(handle_, 115200), UsbXpress::kInvalidHandle);
  EXPECT_EQ(usb_.SetLineControl(handle_, 0x0800), UsbXpress::kInvalidHandle);
  EXPECT_LT(MsSince(start), 1000.0);
  EXPECT_EQ(usb_.Close(handle_), kSuccess);
}

TEST_F(UsbDirectTest, EachFirstRequestFindsThatItIsGone) {
  using Request = std::function<UsbXpress::Status()>;
  const std::vector<Request> requests{
      [&] { return usb_.FlushBuffers(handle_, 1, 1); },
      [&] { return usb_.WriteLatch(handle_, 1, 0); },
      [&] { return usb_.SetBaudRate(handle_, 115200); },
      [&] { return usb_.SetLineControl(handle_, 0x0800); },
  };
  for (const auto& request : requests) {
    Open(kLongMs, kLongMs);
    chip_.Pull();
    EXPECT_EQ(request(), UsbXpress::kInvalidHandle);
    EXPECT_EQ(usb_.Close(handle_), kSuccess);
    chip_.PlugIn();
  }
  Open(kLongMs, kLongMs);
  chip_.Pull();
  EXPECT_EQ(Write({1}), 0U);
  EXPECT_EQ(status_, UsbXpress::kWriteError);
}

TEST_F(UsbDirectTest, AMachineThatGoesDuringAReadEndsIt) {
  Open(kLongMs);
  const int asked = chip_.Askings();
  std::thread puller([&] {
    chip_.Say({1, 2, 3});
    while (chip_.Askings() == asked) std::this_thread::yield();
    chip_.Pull();
  });
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(8), (Bytes{1, 2, 3})) << "what came is kept";
  EXPECT_EQ(status_, UsbXpress::kReadError);
  EXPECT_LT(MsSince(start), 1000.0);
  puller.join();
}

TEST_F(UsbDirectTest, AMachineThatGoesDuringAWriteEndsIt) {
  Open(kLongMs, kLongMs);
  chip_.PullAt(1);
  const auto start = steady_clock::now();
  EXPECT_EQ(Write(CountedBytes(136)), 0U);
  EXPECT_EQ(status_, UsbXpress::kWriteError);
  EXPECT_LT(MsSince(start), 1000.0);
}

TEST_F(UsbDirectTest, WhatWasHeldIsReadThoughTheMachineHasGone) {
  Open(5);
  chip_.Say(CountedBytes(16));
  EXPECT_EQ(Read(8), CountedBytes(8));
  chip_.Pull();
  EXPECT_EQ(Read(8).size(), 8U);
  EXPECT_EQ(status_, kSuccess);
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadError);
}

TEST_F(UsbDirectTest, AMachineThatCameBackIsNotOpenUntilItIsOpened) {
  Open(5);
  chip_.Pull();
  EXPECT_EQ(Read(8), Bytes());
  chip_.PlugIn();
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadError);
  EXPECT_EQ(usb_.Close(handle_), kSuccess);
  Open(kLongMs);
  chip_.Say({1});
  EXPECT_EQ(Read(1), Bytes{1});
}

TEST_F(UsbDirectTest, SignalsDoNotShortenARead) {
  static volatile std::sig_atomic_t signals = 0;
  Open(100);
  const auto before = std::signal(SIGALRM, [](int) { signals = signals + 1; });
  constexpr itimerval kEach5Ms{{0, 5000}, {0, 5000}};
  constexpr itimerval kNever{};
  setitimer(ITIMER_REAL, &kEach5Ms, nullptr);
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadTimedOut);
  EXPECT_GE(MsSince(start), 100.0);
  setitimer(ITIMER_REAL, &kNever, nullptr);
  std::signal(SIGALRM, before);
  EXPECT_GE(signals, 3);
}

TEST_F(UsbDirectTest, WhatAnOldLinkHeldIsNoneOfTheNew) {
  Open(5);
  chip_.Say(CountedBytes(16));
  EXPECT_EQ(Read(8), CountedBytes(8));
  EXPECT_EQ(usb_.Close(handle_), kSuccess);
  Open(5);
  chip_.Say({77});
  EXPECT_EQ(Read(1), Bytes{77});
}

TEST_F(UsbDirectTest, AMachineThatGoesWithinALongReplyEndsIt) {
  Open(kLongMs);
  chip_.PullBehind(1);
  chip_.Say(CountedBytes(136));
  EXPECT_EQ(Read(8), CountedBytes(8));
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(128).size(), 56U) << "the rest of its first packet";
  EXPECT_EQ(status_, UsbXpress::kReadError);
  EXPECT_LT(MsSince(start), 1000.0);
}

TEST_F(UsbDirectTest, AMachineThatGoesAsItIsAskedForSomethingIsGone) {
  Open(kLongMs);
  chip_.PullAtRequest(kPurgeCode);
  EXPECT_EQ(usb_.FlushBuffers(handle_, 1, 1), UsbXpress::kInvalidHandle);
  EXPECT_EQ(usb_.Close(handle_), kSuccess);
  chip_.PlugIn();
  Open(kLongMs);
  chip_.PullAtRequest(kFurtherCode);
  EXPECT_EQ(usb_.WriteLatch(handle_, 1, 1), UsbXpress::kInvalidHandle);
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadError);
  EXPECT_EQ(usb_.Close(handle_), kSuccess);
}

TEST_F(UsbDirectTest, AMachineThatGoesAsItIsSwitchedOnIsNotFound) {
  EXPECT_EQ(Count(usb_), 1U);
  chip_.PullAtRequest(kEnableCode);
  EXPECT_EQ(usb_.Open(0, handle_), UsbXpress::kDeviceNotFound);
  EXPECT_EQ(usb_.Advice(), "The machine has been unplugged.");
  chip_.PlugIn();
  Open(kLongMs);
}

class DisturbedBus : public UsbDirectTest, public testing::WithParamInterface<int> {};

TEST_P(DisturbedBus, AReadGoesOnBehindADisturbance) {
  Open(kLongMs);
  chip_.FailNext(GetParam(), 3);
  chip_.Say({1, 2, 3});
  EXPECT_EQ(Read(3), (Bytes{1, 2, 3}));
  EXPECT_EQ(status_, kSuccess);
}

TEST_P(DisturbedBus, ManyDisturbancesInARowEndAReadBeforeItsTime) {
  Open(kLongMs);
  chip_.FailNext(GetParam(), 6);
  const int asked = chip_.Askings();
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(3), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadError);
  EXPECT_GE(MsSince(start), 15.0) << "pauses lie between them";
  EXPECT_LT(MsSince(start), 1000.0);
  EXPECT_LE(chip_.Askings() - asked, 30);
  chip_.Say({1});
  EXPECT_EQ(Read(1), Bytes{1}) << "the device is still there";
}

TEST_P(DisturbedBus, WhatHasNoTimeIsNotTriedAgain) {
  Open(0);
  chip_.FailNext(GetParam(), 1);
  chip_.Say({1});
  EXPECT_EQ(Read(1), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadTimedOut);
  EXPECT_EQ(Read(1), Bytes{1});
}

INSTANTIATE_TEST_SUITE_P(Errors, DisturbedBus, testing::Values(EPROTO, EILSEQ, EOVERFLOW, EIO));

}  // namespace
}  // namespace morvane::bridges
