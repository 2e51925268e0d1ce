#include "simulator/line/operator_commands.h"

#include <gmock/gmock.h>

#include "simulator/stacking.h"

namespace morvane::simulator {
namespace {

class OperatorCommands : public testing::Test {
 protected:
  Talk talk;
  bool quit = false;

  std::string Type(const std::string& line) {
    const std::array<WiredMachine*, 1> machines{&talk.Machine};
    return Obey(machines, line, quit);
  }
};

TEST_F(OperatorCommands, ThePedalIsReportedInTheNextPoll) {
  EXPECT_EQ(Type("pedal"), "The pedal was pressed.\n");
  EXPECT_EQ(talk.Status().at(6), 0x08);
}

TEST_F(OperatorCommands, ABoardGoesInAndOut) {
  EXPECT_EQ(Type("board 3"), "Board 3 is in the slot.\n");
  EXPECT_EQ(talk.Ask({0x1B, 4}).at(2), 27) << "the label of board 3";
  EXPECT_EQ(talk.Status().at(6), 0x14);
  EXPECT_EQ(Type("remove"), "The slot is empty.\n");
  EXPECT_EQ(talk.Ask({0x1B, 4}).at(2), 0);
}

TEST_F(OperatorCommands, AFaultStopsTheRunAtTheNextCard) {
  EXPECT_EQ(Type("fault 54"), "At the next card: Duplicate Card Error.\n");
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
  EXPECT_EQ(talk.PollToEnd(), 54);
  EXPECT_EQ(Type("state"), "stopped at card 1 of 52 with code 54\n");
}

TEST_F(OperatorCommands, ThePowerGoesOffAndOn) {
  EXPECT_EQ(Type("off"), "The power is off.\n");
  EXPECT_TRUE(talk.Status().empty());
  EXPECT_EQ(Type("state"), "off\n");
  EXPECT_EQ(Type("on"), "The power is on.\n");
  EXPECT_EQ(talk.Status().size(), 8U);
}

TEST_F(OperatorCommands, ThePilesAreCarriedTheWayThatIsTyped) {
  EXPECT_EQ(Type("carry dropped"), "The next carry: a card dropped.\n");
  EXPECT_EQ(talk.Machine.NextCarry(), Carry::kCardDropped);
  EXPECT_EQ(Type("carry right"), "The next carry: right.\n");
  EXPECT_EQ(talk.Machine.NextCarry(), Carry::kRight);
  for (const char* line : {"carry", "carry left", "carry 1", "carry north too"}) {
    EXPECT_EQ(Type(line),
              "carry takes right, swapped, dropped, exchanged, turned, north or nothing.\n");
  }
}

TEST_F(OperatorCommands, ThePackIsPutBack) {
  EXPECT_EQ(Type("putback"), "There is no pack in North, or cards are falling.\n");
  ASSERT_TRUE(talk.Accepted(RouteFrame(52, {})));
  ASSERT_TRUE(talk.Accepted(StackFrame(Everywhere(kN))));
  ASSERT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(Type("putback"), "The pack of North lies in the feeder.\n");
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 52U);
}

TEST_F(OperatorCommands, HandsCoverASensorAndFreeIt) {
  EXPECT_EQ(Type("photo 5"), "Photo sensor 5 is covered.\n");
  EXPECT_EQ(talk.Ask({23, 0, 0}).at(6), 0x50);
  EXPECT_EQ(Type("photo 5"), "Photo sensor 5 is free.\n");
  EXPECT_EQ(talk.Ask({23, 0, 0}).at(6), 0x40);
  EXPECT_EQ(Type("photo 6"), "photo takes a number from 1 to 5.\n");
}

TEST_F(OperatorCommands, HandsMoveTheSwitches) {
  EXPECT_EQ(Type("front"), "The front switch is pressed.\n");
  EXPECT_EQ(Type("cover"), "The cover is open.\n");
  EXPECT_EQ(talk.Ask({23, 16, 0}).at(6), 0x20);
  EXPECT_EQ(talk.Ask({27, 3}).at(1), 0x83);
  EXPECT_EQ(Type("flip"), "The flip plate is open.\n");
  EXPECT_EQ(talk.Ask({27, 3}).at(1), 3);
  EXPECT_EQ(Type("front"), "The front switch is free.\n");
  EXPECT_EQ(Type("cover"), "The cover is closed.\n");
  EXPECT_EQ(Type("flip"), "The flip plate is closed.\n");
  EXPECT_EQ(talk.Ask({23, 16, 0}).at(6), 0x40);
}

TEST_F(OperatorCommands, ACardIsLaidBeforeTheCamera) {
  EXPECT_EQ(Type("card HA"), "The card is at the camera.\n");
  EXPECT_EQ(talk.Machine.CardShown(), 26);
  EXPECT_EQ(Type("card none"), "No card is at the camera.\n");
  EXPECT_EQ(talk.Machine.CardShown(), 0);
  for (const char* line : {"card", "card 26", "card AH", "card ha"}) {
    EXPECT_EQ(Type(line), "card takes a suit and a rank, such as ST, or none.\n");
  }
}

TEST_F(OperatorCommands, SpeedTemperatureAndSupplyAreWhatIsTyped) {
  EXPECT_EQ(Type("speed 13000"), "Motors that are on turn at 13000.\n");
  talk.Ask({23, 1, 0});
  const Bytes motors = talk.Ask({27, 1});
  EXPECT_EQ(256 * motors.at(3) + motors.at(2), 32767 - 13000);
  EXPECT_EQ(256 * motors.at(5) + motors.at(4), 32767 - 13000);
  EXPECT_EQ(Type("degrees 40"), "It is at 40 degrees.\n");
  EXPECT_EQ(Type("volts 12"), "The supply has 12 volts.\n");
  const Bytes climate = talk.Ask({27, 2});
  EXPECT_EQ(256 * climate.at(3) + climate.at(2), 366);  // (400 x 0.00195 + 0.4) / 0.00322265
  EXPECT_EQ(256 * climate.at(5) + climate.at(4), 306);  // 3 by the motors: 117 / 0.381884
  EXPECT_EQ(Type("volts 41"), "volts takes a number from 1 to 40.\n");
}

TEST_F(OperatorCommands, OnlyQuitEnds) {
  for (const char* line : {"pedal", "board 1", "remove", "off", "on", "state", "help", "", "x"}) {
    Type(line);
    EXPECT_FALSE(quit) << line;
  }
  EXPECT_EQ(Type("quit"), "");
  EXPECT_TRUE(quit);
}

TEST_F(OperatorCommands, HelpListsEveryCommand) {
  EXPECT_EQ(Type("help"), OperatorCommandsHelp());
  for (const char* word : {"pedal", "board N", "remove", "fault N", "carry WAY", "putback",
                           "photo N", "front", "cover", "flip", "card CARD", "speed N", "degrees N",
                           "volts N", "off", "on", "state", "help", "quit"}) {
    EXPECT_THAT(OperatorCommandsHelp(), testing::HasSubstr("  " + std::string(word) + " ")) << word;
  }
}

TEST_F(OperatorCommands, BlanksAroundTheWordsDoNotMatter) {
  EXPECT_EQ(Type("  board   640 \r"), "Board 640 is in the slot.\n");
  EXPECT_EQ(Type(" \t"), "");
}

TEST_F(OperatorCommands, WhatIsNoCommandIsToldAndDoesNothing) {
  const std::uint64_t before = talk.Machine.Changed();
  EXPECT_EQ(Type("peddal"), "No such command; help lists them.\n");
  EXPECT_EQ(Type("Pedal"), "No such command; help lists them.\n");
  for (const char* line : {"board", "board 0", "board 641", "board -1", "board 3 4", "board x"}) {
    EXPECT_EQ(Type(line), "board takes a number from 1 to 640.\n") << line;
  }
  EXPECT_EQ(Type("fault 241"), "fault takes a number from 1 to 240.\n");
  EXPECT_EQ(Type("pedal 2"), "pedal takes nothing behind it.\n");
  EXPECT_EQ(talk.Machine.Changed(), before);
  EXPECT_FALSE(quit);
}

TEST_F(OperatorCommands, TheOnlyMachineHasTheNumberOne) {
  EXPECT_EQ(Type("1 pedal"), "The pedal was pressed.\n");
  EXPECT_EQ(Type("1 state"), "idle\n");
  EXPECT_EQ(Type("2 pedal"), "There is no machine 2.\n");
  EXPECT_EQ(Type("0 pedal"), "No such command; help lists them.\n");
  EXPECT_EQ(Type("1"), "No such command; help lists them.\n");
  EXPECT_EQ(Type("1x pedal"), "No such command; help lists them.\n");
}

class SeveralMachines : public testing::Test {
 protected:
  Talk first;
  Talk second;
  bool quit = false;

