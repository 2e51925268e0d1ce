#include "bridges/usb_desk.h"
#include "support/holding_program.h"

// Which of several devices is meant, and what the operator is told of the others.

namespace morvane::bridges {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr auto kSuccess = UsbXpress::kSuccess;
constexpr auto kRefused = UsbXpress::kDeviceIoFailed;
/// Of the bus: asks for a string.
constexpr std::uint8_t kStringCode = 6;

constexpr const char* kSilent =
    "A machine is attached and does not answer at its USB socket.\n"
    "Unplug it and plug it in again.";

class UsbChoiceTest : public UsbBusTest {
 protected:
  UsbXpress::Status Open(UsbXpress& usb, std::uint32_t index = 0) {
    handle_ = kNoHandle;
    return usb.Open(index, handle_);
  }
  /// What is said of device `index` of those that are attached.
  std::string AdviceOfOpening(std::uint32_t index, const UsbWhich& which = {}) {
    UsbDirect usb(which);
    Count(usb);
    EXPECT_EQ(Open(usb, index), kSuccess);
    return usb.Advice();
  }
  UsbXpress::Handle handle_ = kNoHandle;
};

TEST_F(UsbChoiceTest, SeveralMachinesAreToldApart) {
  EmulatedUsb& other = bus_.Attach({.Serial = "5678S", .Socket = 2});
  EmulatedUsb& chip = bus_.Attach({.Serial = "1234S", .Socket = 1});
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 2U);
  EXPECT_EQ(SerialOf(usb, 0), "1234S") << "by their sockets";
  EXPECT_EQ(SerialOf(usb, 1), "5678S");
  EXPECT_EQ(Open(usb, 1), kSuccess);
  EXPECT_TRUE(other.IsClaimed());
  EXPECT_FALSE(chip.IsClaimed());
  EXPECT_EQ(usb.Advice(),
            "Several machines are attached. This is 5678S.\n"
            "Also attached: 1234S. Another one is named by --machine usb:SERIAL.");
}

TEST_F(UsbChoiceTest, AMachineThatIsNamedIsTheOnlyOne) {
  bus_.Attach({.Serial = "1234S", .Socket = 1});
  EmulatedUsb& named = bus_.Attach({.Serial = "5678S", .Socket = 2});
  UsbDirect usb({.Serial = "5678S"});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(SerialOf(usb, 0), "5678S");
  EXPECT_EQ(Open(usb), kSuccess);
  EXPECT_TRUE(named.IsClaimed());
  EXPECT_EQ(usb.Advice(), "");
}

TEST_F(UsbChoiceTest, AMachineThatIsNamedAndNotThereIsToldWithThoseThatAre) {
  bus_.Attach({.Serial = "1234S", .Socket = 1});
  bus_.Attach({.Serial = "", .Socket = 2});
  UsbDirect usb({.Serial = "9999S"});
  EXPECT_EQ(Count(usb), 0U);
  EXPECT_EQ(status_, UsbXpress::kDeviceNotFound);
  EXPECT_EQ(usb.Advice(),
            "The machine 9999S is not attached.\n"
            "Attached: 1234S, the one at USB socket 1-2.");
}

TEST_F(UsbChoiceTest, ADeviceThatMayNotBeAskedMayBeTheOneThatIsNamed) {
  bus_.Attach({.Serial = "1234S", .Socket = 1});
  bus_.Attach({.Serial = "5678S", .Socket = 2, .MayBeOpened = false});
  UsbDirect other({.Serial = "5678S"});
  EXPECT_EQ(Count(other), 0U);
  EXPECT_EQ(status_, kRefused);
  EXPECT_THAT(other.Advice(), HasSubstr("this user may not use it"));
  UsbDirect usb({.Serial = "1234S"});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(Open(usb), kSuccess);
}

TEST_F(UsbChoiceTest, BesideAHeldMachineTheOthersAreNamed) {
  bus_.Attach({.Serial = "1234S", .Socket = 1}).HoldByOther(true);
  bus_.Attach({.Serial = "5678S", .Socket = 2});
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 2U);
  EXPECT_EQ(Open(usb), kRefused);
  EXPECT_EQ(usb.Advice(),
            "Another program has the machine 1234S.\n"
            "Close that program first: one at a time drives a machine.\n"
            "Also attached: 5678S. Another one is named by --machine usb:SERIAL.");
}

TEST_F(UsbChoiceTest, SocketsCountByTheirNumbers) {
  bus_.Attach({.Serial = "1010S", .Socket = 10});
  bus_.Attach({.Serial = "0202S", .Socket = 2});
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 2U);
  EXPECT_EQ(SerialOf(usb, 0), "0202S");
  EXPECT_EQ(SerialOf(usb, 1), "1010S");
}

TEST_F(UsbChoiceTest, BesideAMachineAnotherDeviceIsNotWorthAWord) {
  bus_.Attach({.Serial = "ABC", .Socket = 1});
  bus_.Attach({.Serial = "", .Socket = 2});
  bus_.Attach({.Serial = "4711S", .Socket = 3});
  EXPECT_EQ(AdviceOfOpening(2), "");
}

