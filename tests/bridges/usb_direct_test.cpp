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
  EXPECT_TRUE(chip_.UntilClosed());
  EXPECT_EQ(usb_.Close(handle_), UsbXpress::kInvalidHandle);
}

TEST_F(UsbDirectTest, WhatIsWrittenIsHeardAndTheAnswerRead) {
  Open(kLongMs, kLongMs);
  chip_.Answer([](std::span<const std::uint8_t> heard) {
    Bytes answer(heard.begin(), heard.end());
    std::ranges::reverse(answer);
    return answer;
  });
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
  EXPECT_EQ(Read(136), CountedBytes(136));
}

}  // namespace
}  // namespace morvane::bridges
