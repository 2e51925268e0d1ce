#include "bridges/usb_desk.h"
#include "support/holding_program.h"
#include "support/no_file_left.h"

// Which devices there are, and whether this program gets one.

namespace morvane::bridges {
namespace {

constexpr auto kSuccess = UsbXpress::kSuccess;
constexpr auto kRefused = UsbXpress::kDeviceIoFailed;

constexpr const char* kNone = "No machine is attached to a USB socket of this computer.";
constexpr const char* kNoRights =
    "A machine is attached, and this user may not use it.\n"
    "The rule 70-morvane.rules lets in who sits at the computer. An installed program has brought "
    "it along; otherwise it belongs into /etc/udev/rules.d.\n"
    "Once it is there, unplug the machine and plug it in again.\n"
    "For others, over the network for example, the administrator has to give the right.";

class UsbOpeningTest : public UsbBusTest {
 protected:
  UsbXpress::Status Open(UsbXpress& usb, std::uint32_t index = 0) {
    handle_ = kNoHandle;
    return usb.Open(index, handle_);
  }
  UsbXpress::Handle handle_ = kNoHandle;
};

TEST_F(UsbOpeningTest, AnEmptyBusIsNotFound) {
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 0U);
  EXPECT_EQ(status_, UsbXpress::kDeviceNotFound);
  EXPECT_EQ(usb.Advice(), kNone);
  EXPECT_EQ(SerialOf(usb, 0), "status 255");
  EXPECT_EQ(Open(usb), UsbXpress::kDeviceNotFound);
  EXPECT_EQ(handle_, kNoHandle);
}

TEST_F(UsbOpeningTest, EachProductOfTheChipIsFoundAndNoOther) {
  for (const std::uint16_t product : std::vector<std::uint16_t>{0xEA60, 0xEA61, 0xEA70, 0xEA63}) {
    EmulatedUsb& chip = bus_.Attach({.Product = product});
    UsbDirect usb({});
    EXPECT_EQ(Count(usb), product == 0xEA63 ? 0U : 1U) << product;
    chip.Pull();
  }
  bus_.Attach({.Vendor = 0x10C5});
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 0U);
}

TEST_F(UsbOpeningTest, TheBusIsLookedAtAnewEachTime) {
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 0U);
  EmulatedUsb& chip = bus_.Attach();
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(status_, kSuccess);
  EXPECT_EQ(usb.Advice(), "");
  chip.Pull();
  EXPECT_EQ(Count(usb), 0U);
  chip.PlugIn();
  EXPECT_EQ(Count(usb), 1U);
}

TEST_F(UsbOpeningTest, TheSerialStringIsTheOnlyStringThatIsTold) {
  bus_.Attach({.Serial = "1234A"});
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(SerialOf(usb, 0), "1234A");
  UsbXpress::ProductString text;
  EXPECT_EQ(usb.GetProductString(0, text, 1), UsbXpress::kInvalidParameter);
  EXPECT_EQ(usb.GetProductString(1, text, 0), UsbXpress::kDeviceNotFound);
}

TEST_F(UsbOpeningTest, ADeviceWithoutASerialStringHasAnEmptyOne) {
  bus_.Attach({.Serial = ""});
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(SerialOf(usb, 0), "");
  EXPECT_EQ(Open(usb), kSuccess);
}

TEST_F(UsbOpeningTest, ADeviceOfOtherNumbersIsFoundByThem) {
  bus_.Attach({.Vendor = 0x1234, .Product = 0xABCD});
  UsbDirect usual({});
  EXPECT_EQ(Count(usual), 0U);
  UsbDirect usb({.Vendor = 0x1234, .Product = 0xABCD});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(Open(usb), kSuccess);
  UsbDirect other({.Vendor = 0x1234, .Product = 0x00CD});
  EXPECT_EQ(Count(other), 0U);
  EXPECT_EQ(other.Advice(), "No device 1234:00CD is attached to a USB socket of this computer.");
}

TEST_F(UsbOpeningTest, ADeviceThatThisUserMayNotOpenKeepsItsPlace) {
  bus_.Attach({.MayBeOpened = false});
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(SerialOf(usb, 0), "status 8");
  EXPECT_EQ(usb.Advice(), kNoRights);
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(Open(usb), kRefused);
  EXPECT_EQ(usb.Advice(), kNoRights);
  EXPECT_EQ(handle_, kNoHandle);
}

TEST_F(UsbOpeningTest, AMachineThatAnotherProgramHasIsNamedAndRefused) {
  EmulatedUsb& chip = bus_.Attach();
  chip.HoldByOther(true);
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(SerialOf(usb, 0), "4711S");
  EXPECT_EQ(Open(usb), kRefused);
  EXPECT_EQ(handle_, kNoHandle);
  EXPECT_EQ(usb.Advice(),
            "Another program has the machine 4711S.\n"
            "Close that program first: one at a time drives a machine.");
  chip.HoldByOther(false);
  EXPECT_EQ(Open(usb), kSuccess);
  EXPECT_EQ(usb.Advice(), "");
}

TEST_F(UsbOpeningTest, ASecondProgramOfOursIsRefusedUntilTheFirstCloses) {
  bus_.Attach();
  UsbDirect first({});
  UsbDirect second({});
  EXPECT_EQ(Count(first), 1U);
  EXPECT_EQ(Open(first), kSuccess);
  const auto handle = handle_;
  EXPECT_EQ(Open(first), UsbXpress::kInvalidParameter) << "it is open";
  EXPECT_EQ(Count(second), 1U);
  EXPECT_EQ(Open(second), kRefused);
  EXPECT_EQ(first.Close(handle), kSuccess);
  EXPECT_EQ(Open(second), kSuccess);
}

