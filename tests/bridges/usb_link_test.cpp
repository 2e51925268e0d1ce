#include "bridges/usb_desk.h"
#include "machine/open_link.h"
#include "support/fakes.h"
#include "support/usb_machine.h"

// The boxes of opening, and an exchange, at the emulated bus.

namespace morvane::bridges {
namespace {

using machine::MachineLink;
using machine::OpenLink;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class UsbLinkTest : public testing::Test {
 protected:
  bool Open() {
    desk_.Ui.Default = kCancel;
    return OpenLink(desk_.Prog, link_, 200);
  }
  /// One box, which began with the system's text for `status` and ended with `advice`.
  void ExpectRefusal(const std::string& status, const std::string& advice) {
    ASSERT_EQ(desk_.Ui.Boxes.size(), 1U);
    const auto& box = desk_.Ui.Boxes.front();
    EXPECT_EQ(box.Title, "USB Initialization Error");
    EXPECT_EQ(box.Flags, kOkCancelCritical);
    EXPECT_THAT(box.Text,
                HasSubstr("Cannot communicate with Morvane      (Error: " + status + ")"));
    EXPECT_THAT(box.Text, HasSubstr("Click OK to retry communication."));
    EXPECT_THAT(box.Text, EndsWith("\r\n\r\n" + advice));
  }

  test::TestDesk desk_;
  test::EmulatedBus bus_;
  UsbDirect usb_{{}};
  MachineLink link_{usb_};
};

TEST_F(UsbLinkTest, AMachineIsOpenedWithoutAWord) {
  EmulatedUsb& chip = bus_.Attach();
  EXPECT_TRUE(Open());
  EXPECT_THAT(desk_.Ui.Boxes, IsEmpty());
  EXPECT_EQ(link_.UsbProductString, "4711S");
  link_.CloseLink();
  EXPECT_TRUE(chip.HasDriver());
}

TEST_F(UsbLinkTest, NoMachine) {
  EXPECT_FALSE(Open());
  ExpectRefusal("255.1", "No machine is attached to a USB socket of this computer.");
}

TEST_F(UsbLinkTest, NoRights) {
  bus_.Attach({.MayBeOpened = false});
  EXPECT_FALSE(Open());
  ExpectRefusal("8.3",
                "A machine is attached, and this user may not use it.\r\n"
                "The rule 70-morvane.rules lets in who sits at the computer. An installed program "
                "has brought it along; otherwise it belongs into /etc/udev/rules.d.\r\n"
                "Once it is there, unplug the machine and plug it in again.\r\n"
                "For others, over the network for example, the administrator has to give the "
                "right.");
}

TEST_F(UsbLinkTest, AMachineThatAnotherProgramHas) {
  bus_.Attach().HoldByOther(true);
  EXPECT_FALSE(Open());
  ExpectRefusal("8.4",
                "Another program has the machine 4711S.\r\n"
                "Close that program first: one at a time drives a machine.");
}

TEST_F(UsbLinkTest, OkTriesAgainAndFindsWhatWasPluggedInMeanwhile) {
  desk_.Ui.Answers = {kOk};
  desk_.Ui.OnBox = [&] { bus_.Attach(); };
  EXPECT_TRUE(Open());
  EXPECT_EQ(desk_.Ui.Boxes.size(), 1U);
}

TEST_F(UsbLinkTest, OfTwoDevicesTheMachineIsOpenedWithoutAWord) {
  bus_.Attach({.Serial = "ABC", .Socket = 1});
  bus_.Attach({.Serial = "4711S", .Socket = 2});
  EXPECT_TRUE(Open());
  EXPECT_EQ(link_.UsbProductString, "4711S");
  EXPECT_THAT(desk_.Ui.Boxes, IsEmpty());
}

TEST_F(UsbLinkTest, OfTwoMachinesTheFirstIsOpenedAndTheOtherTold) {
  bus_.Attach({.Serial = "1234S", .Socket = 2});
  bus_.Attach({.Serial = "4711S", .Socket = 1});
  EXPECT_TRUE(Open());
  EXPECT_EQ(link_.UsbProductString, "4711S");
  ASSERT_EQ(desk_.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk_.Ui.Boxes.front().Title, "USB Connection");
  EXPECT_EQ(desk_.Ui.Boxes.front().Text,
            "Several machines are attached. This is 4711S.\r\n"
            "Also attached: 1234S. Another one is named by --machine usb:SERIAL.");
  link_.CloseLink();
  EXPECT_TRUE(Open());
  EXPECT_EQ(desk_.Ui.Boxes.size(), 1U) << "told once";
}

TEST_F(UsbLinkTest, ADeviceWithoutRightsDoesNotStandInTheWayOfTheMachine) {
  bus_.Attach({.Serial = "1111S", .Socket = 1, .MayBeOpened = false});
  bus_.Attach({.Serial = "4711S", .Socket = 2});
  EXPECT_TRUE(Open());
  EXPECT_EQ(link_.UsbProductString, "4711S");
}

/// Two machines, of which the one that is opened does not do as it is told.
class UsbSettingTest : public UsbLinkTest {
 protected:
  static constexpr const char* kSilent =
      "A machine is attached and does not answer at its USB socket.\r\n"
      "Unplug it and plug it in again.";
  UsbSettingTest() { bus_.Attach({.Serial = "1234S", .Socket = 2}); }
  EmulatedUsb& chip_ = bus_.Attach({.Socket = 1});
};

TEST_F(UsbSettingTest, ASpeedThatIsRefusedIsTheWordThatIsSaid) {
  chip_.StallOn(0x1E);
  chip_.StallOn(0x01);
  EXPECT_FALSE(Open());
  ExpectRefusal("6.7", kSilent);
}

TEST_F(UsbSettingTest, ALineThatIsDisturbedIsTheWordThatIsSaid) {
  chip_.FailOn(0x03, EPROTO);
  EXPECT_FALSE(Open());
  ExpectRefusal("8.8", kSilent);
}

TEST_F(UsbSettingTest, AMachineThatGoesAtTheLastStepIsTheWordThatIsSaid) {
  chip_.PullAtRequest(0x12);
  EXPECT_FALSE(Open());
  ExpectRefusal("1.9", "The machine has been unplugged.");
}

TEST_F(UsbLinkTest, AMachineThatGoesWithinALongReplyIsAShortOne) {
  EmulatedUsb& chip = bus_.Attach();
  ASSERT_TRUE(Open());
  Bytes wire(136);
  wire[0] = 0x80 ^ 0xFF;  // a long frame: the key is the opposite of the check byte, which is 0
  chip.PullBehind(1);
  chip.Say(wire);
  const auto start = steady_clock::now();
  link_.ReceiveFrame();
  EXPECT_EQ(link_.RxStatus, MachineLink::kTooShort);
  EXPECT_EQ(link_.CommErrorCount, 1);
  EXPECT_LT(MsSince(start), 1000.0);
}

TEST_F(UsbLinkTest, TheLatchIsTheChips) {
  EmulatedUsb& chip = bus_.Attach();
  ASSERT_TRUE(Open());
  chip.ForgetRequests();
  link_.MachineLatchOn();
  link_.MachineLatchOff();
  EXPECT_THAT(chip.Requests(), ElementsAre(chip::WriteLatch(1, 1), chip::WriteLatch(1, 0)));
}

TEST_F(UsbLinkTest, ACommandIsAnsweredByTheMachine) {
  simulator::Options options;
  options.Speed = 0;
  test::UsbMachine machine(bus_.Attach(), options);
  ASSERT_TRUE(Open());
  link_.TxFrame = {};
  link_.TxFrame[0] = 0x1A;  // the version, which is 2.90
  link_.SendFrame();
  link_.ReceiveFrame();
  EXPECT_EQ(link_.RxStatus, MachineLink::kGood);
  EXPECT_THAT(std::span(link_.RxFrame).first(3), ElementsAre(0x1A, 2, 0x90));
}

}  // namespace
}  // namespace morvane::bridges
