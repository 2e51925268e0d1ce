#include "bridges/usb_desk.h"

// The chip's settings, its queues, its latch, and endpoints that stop.

namespace morvane::bridges {
namespace {

using ::testing::ElementsAre;

constexpr auto kSuccess = UsbXpress::kSuccess;
constexpr std::uint8_t kBaudRateCode = 0x1E;
constexpr std::uint8_t kBaudDivisorCode = 0x01;
constexpr std::uint8_t kFurtherCode = 0xFF;

class UsbChipTest : public UsbDirectTest {
 protected:
  void SetUp() override {
    Open(20);
    chip_.ForgetRequests();
  }
};

TEST_F(UsbChipTest, AChipThatKnowsNoRatesIsGivenTheDivisor) {
  chip_.StallOn(kBaudRateCode);
  EXPECT_EQ(usb_.SetBaudRate(handle_, 115200), kSuccess);
  EXPECT_THAT(chip_.Requests(), ElementsAre(chip::BaudRate(115200), chip::BaudDivisor(115200)));
}

TEST_F(UsbChipTest, ARateThatTheChipDoesNotTakeIsAWrongParameter) {
  chip_.StallOn(kBaudRateCode);
  chip_.StallOn(kBaudDivisorCode);
  EXPECT_EQ(usb_.SetBaudRate(handle_, 115200), UsbXpress::kInvalidParameter);
  EXPECT_EQ(usb_.SetBaudRate(handle_, 1), UsbXpress::kInvalidParameter) << "without a divisor";
  EXPECT_EQ(usb_.SetBaudRate(handle_, 0), UsbXpress::kInvalidParameter);
  EXPECT_THAT(chip_.Requests(),
              ElementsAre(chip::BaudRate(115200), chip::BaudDivisor(115200), chip::BaudRate(1)));
}

TEST_F(UsbChipTest, OnlyEightBitsWithoutParityAreALine) {
  EXPECT_EQ(usb_.SetLineControl(handle_, 0x0700), UsbXpress::kInvalidParameter);
  EXPECT_THAT(chip_.Requests(), ElementsAre());
}

TEST_F(UsbChipTest, AFlushedReceiverHasForgottenEverything) {
  chip_.Say(CountedBytes(16));
  EXPECT_EQ(Read(8).size(), 8U);  // the rest is held
  chip_.Say(CountedBytes(16));    // in the chip
  chip_.SayBehindPurge(CountedBytes(16));
  EXPECT_EQ(usb_.FlushBuffers(handle_, 0, 1), kSuccess);
  EXPECT_THAT(chip_.Requests(), ElementsAre(chip::Purge(false, true)));
  chip_.Say({77});
  EXPECT_EQ(Read(1), Bytes{77});
}

TEST_F(UsbChipTest, AFlushedTransmitterLeavesWhatHasCome) {
  chip_.Say(CountedBytes(16));
  EXPECT_EQ(Read(8).size(), 8U);
  chip_.Say({77});
  EXPECT_EQ(usb_.FlushBuffers(handle_, 1, 0), kSuccess);
  EXPECT_THAT(chip_.Requests(), ElementsAre(chip::Purge(true, false)));
  EXPECT_EQ(Read(9), (Bytes{8, 9, 10, 11, 12, 13, 14, 15, 77}));
}

TEST_F(UsbChipTest, FlushingNothingAsksNothing) {
  EXPECT_EQ(usb_.FlushBuffers(handle_, 0, 0), kSuccess);
  EXPECT_THAT(chip_.Requests(), ElementsAre());
}

TEST_F(UsbChipTest, AFlushCostsNoNoticeableTime) {
  ASSERT_EQ(usb_.SetTimeouts(kLongMs, kLongMs), kSuccess);
  const auto start = steady_clock::now();
  for (int flush = 0; flush < 10; ++flush) {
    EXPECT_EQ(usb_.FlushBuffers(handle_, 1, 1), kSuccess);
  }
  EXPECT_LT(MsSince(start), 500.0);
}

TEST_F(UsbChipTest, ABabblingLineEndsNeitherFlushNorReadLate) {
  usb_.SetTimeouts(1000, 1000);
  chip_.BabbleWith(Bytes(64, 0x5A));
  const auto start = steady_clock::now();
  EXPECT_EQ(usb_.FlushBuffers(handle_, 1, 1), kSuccess);
  EXPECT_EQ(Read(1000).size(), 1000U);
  EXPECT_EQ(Write(CountedBytes(8)), 8U);
  EXPECT_LT(MsSince(start), 2000.0);
}

TEST_F(UsbChipTest, TheLatchTakesMaskAndValue) {
  EXPECT_EQ(usb_.WriteLatch(handle_, 1, 1), kSuccess);
  EXPECT_EQ(usb_.WriteLatch(handle_, 1, 0), kSuccess);
  EXPECT_THAT(chip_.Requests(), ElementsAre(chip::WriteLatch(1, 1), chip::WriteLatch(1, 0)));
}

TEST_F(UsbChipTest, ClosingLowersALatchThatWasRaised) {
  EXPECT_EQ(usb_.WriteLatch(handle_, 3, 1), kSuccess);
  chip_.ForgetRequests();
  EXPECT_EQ(usb_.Close(handle_), kSuccess);
  EXPECT_THAT(chip_.Requests(), ElementsAre(chip::WriteLatch(1, 0), chip::Enable(false)));
}

TEST_F(UsbChipTest, ClosingLeavesALatchThatIsDown) {
  EXPECT_EQ(usb_.WriteLatch(handle_, 1, 1), kSuccess);
  EXPECT_EQ(usb_.WriteLatch(handle_, 1, 0), kSuccess);
  chip_.ForgetRequests();
  EXPECT_EQ(usb_.Close(handle_), kSuccess);
  EXPECT_THAT(chip_.Requests(), ElementsAre(chip::Enable(false)));
}

TEST_F(UsbChipTest, ALatchThatWasRaisedBeforeIsNotOfTheNextOpening) {
  EXPECT_EQ(usb_.WriteLatch(handle_, 1, 1), kSuccess);
  chip_.Pull();
  EXPECT_EQ(usb_.Close(handle_), kSuccess);
  chip_.PlugIn();
  Open(20);
  chip_.ForgetRequests();
  EXPECT_EQ(usb_.Close(handle_), kSuccess);
  EXPECT_THAT(chip_.Requests(), ElementsAre(chip::Enable(false)));
}

TEST_F(UsbChipTest, WhatIsSentToAChipWithoutASpeedIsLost) {
  EXPECT_EQ(usb_.Close(handle_), kSuccess);
  ASSERT_EQ(usb_.Open(0, handle_), kSuccess);
  EXPECT_EQ(Write({7}), 1U);
  chip_.Say({8});
  EXPECT_EQ(Read(1), Bytes());
  EXPECT_EQ(chip_.Heard(), Bytes());
}

TEST_F(UsbChipTest, AnEndpointThatStoppedOnceGoesOn) {
  chip_.FailNext(EPIPE, 1);
  chip_.Say({1, 2, 3});
  EXPECT_EQ(Read(3), (Bytes{1, 2, 3}));
  EXPECT_EQ(status_, kSuccess);
  chip_.StallOut(1);
  EXPECT_EQ(Write({7}), 0U);
  EXPECT_EQ(status_, UsbXpress::kWriteError);
  EXPECT_EQ(Write({8}), 1U);
  EXPECT_EQ(chip_.Heard(), Bytes{8});
}

TEST_F(UsbChipTest, AnEndpointThatStopsAtOnceAgainIsAnErrorOfTheRead) {
  ASSERT_EQ(usb_.SetTimeouts(kLongMs, kLongMs), kSuccess);
  chip_.FailNext(EPIPE, 2);
  const auto start = steady_clock::now();
  EXPECT_EQ(Read(3), Bytes());
  EXPECT_EQ(status_, UsbXpress::kReadError);
  EXPECT_LT(MsSince(start), 1000.0);
}

class UsbPartsTest : public UsbBusTest {
 protected:
  UsbXpress::Status LatchOf(std::uint8_t part, bool tellsPart = true) {
    EmulatedUsb& chip = bus_.Attach({.PartNumber = part});
    if (!tellsPart) chip.StallOn(kFurtherCode);
    UsbDirect usb({});
    UsbXpress::Handle handle = kNoHandle;
    EXPECT_EQ(Count(usb), 1U);
    EXPECT_EQ(usb.Open(0, handle), kSuccess);
    const auto status = usb.WriteLatch(handle, 1, 1);
    latched_ = std::ranges::count(chip.Requests(), chip::WriteLatch(1, 1)) == 1;
    chip.Pull();
    return status;
  }
  bool latched_ = false;
};

TEST_F(UsbPartsTest, TheTwoOldestChipsHaveNoLatch) {
  for (const std::uint8_t part : Bytes{1, 2}) {
    EXPECT_EQ(LatchOf(part), UsbXpress::kFunctionNotSupported);
    EXPECT_FALSE(latched_);
  }
  for (const std::uint8_t part : Bytes{3, 4, 8, 0x20, 0x22}) {
    EXPECT_EQ(LatchOf(part), kSuccess) << int{part};
    EXPECT_TRUE(latched_);
  }
}

TEST_F(UsbPartsTest, AChipThatDoesNotTellItsPartIsTried) {
  EXPECT_EQ(LatchOf(1, false), UsbXpress::kInvalidParameter);
  EXPECT_TRUE(latched_);
}

}  // namespace
}  // namespace morvane::bridges
