#include "morvane_machine/arguments.h"

#include <gmock/gmock.h>

namespace morvane {
namespace {

using simulator::Pace;
using ::testing::HasSubstr;
using Words = std::vector<std::string>;

TEST(MachineArgumentsTest, WithoutWordsAMachineAtTheWiresPace) {
  const MachineArguments arguments = ParseMachineArguments({});
  ASSERT_EQ(arguments.Machines.size(), 1U);
  const ServedKind& kind = arguments.Machines[0];
  EXPECT_EQ(kind.Machine, "simulated");
  EXPECT_EQ(kind.Pace, Pace::kWire);
  EXPECT_EQ(kind.Link, "");
  EXPECT_EQ(kind.Trace, "");
  EXPECT_FALSE(kind.TraceWithoutHands);
  EXPECT_EQ(arguments.Error, "");
  EXPECT_EQ(arguments.Help, "");
}

TEST(MachineArgumentsTest, EveryOptionIsTakenInEitherForm) {
  for (const Words& words : {Words{"--machine", "simulated,pack=a=b", "--pace", "fast", "--link",
                                   "x y", "--trace", "t", "--trace-without-hands"},
                             Words{"--machine=simulated,pack=a=b", "--pace=fast", "--link=x y",
                                   "--trace=t", "--trace-without-hands"}}) {
    const MachineArguments arguments = ParseMachineArguments(words);
    ASSERT_EQ(arguments.Machines.size(), 1U);
    const ServedKind& kind = arguments.Machines[0];
    EXPECT_EQ(kind.Machine, "simulated,pack=a=b");
    EXPECT_EQ(kind.Pace, Pace::kFast);
    EXPECT_EQ(kind.Link, "x y");
    EXPECT_EQ(kind.Trace, "t");
    EXPECT_TRUE(kind.TraceWithoutHands);
    EXPECT_EQ(arguments.Error, "");
  }
}

TEST(MachineArgumentsTest, WhatStandsBehindAMachineIsThatOnesAndWhatStandsBeforeIsTheFirsts) {
  const MachineArguments arguments = ParseMachineArguments(
      {"--pace", "fast", "--machine", "simulated,serial=1", "--link", "a", "--machine",
       "simulated,serial=2", "--machine", "simulated,serial=3", "--pace", "fast", "--trace", "t"});
  EXPECT_EQ(arguments.Error, "");
  const auto& machines = arguments.Machines;
  ASSERT_EQ(machines.size(), 3U);
  EXPECT_EQ(machines[0].Machine, "simulated,serial=1");
  EXPECT_EQ(machines[1].Machine, "simulated,serial=2");
  EXPECT_EQ(machines[2].Machine, "simulated,serial=3");
  EXPECT_EQ(machines[0].Link, "a");
  EXPECT_EQ(machines[1].Link, "");
  EXPECT_EQ(machines[0].Pace, Pace::kFast);
  EXPECT_EQ(machines[1].Pace, Pace::kWire);
  EXPECT_EQ(machines[2].Pace, Pace::kFast);
  EXPECT_EQ(machines[0].Trace, "");
  EXPECT_EQ(machines[2].Trace, "t");
}

TEST(MachineArgumentsTest, TwoMachinesDoNotWriteOneTrace) {
  EXPECT_EQ(ParseMachineArguments({"--trace", "t", "--machine", "simulated", "--machine",
                                   "simulated", "--trace", "./t"})
                .Error,
            "--trace ./t: for two machines");
  EXPECT_EQ(ParseMachineArguments({"--trace", "t", "--machine", "simulated", "--machine",
                                   "simulated", "--trace", "u"})
                .Error,
            "");
}

TEST(MachineArgumentsTest, AnOptionThatAMachineHasAlreadyIsRefused) {
  for (const char* option : {"--link", "--trace", "--pace"}) {
    const std::vector<std::string> words{option, "fast", "--machine", "simulated",
                                         option, "wire", "--machine", "simulated,speed=2"};
    EXPECT_EQ(ParseMachineArguments(words).Error,
              std::string(option) + ": twice for one machine; it stands behind its --machine");
  }
  EXPECT_EQ(ParseMachineArguments(
                {"--link", "a", "--machine", "simulated", "--machine", "simulated", "--link", "b"})
                .Error,
            "");
}

TEST(MachineArgumentsTest, WhatIsWrongIsTold) {
  EXPECT_EQ(ParseMachineArguments({"--pace", "slow"}).Error, "--pace: not \"slow\"");
  EXPECT_EQ(ParseMachineArguments({"--link"}).Error, "--link: nothing named");
  EXPECT_EQ(ParseMachineArguments({"--machine="}).Error, "--machine: nothing named");
  EXPECT_EQ(ParseMachineArguments({"--data", "x"}).Error, "unknown word \"--data\"");
  EXPECT_EQ(ParseMachineArguments({"--trace"}).Error, "--trace: nothing named");
  EXPECT_EQ(ParseMachineArguments({"--trace-without-hands"}).Error,
            "--trace-without-hands needs --trace FILE");
  EXPECT_EQ(ParseMachineArguments({"set.pbn"}).Error, "unknown word \"set.pbn\"");
}

TEST(MachineArgumentsTest, HelpHasOptionsKeysAndCommands) {
  const std::string help = ParseMachineArguments({"--pace", "fast", "--help"}).Help;
  EXPECT_EQ(help, ParseMachineArguments({"-h"}).Help);
  for (const char* part : {"--machine M", "--pace wire|fast", "--link PATH", "--trace FILE",
                           "pack=FILE", "  board N"}) {
    EXPECT_THAT(help, HasSubstr(part));
  }
  EXPECT_THAT(ParseMachineArguments({"--version"}).Help, testing::StartsWith("morvane-machine 1."));
}

}  // namespace
}  // namespace morvane
