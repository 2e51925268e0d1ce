#include "machine/machine_link.h"

#include "machine/open_link.h"
#include "support/fakes.h"
#include "support/scripted_bridge.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using test::OnTheWire;
using test::ScriptedBridge;
using test::TestDesk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LinkTest : public ::testing::Test {
 protected:
  TestDesk desk;
  ScriptedBridge bridge{desk.Clock};
  MachineLink link{bridge};

  void Receive(const Bytes& wire) {
    bridge.Unread.insert(bridge.Unread.end(), wire.begin(), wire.end());
    link.ReceiveFrame();
  }
};

using Link = LinkTest;
using OpenLinkTest = LinkTest;

TEST_F(Link, AShortFrameIsSentWithoutItsOwnByte7) {
  link.TxFrame = {0x19, 1, 2, 3, 4, 5, 6, 0x77};
  link.SendShortFrame();
  ASSERT_EQ(bridge.Sent.size(), 1U);
  EXPECT_THAT(bridge.Sent[0], ElementsAre(0x19, 1, 2, 3, 4, 5, 6, 0));
  EXPECT_EQ(link.TxFrame[7], 0x77);
}

TEST_F(Link, ALongFrameClearsByte7AndSendsAll) {
  link.TxFrame.fill(3);
  link.TxFrame[0] = 0x98;
  link.SendFrame();
  EXPECT_EQ(bridge.Sent[0].size(), 136U);
  EXPECT_EQ(link.TxFrame[7], 0);
}

TEST_F(Link, AGoodFrameClearsTheErrorCount) {
  link.CommErrorCount = 1;
  Receive(OnTheWire(test::Short({0x1A, 2, 0x90}), 21));
  EXPECT_EQ(link.RxStatus, MachineLink::kGood);
  EXPECT_EQ(link.CommErrorCount, 0);
  EXPECT_EQ(link.RxFrame[2], 0x90);
  EXPECT_THAT(bridge.Calls, IsEmpty());
}

TEST_F(Link, ABadCheckByteFlushesAndCounts) {
  Bytes wire = OnTheWire(test::Short({0x1A, 2, 0x90}), 21);
  wire[3] ^= 1;
  Receive(wire);
  EXPECT_EQ(link.RxStatus, MachineLink::kBadCheck);
  EXPECT_EQ(link.CommErrorCount, 1);
  EXPECT_THAT(bridge.Calls, ElementsAre("FlushBuffers 1 1"));
}

TEST_F(Link, ALongFrameWithoutItsPayloadIsTooShort) {
  Bytes wire = OnTheWire(test::Long({0xA0}), 21);
  wire.resize(100);
  Receive(wire);
  EXPECT_EQ(link.RxStatus, MachineLink::kTooShort);
  EXPECT_TRUE(bridge.Unread.empty());
}

TEST_F(Link, SilenceIsTooShortAndTakesTheTimeOut) {
  link.SetLinkTimeouts(200);
  link.ReceiveFrame();
  EXPECT_EQ(link.RxStatus, MachineLink::kTooShort);
  EXPECT_EQ(desk.Clock.Elapsed(), std::chrono::milliseconds(200));
}

TEST_F(Link, AReadAfterAShortOneFailsUntilTheNextSend) {
  link.ReceiveFrame();
  Receive(OnTheWire(test::Short({0x1A}), 21));
  EXPECT_EQ(link.RxStatus, MachineLink::kTooShort);
  EXPECT_EQ(link.CommErrorCount, 2);
  link.SendShortFrame();
  Receive(OnTheWire(test::Short({0x1A}), 21));
  EXPECT_EQ(link.RxStatus, MachineLink::kGood);
}

TEST_F(Link, ByteZeroCorruptedIntoALongCodeRecovers) {
  Bytes wire = OnTheWire(test::Short({0x1A}), 21);
  wire[0] ^= 0x80;
  Receive(wire);
  EXPECT_EQ(link.RxStatus, MachineLink::kTooShort);
  link.SendShortFrame();
  Receive(OnTheWire(test::Short({0x1A}), 21));
  EXPECT_EQ(link.RxStatus, MachineLink::kGood);
}

