#include <thread>

#include "bridges/usb_desk.h"

// What is asked of the chip, and what comes from it.

namespace morvane::bridges {
namespace {

using ::testing::ElementsAre;

constexpr auto kSuccess = UsbXpress::kSuccess;

TEST_F(UsbDirectTest, OpeningAsksTheChipForItsPartAndSetsItsLine) {
  Open(30);
  EXPECT_THAT(chip_.Requests(),
              ElementsAre(chip::Enable(true), chip::PartNumber(), chip::BaudRate(115200),
                          chip::LineControl(0x0800), chip::Purge(true, true)));
  EXPECT_TRUE(chip_.IsClaimed());
  EXPECT_FALSE(chip_.HasDriver());
}

TEST_F(UsbDirectTest, ClosingSwitchesTheChipOffAndGivesItBack) {
  Open(30);
  chip_.ForgetRequests();
  EXPECT_EQ(usb_.Close(handle_), kSuccess);
  EXPECT_THAT(chip_.Requests(), ElementsAre(chip::Enable(false)));
  EXPECT_TRUE(chip_.HasDriver());
  EXPECT_FALSE(chip_.IsClaimed());
  EXPECT_EQ(usb_.Close(handle_), UsbXpress::kInvalidHandle);
}

TEST_F(UsbDirectTest, TheLibraryIsOfAnAgeThatAsksForNoUpdate) {
  std::uint32_t high = 0;
  std::uint32_t low = 99;
  EXPECT_EQ(usb_.GetDllVersion(high, low), kSuccess);
  EXPECT_EQ(high, 0x30001U);
  EXPECT_EQ(low, 0U);
  high = 0;
  EXPECT_EQ(usb_.GetDriverVersion(high, low), kSuccess);
  EXPECT_EQ(high, 0x30001U);
}

TEST_F(UsbDirectTest, WhatIsWrittenIsHeardAndTheAnswerRead) {
  Open(kLongMs, kLongMs);
  chip_.Answer(
      [](std::span<const std::uint8_t> heard) { return Bytes(heard.rbegin(), heard.rend()); });
  EXPECT_EQ(Write({1, 2, 3, 4, 5, 6, 7, 8}), 8U);
  EXPECT_EQ(status_, kSuccess);
  EXPECT_EQ(chip_.Heard(), (Bytes{1, 2, 3, 4, 5, 6, 7, 8}));
  EXPECT_EQ(Read(8), (Bytes{8, 7, 6, 5, 4, 3, 2, 1}));
  EXPECT_EQ(status_, kSuccess);
}

TEST_F(UsbDirectTest, ALongFrameComesInItsPackets) {
  Open(kLongMs, kLongMs);
  EXPECT_EQ(Write(CountedBytes(136)), 136U);
  EXPECT_EQ(chip_.Heard(), CountedBytes(136));
  chip_.Say(CountedBytes(136));
  EXPECT_EQ(Read(8), CountedBytes(8));
  EXPECT_EQ(Read(128).front(), 8);
  EXPECT_EQ(status_, kSuccess);
}

TEST_F(UsbDirectTest, APacketThatIsFullEndsTheRead) {
  Open(kLongMs);
  const auto start = steady_clock::now();
  chip_.Say(CountedBytes(64));
  EXPECT_EQ(Read(64), CountedBytes(64));
  EXPECT_LT(MsSince(start), 1000.0);
}

TEST_F(UsbDirectTest, WhatAPacketHasBeyondAReadIsTheNextOnes) {
  Open(kLongMs);
  chip_.Say(CountedBytes(16));
  EXPECT_EQ(Read(8), CountedBytes(8));
  const int asked = chip_.Askings();
  EXPECT_EQ(Read(8), (Bytes{8, 9, 10, 11, 12, 13, 14, 15}));
  EXPECT_EQ(chip_.Askings(), asked) << "it was there";
}

TEST_F(UsbDirectTest, NothingToReadTakesTheTimeOutAndNoMore) {
  Open(60);
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadTimedOut);
  EXPECT_GE(MsSince(start), 60.0);
  EXPECT_LT(MsSince(start), 1000.0);
}

TEST_F(UsbDirectTest, WithoutTimeAReadTakesWhatIsThere) {
  Open(0);
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadTimedOut);
  chip_.Say({1, 2, 3});
  EXPECT_EQ(Read(3), (Bytes{1, 2, 3}));
  EXPECT_EQ(status_, kSuccess);
}

