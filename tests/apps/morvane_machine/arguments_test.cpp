#include "morvane_machine/arguments.h"

#include <gmock/gmock.h>

namespace morvane {
namespace {

using simulator::Pace;
using ::testing::HasSubstr;
using Words = std::vector<std::string>;

TEST(MachineArgumentsTest, WithoutWordsAMachineAtTheWiresPace) {
  const MachineArguments arguments = ParseMachineArguments({});
  EXPECT_EQ(arguments.Machine, "simulated");
  EXPECT_EQ(arguments.Pace, Pace::kWire);
  EXPECT_EQ(arguments.Link, "");
  EXPECT_EQ(arguments.Error, "");
  EXPECT_EQ(arguments.Help, "");
}

TEST(MachineArgumentsTest, EveryOptionIsTakenInEitherForm) {
  for (const Words& words :
       {Words{"--machine", "simulated,pack=a=b", "--pace", "fast", "--link", "x y"},
        Words{"--machine=simulated,pack=a=b", "--pace=fast", "--link=x y"}}) {
    const MachineArguments arguments = ParseMachineArguments(words);
    EXPECT_EQ(arguments.Machine, "simulated,pack=a=b");
    EXPECT_EQ(arguments.Pace, Pace::kFast);
    EXPECT_EQ(arguments.Link, "x y");
    EXPECT_EQ(arguments.Error, "");
  }
}

TEST(MachineArgumentsTest, WhatIsWrongIsTold) {
  EXPECT_EQ(ParseMachineArguments({"--pace", "slow"}).Error, "--pace: not \"slow\"");
  EXPECT_EQ(ParseMachineArguments({"--link"}).Error, "--link: nothing named");
  EXPECT_EQ(ParseMachineArguments({"--machine="}).Error, "--machine: nothing named");
  EXPECT_EQ(ParseMachineArguments({"--data", "x"}).Error, "unknown word \"--data\"");
  EXPECT_EQ(ParseMachineArguments({"set.pbn"}).Error, "unknown word \"set.pbn\"");
}

TEST(MachineArgumentsTest, HelpHasOptionsKeysAndCommands) {
  const std::string help = ParseMachineArguments({"--pace", "fast", "--help"}).Help;
  EXPECT_EQ(help, ParseMachineArguments({"-h"}).Help);
  for (const char* part : {"--machine M", "--pace P", "--link PATH", "pack=FILE", "  board N"}) {
    EXPECT_THAT(help, HasSubstr(part));
  }
  EXPECT_THAT(ParseMachineArguments({"--version"}).Help, testing::StartsWith("morvane-machine 1."));
}

}  // namespace
}  // namespace morvane
