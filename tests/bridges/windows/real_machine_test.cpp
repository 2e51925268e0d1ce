#include <gtest/gtest.h>

#include "bridges/chosen.h"

namespace morvane::bridges {
namespace {

TEST(ChooseMachine, TheRealOneIsMeantWhereNoneIsNamedAndCannotBeLookedInto) {
  const MachineChoice choice = Chosen(LinkRequest{}.Machine);
  ASSERT_NE(choice.Usb, nullptr);
  EXPECT_EQ(choice.Kind, machine::MachineKind::kReal);
  EXPECT_EQ(choice.Simulated, nullptr);
  EXPECT_EQ(choice.Error, "");
}

TEST(ChooseMachine, WithoutTheDriverItsLibraryIsMissing) {
  const MachineChoice choice = Chosen("usb");
  std::uint32_t count = 0;
  EXPECT_EQ(choice.Usb->GetNumDevices(count), UsbXpress::kDriverMissing);
}

TEST(ChooseMachine, OnlyTheDriverTellsSeveralApart) {
  EXPECT_EQ(Chosen("usb:0123").Usb, nullptr);
  EXPECT_EQ(Chosen("usb:0123").Error,
            "usb:0123: on Windows its maker's driver has the machine; use usb");
}

TEST(ChooseMachine, ItIsNoSerialDevice) {
  EXPECT_EQ(Chosen("serial:COM3").Usb, nullptr);
  EXPECT_EQ(Chosen("serial:COM3").Error,
            "serial:COM3: on Windows its maker's driver has the machine; use usb");
}

TEST(ChooseMachine, WhatIsNoMachineIsTold) {
  for (const char* text : {"", "usb,", "USB", "usb:", "replay", "replay:", "serial", "serial:"}) {
    const MachineChoice choice = Chosen(text);
    EXPECT_EQ(choice.Usb, nullptr);
    EXPECT_EQ(choice.Error, "unknown machine \"" + std::string(text) +
                                "\": usb, simulated[,key=value...] or replay:FILE");
  }
}

}  // namespace
}  // namespace morvane::bridges
