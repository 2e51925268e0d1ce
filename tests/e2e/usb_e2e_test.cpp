#include <gmock/gmock.h>

#include "e2e/e2e_fixture.h"
#include "support/emulated_bus.h"
#include "support/usb_machine.h"

// The real program at the emulated bus. Each run costs two seconds before the first contact.

namespace morvane::e2e {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr int kBoards = 4;

class UsbEndToEnd : public EndToEnd {
 protected:
  UsbEndToEnd() { SetFile("set.pbn", 1, kBoards); }
  static simulator::Options Fast() {
    simulator::Options options;
    options.Speed = 0;
    return options;
  }
  Outcome Deal(const std::string& machine = "usb") {
    return Run({"--machine", machine, "deal", "set.pbn", "--auto"});
  }

  test::EmulatedBus bus_;
};

TEST_F(UsbEndToEnd, FourBoardsAreDealtRightAndTheMachineIsGivenBack) {
  test::EmulatedUsb& chip = bus_.Attach();
  const test::UsbMachine behind(chip, Fast());
  const Outcome outcome = Deal();
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, "");
  EXPECT_THAT(outcome.Out, EndsWith("\n4 of 4 boards dealt.\n"));
  EXPECT_EQ(CountLines("  0", " OK"), kBoards);
  EXPECT_EQ(behind.Machine.BoardsDealt(), kBoards);
  EXPECT_EQ(behind.Machine.DealtBoard().Cards, test::SuitBoard(kBoards).Cards);
  EXPECT_FALSE(chip.IsClaimed());
  EXPECT_TRUE(chip.HasDriver());
}

TEST_F(UsbEndToEnd, WhereNoMachineIsNamedTheRealOneIsMeantAndIsMissing) {
  const Outcome outcome = Run({"--yes", "deal", "set.pbn", "--auto"});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_THAT(outcome.Err, StartsWith("USB Initialization Error: "));
  EXPECT_THAT(outcome.Err, HasSubstr("(Error: 255.1)\n"));
  EXPECT_THAT(outcome.Err, EndsWith("Click OK to retry communication.\n\n"
                                    "No machine is attached to a USB socket of this computer.\n"));
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(CountLines(" USB Initialization Error: 255:1"), 1);
  EXPECT_EQ(CountLines("  001 :"), 0);
}

TEST_F(UsbEndToEnd, OfTwoMachinesTheOneThatIsNamedDeals) {
  test::EmulatedUsb& first = bus_.Attach({.Serial = "1234S", .Socket = 1});
  test::EmulatedUsb& second = bus_.Attach({.Serial = "5678S", .Socket = 2});
  const test::UsbMachine behind(second, Fast());
  const Outcome outcome = Deal("usb:5678S");
  EXPECT_EQ(outcome.Status, 0) << outcome.Err;
  EXPECT_EQ(outcome.Err, "");
  EXPECT_EQ(behind.Machine.BoardsDealt(), kBoards);
  EXPECT_THAT(first.Requests(), IsEmpty());
}

TEST_F(UsbEndToEnd, AMachineThatIsUnpluggedIsToldAndTheNextRunWorks) {
  constexpr int kInTheSecondBoard = 80;
  test::EmulatedUsb& chip = bus_.Attach();
  test::UsbMachine behind(chip, Fast());
  chip.PullAt(kInTheSecondBoard);
  const Outcome lost = Deal();
  EXPECT_EQ(lost.Status, 1);
  EXPECT_THAT(lost.Err, HasSubstr("Lost Communication with Morvane  -  Dealing Aborted!"));
  EXPECT_EQ(CountLines("  001 ", " OK"), 1);
  behind.Machine.PowerOff();
  behind.Machine.PowerOn();
  chip.PlugIn();
  EXPECT_EQ(Deal().Status, 0);
}

TEST_F(UsbEndToEnd, WithoutRightsTheRuleIsNamed) {
  bus_.Attach({.MayBeOpened = false});
  const Outcome outcome = Deal();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_THAT(outcome.Err, HasSubstr("\n\nA machine is attached, and this user may not use it.\n"
                                     "The rule 70-morvane.rules lets in who "));
  EXPECT_EQ(CountLines(" USB Initialization Error: 8:3"), 1);
}

}  // namespace
}  // namespace morvane::e2e
