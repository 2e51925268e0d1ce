// What a link's trace says, line by line.

#include "bridges/trace/traced_bridge.h"

#include "bridges/trace_desk.h"
#include "support/passing_bridge.h"

namespace morvane::bridges {
namespace {

using std::chrono::microseconds;
using test::Bytes;
using test::Long;
using test::OnTheWire;
using test::Short;
using ::testing::ElementsAre;

constexpr int kToMachine = 23;
constexpr int kFromMachine = 21;

using TracedBridgeTest = test::TracedDesk;

TEST_F(TracedBridgeTest, AnOpeningIsThereCallByCall) {
  Scripted->Devices = {"0001", "47;11"};
  std::uint32_t high = 0;
  std::uint32_t low = 0;
  std::uint32_t count = 0;
  UsbXpress::ProductString text{};
  UsbXpress::Handle handle = -1;
  Usb->GetDllVersion(high, low);
  Clock.Spend(microseconds(1'000'250));
  Usb->GetDriverVersion(high, low);
  Usb->GetNumDevices(count);
  Usb->GetProductString(1, text, UsbXpress::kSerialString);
  EXPECT_EQ(Usb->Open(1, handle), UsbXpress::kSuccess);
  EXPECT_EQ(handle, 7);
  Usb->SetTimeouts(200, 400);
  Usb->SetBaudRate(handle, UsbXpress::kBaudRate);
  Usb->SetLineControl(handle, UsbXpress::kEightDataBitsNoParity);
  Usb->FlushBuffers(handle, 1, 0);
  Usb->WriteLatch(handle, 1, 0);
  Usb->Close(handle);
  EXPECT_THAT(
      Traced(),
      ElementsAre("0.000000 0.000000 GetDllVersion 0 high=196610 low=1",
                  "1.000250 0.000000 GetDriverVersion 0 high=196609 low=0",
                  "1.000250 0.000000 GetNumDevices 0 count=2",
                  "1.000250 0.000000 GetProductString 0 index=1 option=0 bytes=34373B3131 ; 47;11",
                  "1.000250 0.000000 Open 0 index=1 handle=7",
                  "1.000250 0.000000 SetTimeouts 0 read=200 write=400",
                  "1.000250 0.000000 SetBaudRate 0 handle=7 rate=115200",
                  "1.000250 0.000000 SetLineControl 0 handle=7 control=2048",
                  "1.000250 0.000000 FlushBuffers 0 handle=7 transmit=1 receive=0",
                  "1.000250 0.000000 WriteLatch 0 handle=7 mask=1 value=0",
                  "1.000250 0.000000 Close 0 handle=7"));
}

TEST_F(TracedBridgeTest, AnOperationThatFailsHasItsStatus) {
  Scripted->FailingCall = "Open";
  Scripted->FailureStatus = UsbXpress::kDeviceIoFailed;
  UsbXpress::Handle handle = -1;
  EXPECT_EQ(Usb->Open(0, handle), UsbXpress::kDeviceIoFailed);
  EXPECT_THAT(Traced(), ElementsAre("0.000000 0.000000 Open 8 index=0 handle=4294967295"));
}

TEST_F(TracedBridgeTest, AStringThatCouldNotBeHadIsNotNoted) {
  Scripted->FailingCall = "GetProductString";
  UsbXpress::ProductString text{'o', 'l', 'd'};
  Usb->GetProductString(0, text, UsbXpress::kSerialString);
  EXPECT_THAT(Traced(),
              ElementsAre("0.000000 0.000000 GetProductString 6 index=0 option=0 bytes="));
}

// S = 19: 19^19, 00^30, 00^47 ... and E6. S = 2A: 19^2A, FF^3F, 03^54, 02^69, 04^7E, 01^93, 08^A8
// and D5.
TEST_F(TracedBridgeTest, APollIsThereWithWhatItAndItsAnswerSay) {
  Scripted->Answer = [this](const Bytes&) {
    Clock.Spend(microseconds(695));
    return Bytes{0x33, 0xC0, 0x57, 0x6B, 0x7A, 0x92, 0xA0, 0xD5};
  };
  Clock.Spend(microseconds(12'345'678));
  Write({0x00, 0x30, 0x47, 0x5E, 0x75, 0x8C, 0xA3, 0xE6});
  EXPECT_EQ(Read(8).size(), 8U);
  EXPECT_THAT(Traced(),
              ElementsAre("12.345678 0.000695 Write 0 handle=7 written=8 bytes=0030475E758CA3E6 ; "
                          "CmdStatus",
                          "12.346373 0.000000 Read 0 handle=7 asked=8 bytes=33C0576B7A92A0D5 ; "
                          "status: busy, 3 2 4 1, pedal"));
}

TEST_F(TracedBridgeTest, ALongFrameIsSaidWhereItIsWhole) {
  const Bytes counter = OnTheWire(Long({0xB3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 4}), kFromMachine);
  Arrives(counter);
  const Bytes head = Read(8);
  const Bytes body = Read(128);
  EXPECT_THAT(Traced(),
              ElementsAre("0.000000 0.000000 Read 0 handle=7 asked=8 bytes=" + HexBytes(head) +
                              " ; head of a long frame",
                          "0.000000 0.000000 Read 0 handle=7 asked=128 bytes=" + HexBytes(body) +
                              " ; counter: 260"));
  Bytes whole = head;
  whole.insert(whole.end(), body.begin(), body.end());
  EXPECT_EQ(whole, counter);
}

TEST_F(TracedBridgeTest, ALongCommandIsOneLine) {
  const Bytes deal = OnTheWire(Long({0x98, 1}), kToMachine);
  Write(deal);
  EXPECT_THAT(Traced(), ElementsAre("0.000000 0.000000 Write 0 handle=7 written=136 bytes=" +
                                    HexBytes(deal) + " ; CmdDeal go on"));
}

TEST_F(TracedBridgeTest, SilenceTakesItsTime) {
  Usb->SetTimeouts(200, 200);
  EXPECT_EQ(Read(8).size(), 0U);
  EXPECT_EQ(Traced().back(), "0.000000 0.200000 Read 13 handle=7 asked=8 bytes= ; nothing");
}

TEST_F(TracedBridgeTest, WhatIsNoWholeFrameIsSaidToBeHalfOfOne) {
  Arrives({1, 2, 3});
  Read(8);
  Write({1, 2, 3, 4, 5, 6, 7, 8, 9});
  EXPECT_THAT(
      Traced(),
      ElementsAre(
          "0.000000 0.000000 Read 13 handle=7 asked=8 bytes=010203 ; half a frame",
          "0.000000 0.000000 Write 0 handle=7 written=9 bytes=010203040506070809 ; half a frame"));
}

TEST_F(TracedBridgeTest, ALongFrameWrittenAsAShortOneIsHalfOfOne) {
  Bytes deal = OnTheWire(Long({0x98}), kToMachine);
  deal.resize(8);
  Write(deal);
  EXPECT_TRUE(Traced().back().ends_with(" ; half a frame"));
}

TEST_F(TracedBridgeTest, ABodyThatDoesNotComeIsHalfAFrame) {
  Bytes counter = OnTheWire(Long({0xB3}), kFromMachine);
  counter.resize(100);
  Arrives(counter);
  Read(8);
  Read(128);
  EXPECT_TRUE(Traced().back().ends_with(" ; half a frame"));
}

TEST_F(TracedBridgeTest, WhatComesBehindAnotherOperationIsNoBody) {
  Arrives(OnTheWire(Long({0xB3}), kFromMachine));
  Read(8);
  Usb->FlushBuffers(7, 0, 0);
  Read(128);
  EXPECT_TRUE(Traced().back().ends_with(" ; half a frame"));
}

TEST_F(TracedBridgeTest, AFrameWhoseCheckFailsSaysSo) {
  Bytes poll = OnTheWire(Short({0x19}), kToMachine);
  poll[3] ^= 1;
  Write(poll);
  EXPECT_TRUE(Traced().back().ends_with(" ; bad check"));
  Bytes counter = OnTheWire(Long({0xB3}), kFromMachine);
  counter[135] ^= 1;
  Arrives(counter);
  Read(8);
  Read(128);
  EXPECT_TRUE(Traced().back().ends_with(" ; bad check"));
}

TEST_F(TracedBridgeTest, WhatIsAskedBehindTheEndIsDoneAndNotNoted) {
  Usb->SetTimeouts(1, 2);
  Usb->End();
  Usb->SetTimeouts(3, 4);
  EXPECT_THAT(Scripted->Calls, ElementsAre("SetTimeouts 1 2", "SetTimeouts 3 4"));
  EXPECT_TRUE(test::Content(Path).ends_with(" SetTimeouts 0 read=1 write=2\n# end\n"));
}

/// A bus that has something to say.
class TalkingBus final : public test::PassingBridge {
 public:
  using PassingBridge::PassingBridge;
  [[nodiscard]] std::string Advice() const override { return "No rights.\nAsk somebody."; }
};

using TracedAdvice = test::TraceDesk;

TEST_F(TracedAdvice, StandsBehindTheOperationThatItIsAbout) {
  test::ScriptedBridge scripted(Clock);
  TracedBridge usb(std::make_unique<TalkingBus>(scripted), Order(), Clock);
  std::uint32_t count = 0;
  usb.GetNumDevices(count);
  usb.SetTimeouts(1, 2);
  EXPECT_EQ(usb.Advice(), "No rights.\nAsk somebody.");
  EXPECT_THAT(LinesOf(Path), ElementsAre("0.000000 0.000000 GetNumDevices 0 count=1",
                                         "0.000000 0.000000 Advice 0 "
                                         "bytes=4E6F207269676874732E0A41736B20736F6D65626F64792E ; "
                                         "No rights. Ask somebody.",
                                         "0.000000 0.000000 SetTimeouts 0 read=1 write=2"));
}

TEST_F(TracedAdvice, StandsBehindASettingThatFailedAndNotBehindOneThatHolds) {
  test::ScriptedBridge scripted(Clock);
  TracedBridge usb(std::make_unique<TalkingBus>(scripted), Order(), Clock);
  const auto adviceCount = [&] {
    const auto lines = LinesOf(Path);
    return std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
      return line.find(" Advice 0 ") != std::string::npos;
    });
  };
  const auto setAll = [&] {
    usb.SetBaudRate(1, 115200);
    usb.SetLineControl(1, 0x0800);
    usb.FlushBuffers(1, 1, 1);
  };
  setAll();
  EXPECT_EQ(adviceCount(), 0);
  int failed = 0;
  for (const char* call : {"SetBaudRate", "SetLineControl", "FlushBuffers"}) {
    scripted.FailingCall = call;
    setAll();
    EXPECT_EQ(adviceCount(), ++failed) << call;
  }
}

}  // namespace
}  // namespace morvane::bridges
