#include "bridges/machine_choice.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "bridges/trace/replay_bridge.h"
#include "simulator/simulated_machine.h"
#include "support/fakes.h"
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
    EXPECT_EQ(choice.Kind, machine::MachineKind::kSimulated);
    EXPECT_EQ(choice.Error, "");
  }
}

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

TEST(ChooseMachine, ATraceThatIsNotThereIsTold) {
  const test::TempFolder folder;
  const MachineChoice choice = Chosen("replay:" + (folder / "none"));
  EXPECT_EQ(choice.Usb, nullptr);
  EXPECT_THAT(choice.Error, ::testing::HasSubstr(folder / "none"));
}

class TracedChoice : public ::testing::Test {
 protected:
  test::TempFolder folder;
  test::VirtualClock clock;

  void OpenAndClose(const MachineChoice& choice) {
    UsbXpress::Handle handle = -1;
    std::uint32_t high = 0;
    std::uint32_t low = 0;
    EXPECT_EQ(choice.Usb->GetDllVersion(high, low), UsbXpress::kSuccess);
    EXPECT_EQ(choice.Usb->Open(0, handle), UsbXpress::kSuccess);
    EXPECT_EQ(choice.Usb->Close(handle), UsbXpress::kSuccess);
  }
};

TEST_F(TracedChoice, WhatPassesIsNotedAndCanBePlayed) {
  {
    const MachineChoice choice = ChooseMachine({"simulated,speed=0", folder / "t"}, clock);
    ASSERT_NE(choice.Usb, nullptr) << choice.Error;
    EXPECT_NE(choice.Simulated, nullptr) << "it can be looked into as before";
    EXPECT_NE(choice.Traced, nullptr);
    OpenAndClose(choice);
    EXPECT_EQ(choice.Trouble(), "");
  }
  EXPECT_THAT(test::Content(folder / "t"), ::testing::HasSubstr("# machine simulated,speed=0\n"));
  const MachineChoice replay = ChooseMachine({"replay:" + (folder / "t")}, clock);
  ASSERT_NE(replay.Usb, nullptr) << replay.Error;
  EXPECT_EQ(replay.Kind, machine::MachineKind::kReplayed);
  EXPECT_EQ(replay.Replayed, replay.Usb.get());
  OpenAndClose(replay);
  EXPECT_EQ(replay.Trouble(), "");
}

TEST_F(TracedChoice, AFileThatIsNoTraceIsLeftAloneAndThereIsNoMachine) {
  test::WriteContent(folder / "deal.pbn", "[Event \"\"]\r\n");
  const MachineChoice choice = ChooseMachine({"simulated", folder / "deal.pbn"}, clock);
  EXPECT_EQ(choice.Usb, nullptr);
  EXPECT_THAT(choice.Error, ::testing::HasSubstr("deal.pbn"));
  EXPECT_EQ(test::Content(folder / "deal.pbn"), "[Event \"\"]\r\n");
}

TEST_F(TracedChoice, ATraceIsNotWrittenOverWhileItIsPlayed) {
  OpenAndClose(ChooseMachine({"simulated,speed=0", folder / "t"}, clock));
  std::filesystem::create_symlink(folder / "t", folder / "link");
  for (const char* played : {"t", "t.1", "./t", "link"}) {
    const MachineChoice choice =
        ChooseMachine({"replay:" + (folder / played), folder / "t"}, clock);
    EXPECT_EQ(choice.Error, "--trace " + (folder / "t") + ": that trace is played") << played;
  }
  EXPECT_NE(ChooseMachine({"replay:" + (folder / "t"), folder / "u"}, clock).Usb, nullptr);
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