TEST_F(UsbOpeningTest, ASearchDoesNotHarmWhatIsOpen) {
  EmulatedUsb& chip = bus_.Attach();
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(Open(usb), kSuccess);
  EXPECT_EQ(usb.SetBaudRate(handle_, UsbXpress::kBaudRate), kSuccess);
  EXPECT_EQ(Count(usb), 1U);
  std::uint32_t written = 0;
  EXPECT_EQ(usb.Write(handle_, Bytes{7}, written), kSuccess);
  EXPECT_EQ(chip.Heard(), Bytes{7});
}

TEST_F(UsbOpeningTest, TheEndOfTheLibraryGivesEverythingBack) {
  EmulatedUsb& chip = bus_.Attach();
  {
    UsbDirect usb({});
    EXPECT_EQ(Count(usb), 1U);
    EXPECT_EQ(Open(usb), kSuccess);
    EXPECT_EQ(usb.WriteLatch(handle_, 1, 1), kSuccess);
    EXPECT_FALSE(chip.HasDriver());
    chip.ForgetRequests();
  }
  EXPECT_TRUE(chip.HasDriver());
  EXPECT_FALSE(chip.IsClaimed());
  EXPECT_THAT(chip.Requests(), ::testing::ElementsAre(chip::WriteLatch(1, 0), chip::Enable(false)));
}

TEST_F(UsbOpeningTest, ADeviceThatTheDriverDidNotHaveIsNotGivenToIt) {
  EmulatedUsb& chip = bus_.Attach();
  chip.Unbind();
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(Open(usb), kSuccess);
  EXPECT_EQ(usb.Close(handle_), kSuccess);
  EXPECT_FALSE(chip.HasDriver());
  EXPECT_FALSE(chip.IsClaimed());
}

TEST_F(UsbOpeningTest, AnOldSystemHasItsDriverPutAsideByItself) {
  EmulatedUsb& chip = bus_.Attach();
  chip.LikeAnOldSystem();
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(Open(usb), kSuccess);
  EXPECT_FALSE(chip.HasDriver());
  EXPECT_EQ(usb.Close(handle_), kSuccess);
  EXPECT_TRUE(chip.HasDriver());
  chip.HoldByOther(true);
  EXPECT_EQ(Open(usb), kRefused);
  EXPECT_TRUE(chip.HasDriver()) << "given back though nothing was got";
}

TEST_F(UsbOpeningTest, AChipThatDoesNotSwitchOnIsGivenBack) {
  constexpr std::uint8_t kEnableCode = 0;
  EmulatedUsb& chip = bus_.Attach();
  chip.StallOn(kEnableCode);
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 1U);
  EXPECT_EQ(Open(usb), kRefused);
  EXPECT_EQ(usb.Advice(),
            "A machine is attached and does not answer at its USB socket.\n"
            "Unplug it and plug it in again.");
  EXPECT_TRUE(chip.HasDriver());
  EXPECT_FALSE(chip.IsClaimed());
}

TEST_F(UsbOpeningTest, AMachineThatGoesBeforeItIsOpenedIsNotFound) {
  EmulatedUsb& chip = bus_.Attach();
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 1U);
  chip.Pull();
  EXPECT_EQ(Open(usb), UsbXpress::kDeviceNotFound);
  EXPECT_EQ(usb.Advice(), "The machine has been unplugged.");
}

TEST_F(UsbOpeningTest, AMachineInUseAsASerialDeviceIsNotTornAway) {
  EmulatedUsb& chip = bus_.Attach({.Tty = "ttyUSB3"});
  UsbDirect usb({});
  EXPECT_EQ(Count(usb), 1U);
  {
    const test::HoldingProgram other("/dev/ttyUSB3");
    EXPECT_EQ(Open(usb), kRefused);
    EXPECT_EQ(usb.Advice(),
              "Another program (sleep) has the machine as the serial device /dev/ttyUSB3.\n"
              "Close that program first: one at a time drives a machine.");
    EXPECT_TRUE(chip.HasDriver());
  }
  EXPECT_EQ(Open(usb), kSuccess);
  EXPECT_FALSE(chip.HasDriver());
}

TEST_F(UsbOpeningTest, ASystemWithoutUsbIsSaidAndNotTakenForAMissingMachine) {
  constexpr const char* kNoBus =
      "The system does not let programs see its USB sockets (libusb cannot start).";
  bus_.Attach();
  UsbDirect usb({.Serial = "9999S"});
  EXPECT_EQ(Count(usb), 0U);
  EXPECT_THAT(usb.Advice(), ::testing::StartsWith("The machine 9999S")) << "words of before";
  std::uint32_t version = 0;
  {
    const test::NoFileLeft limit;
    EXPECT_EQ(usb.GetDllVersion(version, version), UsbXpress::kDriverMissing);
    EXPECT_EQ(usb.Advice(), kNoBus);
    EXPECT_EQ(Count(usb), 0U);
    EXPECT_EQ(status_, UsbXpress::kDriverMissing);
    EXPECT_EQ(usb.Advice(), kNoBus);
  }
  EXPECT_EQ(usb.GetDllVersion(version, version), kSuccess);
  EXPECT_EQ(usb.Advice(), "");
}

}  // namespace
}  // namespace morvane::bridges