  std::string Type(const std::string& line) {
    const std::array<WiredMachine*, 2> machines{&first.Machine, &second.Machine};
    return Obey(machines, line, quit);
  }
};

TEST_F(SeveralMachines, TheNumberInFrontIsTheMachine) {
  EXPECT_EQ(Type("2 pedal"), "The pedal was pressed.\n");
  EXPECT_EQ(first.Status().at(6), 0);
  EXPECT_EQ(second.Status().at(6), 0x08);
  EXPECT_EQ(Type(" 1   board  3 "), "Board 3 is in the slot.\n");
  EXPECT_EQ(first.Ask({0x1B, 4}).at(2), 27);
  EXPECT_EQ(second.Ask({0x1B, 4}).at(2), 0);
}

TEST_F(SeveralMachines, WithoutItWhatIsMeantIsAskedBack) {
  EXPECT_EQ(Type("pedal"), "Which machine? Its number goes in front, such as 1 pedal.\n");
  EXPECT_EQ(Type("board 3"), "Which machine? Its number goes in front, such as 1 board.\n");
  EXPECT_EQ(Type("off"), "Which machine? Its number goes in front, such as 1 off.\n");
  EXPECT_TRUE(first.Machine.PowerIsOn());
  EXPECT_EQ(Type("pedal 2"), "Which machine? Its number goes in front, such as 1 pedal.\n");
  EXPECT_EQ(Type("1 board x"), "board takes a number from 1 to 640.\n");
  EXPECT_EQ(Type("peddal"), "No such command; help lists them.\n");
  EXPECT_EQ(Type("3 pedal"), "There is no machine 3.\n");
}

TEST_F(SeveralMachines, TheStateIsThatOfAll) {
  Type("2 off");
  EXPECT_EQ(Type("state"), "1: idle\n2: off\n");
  EXPECT_EQ(Type("2 state"), "off\n");
}

TEST_F(SeveralMachines, HelpAndTheEndNeedNoNumber) {
  EXPECT_EQ(Type("help"), OperatorCommandsHelp());
  EXPECT_FALSE(quit);
  EXPECT_EQ(Type("quit"), "");
  EXPECT_TRUE(quit);
}

}  // namespace
}  // namespace morvane::simulator