TEST_F(Link, ClosingAClosedLinkCallsNothing) {
  link.CloseLink();
  EXPECT_THAT(bridge.Calls, IsEmpty());
  link.UsbHandle = 7;
  link.CloseLink();
  EXPECT_THAT(bridge.Calls, ElementsAre("Close"));
  EXPECT_EQ(link.UsbHandle, MachineLink::kClosed);
}

TEST_F(Link, TheLatchIsLineZero) {
  link.MachineLatchOn();
  link.MachineLatchOff();
  EXPECT_THAT(bridge.Calls, ElementsAre("WriteLatch 1 1", "WriteLatch 1 0"));
}

TEST_F(OpenLinkTest, ACleanOpenCallsTheLibraryInOrder) {
  EXPECT_TRUE(OpenLink(desk.Prog, link, 200));
  EXPECT_THAT(bridge.Calls,
              ElementsAre("GetDllVersion", "GetDriverVersion", "GetNumDevices",
                          "GetProductString 0 0", "Open 0", "SetTimeouts 200 200",
                          "SetBaudRate 115200", "SetLineControl 2048", "FlushBuffers 1 1"));
  EXPECT_EQ(link.UsbProductString, "0001");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(OpenLinkTest, AnOpenLinkReturnsAtOnce) {
  link.UsbHandle = 7;
  EXPECT_TRUE(OpenLink(desk.Prog, link, 200));
  EXPECT_THAT(bridge.Calls, IsEmpty());
}

TEST_F(OpenLinkTest, TheMatchingSerialStringIsChosenAmongSeveral) {
  bridge.Devices = {"CP2102 board", "1234X", "9999Y"};
  EXPECT_TRUE(OpenLink(desk.Prog, link, 200));
  EXPECT_EQ(link.UsbProductString, "1234X");
  EXPECT_THAT(bridge.Calls, ::testing::Contains("Open 1"));
}

TEST_F(OpenLinkTest, WithoutAMatchTheFirstOfTwoIsOpened) {
  bridge.Devices = {"abc", "123456"};
  EXPECT_TRUE(OpenLink(desk.Prog, link, 200));
  EXPECT_EQ(link.UsbProductString, "abc");
  EXPECT_THAT(bridge.Calls, ::testing::Contains("Open 0"));
}

TEST_F(OpenLinkTest, FourDigitsOnlyMatchWhereByte5HappensToBeNul) {
  bridge.Devices = {"abcdefgh", "1234"};  // byte 5 keeps the f of the string before
  EXPECT_TRUE(OpenLink(desk.Prog, link, 200));
  EXPECT_EQ(link.UsbProductString, "abcdefgh");
  MachineLink again(bridge);
  bridge.Devices = {"abc", "1234"};
  EXPECT_TRUE(OpenLink(desk.Prog, again, 200));
  EXPECT_EQ(again.UsbProductString, "1234");
}

TEST_F(OpenLinkTest, OneDeviceIsOpenedWhateverItsString) {
  bridge.Devices = {"anything at all"};
  EXPECT_TRUE(OpenLink(desk.Prog, link, 200));
  EXPECT_EQ(link.UsbProductString, "anything at all");
}

TEST_F(OpenLinkTest, AnEmptyBusReportedAsSuccessSaysNothing) {
  bridge.Devices.clear();
  EXPECT_FALSE(OpenLink(desk.Prog, link, 200));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(OpenLinkTest, AnOldDriverIsMentionedAndOpeningGoesOn) {
  bridge.DriverVersion = 0x30000;
  EXPECT_TRUE(OpenLink(desk.Prog, link, 200));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Driver Update Information");
  EXPECT_EQ(desk.Ui.Boxes[0].Flags, kOkInformation);
  EXPECT_EQ(
      desk.Ui.Boxes[0].Text,
      "      Current USB driver version: 3.0      \r\n      Driver update is recommended.      "
      "\r\n      See " +
          std::string(kWebAddress) + " for details.      \r\n");
}

struct Failure {
  const char* Call;
  int Step;
};

TEST_F(OpenLinkTest, EveryFailingCallIsReportedWithItsStep) {
  for (const Failure& failure : {Failure{"GetDllVersion", 0},
                                 {"GetDriverVersion", 0},
                                 {"GetNumDevices", 1},
                                 {"GetProductString", 3},
                                 {"Open", 4},
                                 {"SetTimeouts", 6},
                                 {"SetBaudRate", 7},
                                 {"SetLineControl", 8},
                                 {"FlushBuffers", 9}}) {
    desk.Ui.Boxes.clear();
    desk.Ui.Answers = {kCancel};
    bridge.FailingCall = failure.Call;
    bridge.FailureStatus = 255;
    EXPECT_FALSE(OpenLink(desk.Prog, link, 200)) << failure.Call;
    ASSERT_EQ(desk.Ui.Boxes.size(), 1U) << failure.Call;
    EXPECT_EQ(desk.Ui.Boxes[0].Title, "USB Initialization Error");
    EXPECT_EQ(desk.Ui.Boxes[0].Flags, kOkCancelCritical);
    EXPECT_NE(desk.Ui.Boxes[0].Text.find("(Error: 255." + std::to_string(failure.Step) + ")"),
              std::string::npos)
        << desk.Ui.Boxes[0].Text;
    EXPECT_EQ(desk.LogLines().back(),
              " USB Initialization Error: 255:" + std::to_string(failure.Step));
    EXPECT_EQ(link.UsbHandle, MachineLink::kClosed);
  }
}

TEST_F(OpenLinkTest, Status12SaysThatTheDriverIsMissing) {
  desk.Ui.Answers = {kCancel};
  bridge.FailingCall = "GetDllVersion";
  bridge.FailureStatus = 12;
  EXPECT_FALSE(OpenLink(desk.Prog, link, 200));
  EXPECT_EQ(desk.Ui.Boxes[0].Text, Fill(desk.Prog.Texts.Msg051, "***", "12.0"));
}

TEST_F(OpenLinkTest, WhatTheBridgeHasToSayStandsBelowTheSystemsWords) {
  desk.Ui.Answers = {kCancel};
  bridge.FailingCall = "Open";
  bridge.FailureStatus = UsbXpress::kDeviceIoFailed;
  bridge.Words = "Another program has it.\nClose it and try again.";
  EXPECT_FALSE(OpenLink(desk.Prog, link, 200));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            Fill(desk.Prog.Texts.Msg050, "***", "8.4") +
                "\r\n\r\nAnother program has it.\r\nClose it and try again.");
  EXPECT_EQ(desk.LogLines().back(), " USB Initialization Error: 8:4");
}

TEST_F(OpenLinkTest, WhatItSaysOfAnOpenedLinkIsToldOnceAndAgainWhenItChanges) {
  const auto openAndClose = [&] {
    EXPECT_TRUE(OpenLink(desk.Prog, link, 200));
    link.CloseLink();
  };
  bridge.Words = "Two machines are attached.\nThis is 0001.";
  openAndClose();
  openAndClose();
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "USB Connection");
  EXPECT_EQ(desk.Ui.Boxes[0].Flags, kOkInformation);
  EXPECT_EQ(desk.Ui.Boxes[0].Text, "Two machines are attached.\r\nThis is 0001.");
  bridge.Words.clear();
  openAndClose();
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  bridge.Words = "Two machines are attached.\nThis is 0001.";
  openAndClose();
  EXPECT_EQ(desk.Ui.Boxes.size(), 2U) << "one was unplugged and is back";
}

TEST_F(OpenLinkTest, OkTriesAgainUntilItWorks) {
  desk.Ui.Answers = {kOk, kOk};
  bridge.FailingCall = "Open";
  int boxes = 0;
  desk.Ui.OnBox = [&] {
    if (++boxes == 2) bridge.FailingCall.clear();
  };
  EXPECT_TRUE(OpenLink(desk.Prog, link, 200));
  EXPECT_EQ(boxes, 2);
}

}  // namespace
}  // namespace morvane::machine
