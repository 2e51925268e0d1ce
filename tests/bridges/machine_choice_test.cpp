#include "bridges/machine_choice.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <vector>

#include "bridges/chosen.h"
#include "bridges/trace/replay_bridge.h"
#include "simulator/simulated_machine.h"
#include "support/fakes.h"
#include "support/virtual_time.h"

namespace morvane::bridges {
namespace {

TEST(ChooseMachine, TheSimulatedMachineCanBeLookedInto) {
  for (const char* text : {"simulated", "simulated,speed=0,seed=5"}) {
    const MachineChoice choice = Chosen(text);
    ASSERT_NE(choice.Usb, nullptr);
    EXPECT_EQ(choice.Simulated, choice.Usb.get());
    EXPECT_EQ(choice.Kind, machine::MachineKind::kSimulated);
    EXPECT_EQ(choice.Error, "");
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
  std::vector<const char*> names{"t", "t.1", "./t"};
#ifndef _WIN32  // links take rights that a user lacks
  std::filesystem::create_symlink(folder / "t", folder / "link");
  names.push_back("link");
#endif
  for (const char* played : names) {
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