TEST_F(UsbDirectTest, EvenWithoutTimeTwoFramesOfTheBusPass) {
  Open(0);
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(8), Bytes());
  EXPECT_GE(MsSince(start), 2.0);
}

TEST_F(UsbDirectTest, AReadThatGotTooLittleKeepsIt) {
  Open(30);
  chip_.Say({1, 2, 3, 4, 5});
  EXPECT_EQ(Read(8), (Bytes{1, 2, 3, 4, 5}));
  EXPECT_EQ(status_, UsbXpress::kReadTimedOut);
}

TEST_F(UsbDirectTest, LateBytesComeWithTheNextRead) {
  Open(5);
  chip_.Say({1, 2});
  EXPECT_EQ(Read(4), (Bytes{1, 2}));
  chip_.Say({3, 4});
  EXPECT_EQ(Read(2), (Bytes{3, 4}));
}

TEST_F(UsbDirectTest, AReadWaitsOnTheChipAndAsksNobodyMeanwhile) {
  Open(300);
  const int asked = chip_.Askings();
  EXPECT_EQ(Read(8), Bytes());
  // The one that ran out of time, and its end.
  EXPECT_LE(chip_.Askings() - asked, 10);
}

TEST_F(UsbDirectTest, BytesThatComeDuringAReadWakeIt) {
  Open(kLongMs);
  const int asked = chip_.Askings();
  std::thread sayer([&] {
    for (std::uint8_t byte = 0; byte < 8; ++byte) chip_.Say({byte});
  });
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(8), CountedBytes(8));
  sayer.join();
  EXPECT_LT(MsSince(start), 1000.0);
  EXPECT_GT(chip_.Askings(), asked);
}

TEST_F(UsbDirectTest, WhatTheDeviceDoesNotTakeInTimeIsNotWritten) {
  Open(30, 40);
  chip_.TakeOnly(5);
  const auto start = steady_clock::now();
  EXPECT_EQ(Write(CountedBytes(8)), 5U);
  EXPECT_EQ(status_, UsbXpress::kWriteTimedOut);
  EXPECT_GE(MsSince(start), 40.0);
  EXPECT_LT(MsSince(start), 1000.0);
  EXPECT_EQ(chip_.Heard(), CountedBytes(5));
}

TEST_F(UsbDirectTest, AWriteWithoutTimeDoesNotWaitForEver) {
  Open(30, 0);
  chip_.TakeOnly(0);
  EXPECT_EQ(Write(CountedBytes(8)), 0U);
  EXPECT_EQ(status_, UsbXpress::kWriteTimedOut);
}

TEST_F(UsbDirectTest, WritingNothingIsDoneAtOnce) {
  Open(30);
  EXPECT_EQ(Write({}), 0U);
  EXPECT_EQ(status_, kSuccess);
  EXPECT_EQ(chip_.TransfersHeard(), 0);
}

TEST_F(UsbDirectTest, NothingWorksWithAHandleThatIsNone) {
  Bytes bytes(8);
  std::uint32_t count = 99;
  Open(30);
  chip_.ForgetRequests();
  for (const UsbXpress::Handle handle : {kNoHandle, handle_ + 1}) {
    EXPECT_EQ(usb_.SetBaudRate(handle, 115200), UsbXpress::kInvalidHandle);
    EXPECT_EQ(usb_.SetLineControl(handle, 0x0800), UsbXpress::kInvalidHandle);
    EXPECT_EQ(usb_.FlushBuffers(handle, 1, 1), UsbXpress::kInvalidHandle);
    EXPECT_EQ(usb_.Write(handle, bytes, count), UsbXpress::kInvalidHandle);
    EXPECT_EQ(count, 0U);
    count = 99;
    EXPECT_EQ(usb_.Read(handle, bytes, count), UsbXpress::kInvalidHandle);
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(usb_.WriteLatch(handle, 1, 1), UsbXpress::kInvalidHandle);
    EXPECT_EQ(usb_.Close(handle), UsbXpress::kInvalidHandle);
  }
  EXPECT_THAT(chip_.Requests(), ElementsAre());
  EXPECT_EQ(chip_.TransfersHeard(), 0);
}

}  // namespace
}  // namespace morvane::bridges