TEST_F(UsbChoiceTest, WhenNoneIsAMachineTheOneThatIsTakenIsTold) {
  bus_.Attach({.Serial = "ABC", .Socket = 1});
  bus_.Attach({.Serial = "4711SX", .Socket = 2});
  EXPECT_EQ(AdviceOfOpening(0),
            "Several machines are attached. This is ABC.\n"
            "Also attached: 4711SX. Another one is named by --machine usb:SERIAL.");
}

TEST_F(UsbChoiceTest, MachinesOfOneSerialStringAreToldByTheirSockets) {
  bus_.Attach({.Serial = "4711S", .Socket = 1});
  bus_.Attach({.Serial = "4711S", .Socket = 2});
  const std::string told =
      "Several machines are attached. This is 4711S at USB socket 1-1.\n"
      "Also attached: 4711S at USB socket 1-2.\n"
      "Without a serial string of its own none can be named: unplug those that are not meant.";
  EXPECT_EQ(AdviceOfOpening(0), told);
  EXPECT_EQ(AdviceOfOpening(0, {.Serial = "4711S"}), told);
}

TEST_F(UsbChoiceTest, DevicesWithoutSerialStringsAreToldByTheirSockets) {
  bus_.Attach({.Serial = "", .Socket = 1});
  bus_.Attach({.Serial = "", .Socket = 2});
  EXPECT_EQ(
      AdviceOfOpening(1),
      "Several machines are attached. This is the one at USB socket 1-2.\n"
      "Also attached: the one at USB socket 1-1.\n"
      "Without a serial string of its own none can be named: unplug those that are not meant.");
}

TEST_F(UsbChoiceTest, BesideAMachineInUseAsASerialDeviceTheOthersAreNamed) {
  bus_.Attach({.Serial = "1234S", .Socket = 1, .Tty = "ttyUSB0"});
  bus_.Attach({.Serial = "5678S", .Socket = 2});
  const test::HoldingProgram other("/dev/ttyUSB0");
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 2U);
  EXPECT_EQ(Open(usb), kRefused);
  EXPECT_EQ(usb.Advice(),
            "Another program (sleep) has the machine as the serial device /dev/ttyUSB0.\n"
            "Close that program first: one at a time drives a machine.\n"
            "Also attached: 5678S. Another one is named by --machine usb:SERIAL.");
}

TEST_F(UsbChoiceTest, ASerialStringThatCannotBeReadIsNotNone) {
  for (const int error : {EPIPE, EPROTO, EOVERFLOW}) {
    EmulatedUsb& chip = bus_.Attach();
    chip.FailOn(kStringCode, error);
    UsbDirect usb({});
    EXPECT_EQ(Count(usb), 1U);
    EXPECT_EQ(SerialOf(usb, 0), "status 8") << error;
    EXPECT_EQ(usb.Advice(), kSilent);
    chip.Pull();
  }
}

TEST_F(UsbChoiceTest, ADeviceThatNeverTellsItsSerialStringHoldsTheSearchUpShortly) {
  bus_.Attach().BeSilentOn(kStringCode);
  UsbDirect usb({});
  const auto start = steady_clock::now();
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(SerialOf(usb, 0), "status 8");
  EXPECT_LT(MsSince(start), 900.0) << "one time-out";
  EXPECT_EQ(usb.Advice(), kSilent);
}

TEST_F(UsbChoiceTest, ADeviceThatDoesNotTellMayBeTheOneThatIsNamed) {
  bus_.Attach({.Serial = "1234S", .Socket = 1});
  bus_.Attach({.Serial = "5678S", .Socket = 2}).StallOn(kStringCode);
  UsbDirect other({.Serial = "5678S"});
  EXPECT_EQ(Count(other), 0U);
  EXPECT_EQ(status_, kRefused);
  EXPECT_EQ(other.Advice(), kSilent);
  UsbDirect usb({.Serial = "1234S"});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(Open(usb), kSuccess);
}

TEST_F(UsbChoiceTest, OfThoseThatDoNotTellTheOneWithoutRightsIsHelpedFirst) {
  bus_.Attach({.Serial = "1234S", .Socket = 1}).StallOn(kStringCode);
  bus_.Attach({.Serial = "5678S", .Socket = 2, .MayBeOpened = false});
  UsbDirect usb({.Serial = "9999S"});
  EXPECT_EQ(Count(usb), 0U);
  EXPECT_EQ(status_, kRefused);
  EXPECT_THAT(usb.Advice(), StartsWith("A machine is attached, and this user may not use it."));
}

TEST_F(UsbChoiceTest, ADeviceThatGoesAsItIsAskedIsNotThere) {
  bus_.Attach().PullAtRequest(kStringCode);
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 0U);
  EXPECT_EQ(status_, UsbXpress::kDeviceNotFound);
  EXPECT_EQ(usb.Advice(), "No machine is attached to a USB socket of this computer.");
}

}  // namespace
}  // namespace morvane::bridges
