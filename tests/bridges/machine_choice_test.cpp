#include "bridges/machine_choice.h"

#include <gtest/gtest.h>

#include "simulator/simulated_machine.h"
#include "support/virtual_time.h"

namespace morvane::bridges {
namespace {

MachineChoice Chosen(const std::string& text) {
  test::VirtualClock clock;
  return ChooseMachine({text}, clock);
}

TEST(ChooseMachine, TheSimulatedMachineCanBeLookedInto) {
  for (const char* text : {"simulated", "simulated,speed=0,seed=5"}) {
    const MachineChoice choice = Chosen(text);
    ASSERT_NE(choice.Usb, nullptr);
    EXPECT_EQ(choice.Simulated, choice.Usb.get());
    EXPECT_EQ(choice.Error, "");
  }
}

TEST(ChooseMachine, TheRealOneIsMeantWhereNoneIsNamedAndHasNoDevicesYet) {
  const MachineChoice choice = Chosen(kDefaultMachine);
  ASSERT_NE(choice.Usb, nullptr);
  EXPECT_EQ(choice.Simulated, nullptr);
  EXPECT_EQ(choice.Error, "");
  EXPECT_STREQ(kDefaultMachine, "usb");
  std::uint32_t high = 0;
  std::uint32_t low = 0;
  EXPECT_EQ(choice.Usb->GetDllVersion(high, low), UsbXpress::kSuccess);
  EXPECT_EQ(choice.Usb->GetDriverVersion(high, low), UsbXpress::kSuccess);
  EXPECT_EQ(high, 0x30001U) << "3.1, which asks for no update";
  std::uint32_t count = 99;
  EXPECT_EQ(choice.Usb->GetNumDevices(count), UsbXpress::kDeviceNotFound);
  EXPECT_EQ(count, 0U);
}

TEST(ChooseMachine, ASerialDeviceCannotBeLookedInto) {
  const MachineChoice choice = Chosen("serial:/dev/ttyUSB0");
  EXPECT_NE(choice.Usb, nullptr);
  EXPECT_EQ(choice.Simulated, nullptr);
  EXPECT_EQ(choice.Error, "");
}

TEST(ChooseMachine, WhatIsNoMachineIsTold) {
  for (const char* text :
       {"", "usb,", "USB", "replay", "serial", "serial:", "Simulated", "/dev/ttyUSB0"}) {
    const MachineChoice choice = Chosen(text);
    EXPECT_EQ(choice.Usb, nullptr);
    EXPECT_EQ(choice.Simulated, nullptr);
    EXPECT_EQ(choice.Error, "unknown machine \"" + std::string(text) +
                                "\": usb, usb:SERIAL, usb:VVVV:PPPP, serial:PATH, "
                                "simulated[,key=value...] or replay:FILE");
  }
}

TEST(ChooseMachine, AWrongKeyOfTheSimulatedMachineIsTold) {
  const MachineChoice wrong = Chosen("simulated,speed=fast");
  EXPECT_EQ(wrong.Usb, nullptr);
  EXPECT_EQ(wrong.Error,
            "simulated machine: \"speed=fast\": speed= takes a number from 0 to 1000, 1 being the "
            "pace of a real machine");
  EXPECT_EQ(Chosen("simulatedspeed=1").Error, "\"simulatedspeed=1\" is no simulated machine");
}

}  // namespace
}  // namespace morvane::bridges
