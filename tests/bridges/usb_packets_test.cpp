#include "bridges/usb_desk.h"

// How long the packets are that the chip says it sends.

namespace morvane::bridges {
namespace {

class UsbPacketsTest : public UsbDirectTest {
 protected:
  void SetUp() override { chip_.Pull(); }

  /// The status of opening a chip with this size in its descriptor.
  UsbXpress::Status OpenWith(std::uint16_t size) {
    sized_ = &bus_.Attach({.PacketSize = size});
    EXPECT_EQ(Count(usb_), 1U);
    return usb_.Open(0, handle_);
  }
  /// That a long reply comes whole.
  void ExpectLongReply() {
    EXPECT_EQ(usb_.SetTimeouts(kLongMs, kLongMs), UsbXpress::kSuccess);
    EXPECT_EQ(usb_.SetBaudRate(handle_, UsbXpress::kBaudRate), UsbXpress::kSuccess);
    sized_->Say(CountedBytes(136));
    EXPECT_EQ(Read(136), CountedBytes(136));
  }
  EmulatedUsb* sized_ = nullptr;
};

TEST_F(UsbPacketsTest, ShortOnesAreReadOneByOne) {
  ASSERT_EQ(OpenWith(8), UsbXpress::kSuccess);
  ExpectLongReply();
}

TEST_F(UsbPacketsTest, TheLongestOfAFastChip) {
  ASSERT_EQ(OpenWith(512), UsbXpress::kSuccess);
  ExpectLongReply();
}

TEST_F(UsbPacketsTest, WhatStandsAboveTheSizeIsNoneOfIt) {
  ASSERT_EQ(OpenWith(0x1840), UsbXpress::kSuccess);
  ExpectLongReply();
}

class NoUsbPackets : public UsbPacketsTest, public testing::WithParamInterface<std::uint16_t> {};

TEST_P(NoUsbPackets, ADeviceOfSuchASizeIsRefusedAndGivenBack) {
  EXPECT_EQ(OpenWith(GetParam()), UsbXpress::kDeviceIoFailed);
  EXPECT_EQ(handle_, kNoHandle);
  EXPECT_FALSE(sized_->IsClaimed());
  EXPECT_TRUE(sized_->HasDriver());
}

INSTANTIATE_TEST_SUITE_P(Sizes, NoUsbPackets, testing::Values(0, 513, 1024, 0xFFFF));

}  // namespace
}  // namespace morvane::bridges
