#include <gtest/gtest.h>

#include "bridges/chosen.h"

namespace morvane::bridges {
namespace {

TEST(ChooseMachine, TheRealOneIsMeantWhereNoneIsNamedAndCannotBeLookedInto) {
  const MachineChoice choice = Chosen(LinkRequest{}.Machine);
  ASSERT_NE(choice.Usb, nullptr);
  EXPECT_EQ(choice.Kind, machine::MachineKind::kReal);
  EXPECT_EQ(choice.Simulated, nullptr);
  EXPECT_EQ(choice.Replayed, nullptr);
  EXPECT_EQ(choice.Traced, nullptr);
  EXPECT_EQ(choice.Error, "");
  std::uint32_t high = 0;
  std::uint32_t low = 0;
  EXPECT_EQ(choice.Usb->GetDllVersion(high, low), UsbXpress::kSuccess);
  EXPECT_EQ(choice.Usb->GetDriverVersion(high, low), UsbXpress::kSuccess);
  EXPECT_EQ(high, 0x30001U) << "3.1, which asks for no update";
}

TEST(ChooseMachine, ASerialDeviceCannotBeLookedInto) {
  const MachineChoice choice = Chosen("serial:/dev/ttyUSB0");
  EXPECT_NE(choice.Usb, nullptr);
  EXPECT_EQ(choice.Simulated, nullptr);
  EXPECT_EQ(choice.Error, "");
}

TEST(ChooseMachine, WhatIsNoMachineIsTold) {
  for (const char* text : {"", "usb,", "USB", "usb:", "usb:10C4:EA6", "usb:0x10C4:0xEA60",
                           "usb:10C4:EA60S", "usb:10C4:EA60:", "usb:0123:", "replay",
                           "replay:", "serial", "serial:", "Simulated", "/dev/ttyUSB0"}) {
    const MachineChoice choice = Chosen(text);
    EXPECT_EQ(choice.Usb, nullptr);
    EXPECT_EQ(choice.Simulated, nullptr);
    EXPECT_EQ(choice.Error, "unknown machine \"" + std::string(text) +
                                "\": usb, usb:SERIAL, usb:VVVV:PPPP, serial:PATH, "
                                "simulated[,key=value...] or replay:FILE");
  }
}

TEST(ChooseMachine, AUsbMachineIsNamedByItsSerialStringOrItsNumbers) {
  for (const char* text : {"usb:0123S", "usb:10C4:EA60", "usb:10c4:ea60:0123S", "usb:0123"}) {
    EXPECT_NE(Chosen(text).Usb, nullptr) << text;
  }
}

}  // namespace
}  // namespace morvane::bridges
