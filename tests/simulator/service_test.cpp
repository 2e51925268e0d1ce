// The service side of the simulated machine, against frames on paper.

#include <gmock/gmock.h>

#include "simulator/talk.h"

namespace morvane::simulator {
namespace {

using ::testing::ElementsAre;

Options Kind(std::uint8_t minor, std::uint16_t hardware = 0x7F) {
  Options options = Talk::Fast();
  options.FirmwareMinor = minor;
  options.Hardware = hardware;
  return options;
}

/// A machine of this firmware and hardware that answers a read frame of this sub-code.
bool Reads(std::uint8_t minor, std::uint8_t subCode, std::uint16_t hardware = 0x7F) {
  return !Talk(Kind(minor, hardware)).Ask({17, subCode}).empty();
}

bool TellsStatus(std::uint8_t minor, std::uint8_t selector) {
  return !Talk(Kind(minor)).Ask({27, selector}).empty();
}

/// Sends a frame that nobody answers.
void Write(Talk& talk, const Bytes& plain) {
  talk.Write(ToWire(plain));
  EXPECT_TRUE(talk.Read(8).empty());
}

/// Bytes 2 to 6 of a block.
Bytes Block(Talk& talk, std::uint8_t subCode) {
  const Bytes reply = talk.Ask({17, subCode, 9, 9, 9, 9, 9});
  if (reply.size() != 8 || reply[0] != 17 || reply[1] != subCode) return {};
  return {reply.begin() + 2, reply.begin() + 7};
}

/// The five bytes 1 to 5 of the sensor answer, and byte 6.
Bytes Photos(Talk& talk, std::uint8_t outputs = 0) { return talk.Ask({23, outputs, 0}); }

int Speed(const Bytes& reply, std::size_t at) { return 32767 - (256 * reply[at + 1] + reply[at]); }

TEST(ParameterOrgan, EachRecordKeepsWhatIsWrittenAndLeavesTheOthers) {
  Talk talk;
  const Bytes jumbo = Block(talk, 5);
  const Bytes small = Block(talk, 10);
  Write(talk, {19, 1, 11, 12, 13, 14, 77});
  Write(talk, {19, 2, 40, 60, 20, 30, 77});
  Write(talk, {19, 3, 41, 61, 21, 31, 77});
  EXPECT_THAT(Block(talk, 1), ElementsAre(11, 12, 13, 14, 0));
  EXPECT_THAT(Block(talk, 2), ElementsAre(40, 60, 20, 30, 0));
  EXPECT_THAT(Block(talk, 3), ElementsAre(41, 61, 21, 31, 0));
  EXPECT_EQ(Block(talk, 5), jumbo);
  EXPECT_EQ(Block(talk, 10), small);
}

TEST(ParameterOrgan, SwitchesAreWrittenInBytesAndReadInBitsBehindTheRecordsNumber) {
  Talk talk;
  const Bytes before = Block(talk, 13);
  ASSERT_EQ(before.size(), 5U);
  EXPECT_EQ(256 * before[0] + before[1], 1003);
  EXPECT_EQ(before[2], 0);
  Write(talk, {19, 13, 1, 0, 1, 0});
  EXPECT_EQ(Block(talk, 13).at(2), 5);
  Write(talk, {19, 13, 0, 1, 0, 0});
  EXPECT_EQ(Block(talk, 13).at(2), 2);
  EXPECT_EQ(Block(talk, 13).at(0), before[0]) << "never written";
  EXPECT_EQ(Block(talk, 4).at(2), 0) << "another record";
}

TEST(ParameterOrgan, ThresholdsAndVideoStandOnce) {
  Talk talk;
  Write(talk, {19, 9, 10, 90, 50, 60, 255});
  Write(talk, {19, 14, 128, 64, 180, 0, 0});
  EXPECT_THAT(Block(talk, 9), ElementsAre(10, 90, 50, 60, 255));
  EXPECT_THAT(Block(talk, 14), ElementsAre(128, 64, 180, 0, 0));
}

TEST(ParameterOrgan, ATrialOfTheSensitivityIsNotKept) {
  Talk talk;
  const Bytes before = Block(talk, 14);
  Write(talk, {19, 14, 0, 0, 21, 1, 0});
  EXPECT_EQ(Block(talk, 14), before);
}

TEST(ParameterOrgan, AWriteFrameThatCanBeNoneChangesNothing) {
  Talk talk;
  const StoredParameters before = talk.Machine.Parameters();
  Write(talk, {19, 4, 2, 0, 0, 0});
  Write(talk, {19, 4, 1, 0, 0, 1});
  Write(talk, {19, 14, 1, 2, 3, 2, 0});
  Write(talk, {19, 14, 1, 2, 3, 0, 1});
  Write(talk, {19, 0, 1, 2, 3, 4, 5});
  Write(talk, {19, 15, 1, 2, 3, 4, 5});
  EXPECT_TRUE(talk.Machine.Parameters() == before);
  EXPECT_TRUE(talk.Ask({17, 0}).empty());
  EXPECT_TRUE(talk.Ask({17, 15}).empty());
}

TEST(ParameterOrgan, ParametersOutliveThePower) {
  Talk talk;
  Write(talk, {19, 1, 11, 12, 13, 14});
  talk.Machine.PowerOff();
  talk.Machine.PowerOn();
  EXPECT_THAT(Block(talk, 1), ElementsAre(11, 12, 13, 14, 0));
}

TEST(ParameterOrgan, BlocksBeginWithTheirFirmware) {
  EXPECT_TRUE(Reads(0x1F, 1));
  EXPECT_FALSE(Reads(0x3F, 5));
  EXPECT_TRUE(Reads(0x40, 8));
  EXPECT_FALSE(Reads(0x43, 9));
  EXPECT_TRUE(Reads(0x44, 9));
  EXPECT_FALSE(Reads(0x65, 10));
  EXPECT_TRUE(Reads(0x66, 13));
  EXPECT_FALSE(Reads(0x7F, 14));
  EXPECT_TRUE(Reads(0x80, 14));
}

TEST(ParameterOrgan, TheJumboRecordNeedsItsHardware) {
  EXPECT_FALSE(Reads(0x90, 5, 0x77));
  EXPECT_TRUE(Reads(0x90, 5, 0x08));
  EXPECT_TRUE(Reads(0x90, 10, 0x77));
}

TEST(ParameterOrgan, ABlockThatIsNotThereIsNotWrittenEither) {
  Talk talk(Kind(0x43));
  const StoredParameters before = talk.Machine.Parameters();
  Write(talk, {19, 9, 10, 90, 50, 60, 255});
  Write(talk, {19, 14, 128, 64, 21, 0, 0});
  EXPECT_TRUE(talk.Machine.Parameters() == before);
}

TEST(Writes, AreAnsweredWhereTheMachineDoes) {
  Options options = Talk::Fast();
  options.AnswersWrites = true;
  Talk talk(options);
  const Bytes reply = talk.Ask({19, 1, 11, 12, 13, 14, 15});
  ASSERT_EQ(reply.size(), 8U);
  EXPECT_EQ(Bytes(reply.begin(), reply.begin() + 7), (Bytes{19, 1, 11, 12, 13, 14, 15}));
  EXPECT_EQ(talk.Ask({36, 7, 8}).at(0), 36);
  EXPECT_EQ(talk.Ask({52, 0, 0, 0, 0, 5, 99}).at(0), 52);
  EXPECT_TRUE(talk.Ask({19, 4, 2}).empty()) << "garbled";
}

TEST(Writes, TheCounterOfBoardsIsSetBehindItsMarkAlone) {
  Talk talk;
  Write(talk, {52, 0, 1, 2, 3, 4, 99});
  const Bytes page = talk.Ask({51, 0, 0});
  EXPECT_EQ(Bytes(page.begin() + 8, page.begin() + 12), (Bytes{1, 2, 3, 4}));
  Write(talk, {52, 0, 9, 9, 9, 9, 98});
  EXPECT_EQ(talk.Ask({51, 0, 0}).at(8), 1);
}

TEST(Writes, ADevelopersNumbersStandInTheTestData) {
  Talk talk;
  Write(talk, {36, 12, 200, 0, 0, 0, 0});
  EXPECT_EQ(talk.Ask({30}).at(13), 12);
  EXPECT_EQ(talk.Ask({30}).at(14), 200);
  Write(talk, {36, 1, 2, 3, 0, 0, 0});
  EXPECT_EQ(talk.Ask({30}).at(13), 12);
}

TEST(Counters, CountTheStopsByTheirCodes) {
  Talk talk;
  talk.Machine.CauseFault(54);
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
  ASSERT_EQ(talk.PollToEnd(), 54);
  const Bytes page = talk.Ask({51, 0, 1});
  ASSERT_EQ(page.size(), 136U);
  EXPECT_EQ(page[2], 1);
  EXPECT_EQ(page[8 + 4 * (54 - 32) + 3], 1);
  EXPECT_EQ(std::accumulate(page.begin() + 8, page.end(), 0), 1);
  EXPECT_EQ(talk.Ask({51, 0, 7}).size(), 136U);
  EXPECT_TRUE(talk.Ask({51, 0, 8}).empty());
}

TEST(SensorOrgan, PhotoSensorsShowWhatCoversThem) {
  Talk talk;
  const Bytes open = Photos(talk);
  talk.Machine.Opened().Cover(1, true);
  talk.Machine.Opened().Cover(5, true);
  const Bytes covered = Photos(talk);
  EXPECT_EQ(covered.at(6) ^ open.at(6), 0x11);
  EXPECT_EQ(covered.at(6) & 0x1F, 0x11);
  EXPECT_NE(covered.at(1), open.at(1));
  EXPECT_EQ(covered.at(2), open.at(2));
  EXPECT_EQ(covered.at(5), covered.at(1));
  talk.Machine.Opened().Cover(1, false);
  talk.Machine.Opened().Cover(0, true);
  talk.Machine.Opened().Cover(6, true);
  EXPECT_EQ(Photos(talk).at(6) & 0x1F, 0x10);
}

TEST(SensorOrgan, FrontSwitchCoverAndBoard) {
  Talk talk;
  EXPECT_EQ(Photos(talk).at(6), 0x40) << "the cover is closed";
  talk.Machine.Opened().Set(Sensors::Switch::Front, true);
  talk.Machine.Opened().Set(Sensors::Switch::Cover, false);
  EXPECT_EQ(Photos(talk).at(6), 0x20);
  talk.Machine.InsertBoard(3);
  EXPECT_EQ(Photos(talk).at(6), 0xA0);
}

TEST(SensorOrgan, MotorsTurnWhileTheirOutputIsOn) {
  Talk talk;
  EXPECT_EQ(Speed(talk.Ask({27, 0}), 2), 0);
  Photos(talk, 1);
  talk.Machine.Opened().SetSpeed(2, 13000);
  talk.Machine.Opened().SetSpeed(3, 15999);
  talk.Machine.Opened().SetSpeed(4, 32768);
  const Bytes first = talk.Ask({27, 0});
  EXPECT_EQ(first.at(1), 0);
  EXPECT_EQ(Speed(first, 2), 14500);
  EXPECT_EQ(Speed(first, 4), 13000);
  const Bytes second = talk.Ask({27, 1});
  EXPECT_EQ(second.at(1), 1);
  EXPECT_EQ(Speed(second, 2), 15999);
  EXPECT_EQ(Speed(second, 4), 14500) << "32768 is no speed";
  Photos(talk, 0xFE);
  EXPECT_EQ(Speed(talk.Ask({27, 0}), 4), 0);
}

TEST(SensorOrgan, ClimateIsInTheStepsOfItsConverter) {
  Talk talk;
  // 25.3 degrees: (253 x 0.00195 + 0.4) / 0.00322265 = 277.2; 24.0 volts: 240 / 0.381884 = 628.5.
  const Bytes climate = talk.Ask({27, 2});
  EXPECT_EQ(256 * climate.at(3) + climate.at(2), 277);
  EXPECT_EQ(256 * climate.at(5) + climate.at(4), 628);
  talk.Machine.Opened().SetTemperature(0);
  talk.Machine.Opened().SetSupply(400);
  const Bytes changed = talk.Ask({27, 2});
  EXPECT_EQ(256 * changed.at(3) + changed.at(2), 124);   // 0.4 / 0.00322265 = 124.1
  EXPECT_EQ(256 * changed.at(5) + changed.at(4), 1047);  // 400 / 0.381884 = 1047.4
}

TEST(SensorOrgan, TheFlipPlateIsSeenInTheLightOfTheCamera) {
  Talk talk;
  for (const std::uint8_t selector : Bytes{0, 1, 2, 3, 4}) {
    EXPECT_EQ(talk.Ask({27, selector}).at(1), selector);
  }
  Photos(talk, 16);
  for (const std::uint8_t selector : Bytes{0, 1, 2, 3, 4}) {
    EXPECT_EQ(talk.Ask({27, selector}).at(1), 0x80 + selector);
  }
  talk.Machine.Opened().Set(Sensors::Switch::FlipPlate, false);
  EXPECT_EQ(talk.Ask({27, 4}).at(1), 4);
}

TEST(SensorOrgan, StatusFramesBeginWithTheirFirmware) {
  EXPECT_FALSE(TellsStatus(0x1F, 0));
  EXPECT_TRUE(TellsStatus(0x20, 0));
  EXPECT_TRUE(TellsStatus(0x20, 1));
  EXPECT_FALSE(TellsStatus(0x23, 2));
  EXPECT_TRUE(TellsStatus(0x24, 2));
  EXPECT_FALSE(TellsStatus(0x25, 3));
  EXPECT_TRUE(TellsStatus(0x26, 3));
  EXPECT_FALSE(TellsStatus(0x36, 4));
  EXPECT_TRUE(TellsStatus(0x37, 4));
}

TEST(SensorOrgan, ALaterMajorNumberKnowsAll) {
  Options options = Kind(0);
  options.FirmwareMajor = 3;
  Talk talk(options);
  for (const std::uint8_t selector : Bytes{0, 1, 2, 3, 4}) {
    EXPECT_EQ(talk.Ask({27, selector}).size(), 8U);
  }
  for (std::uint8_t subCode = 1; subCode <= 14; ++subCode) {
    EXPECT_EQ(talk.Ask({17, subCode}).size(), 8U);
  }
}

TEST(SensorOrgan, AFrameThatCanBeNoneSwitchesNothing) {
  Talk talk;
  EXPECT_TRUE(talk.Ask({23, 1, 2}).empty());
  EXPECT_EQ(talk.Machine.Opened().Outputs(), 0);
  EXPECT_TRUE(talk.Ask({27, 0, 1}).empty());
  EXPECT_EQ(talk.Ask({23, 1, 1}).size(), 8U);
  EXPECT_EQ(talk.Machine.Opened().Outputs(), 1);
}

TEST(SensorOrgan, APowerCycleSwitchesAllOutputsOff) {
  Talk talk;
  Photos(talk, 0xFF);
  talk.Machine.PowerOff();
  talk.Machine.PowerOn();
  EXPECT_EQ(talk.Machine.Opened().Outputs(), 0);
}

TEST(SensorOrgan, WhatHandsAndOutputsDoIsAChange) {
  Talk talk;
  std::uint64_t before = talk.Machine.Changed();
  Photos(talk, 3);
  EXPECT_NE(talk.Machine.Changed(), std::exchange(before, talk.Machine.Changed()));
  Photos(talk, 3);
  EXPECT_EQ(talk.Machine.Changed(), before);
  talk.Machine.Opened().Cover(2, true);
  EXPECT_NE(talk.Machine.Changed(), before);
}

TEST(Identity, BootAreaAndLogicHaveTheirVersions) {
  Talk talk;
  const Bytes boot = talk.Ask({50});
  ASSERT_EQ(boot.size(), 136U);
  EXPECT_EQ(boot[0], 178);
  EXPECT_EQ(boot[2], 0);
  EXPECT_EQ(boot[40], 1);
  EXPECT_EQ(boot[41], 0x20);
  EXPECT_EQ(talk.Ask({35}).at(1), 37);
  EXPECT_TRUE(talk.Ask({50, 0, 1}).empty());
  EXPECT_TRUE(talk.Ask({35, 1}).empty());
}

TEST(Identity, TheProcessorTellsItsOwnInTwoHalves) {
  Talk talk;
  const Bytes first = talk.Ask({20, 1, 0, 0, 0, 0, 0});
  EXPECT_EQ(Bytes(first.begin(), first.begin() + 7), (Bytes{20, 1, 0x8A, 0x41, 0x07, 0xD3, 0}));
  const Bytes second = talk.Ask({20, 2, 0, 0, 0, 0, 0});
  EXPECT_EQ(Bytes(second.begin(), second.begin() + 7), (Bytes{20, 2, 0x0C, 0x95, 0xE2, 0x36, 0}));
  EXPECT_TRUE(talk.Ask({20, 0}).empty());
  EXPECT_TRUE(talk.Ask({20, 3}).empty());
  EXPECT_TRUE(talk.Ask({20, 1, 0, 0, 0, 0, 1}).empty());
}

TEST(Identity, TheSetsStandsInEveryTenthByteOfItsArea) {
  Talk talk;
  const Bytes reply = talk.Ask({50, 0, 224, 0, 0, 0, 0});
  ASSERT_EQ(reply.size(), 136U);
  EXPECT_EQ(reply[0], 178);
  EXPECT_EQ(reply[2], 224);
  Bytes identity;
  for (std::size_t at = 18; at <= 88; at += 10) identity.push_back(reply[at]);
  EXPECT_EQ(identity, (Bytes{0x4D, 0xB8, 0x01, 0x6F, 0xF0, 0x0A, 0x23, 0xC7}));
  EXPECT_EQ(reply[19], 0);
  EXPECT_EQ(reply[98], 0);
  EXPECT_TRUE(talk.Ask({50, 1, 224}).empty());
  EXPECT_TRUE(talk.Ask({50, 0, 225}).empty());
  EXPECT_TRUE(talk.Ask({50, 0, 224, 1}).empty());
}

TEST(Identity, WithoutFirmwareOnlyWhatLoadingNeedsIsAnswered) {
  Options options = Talk::Fast();
  options.BootMajor = options.BootMinor = 0;
  Talk talk(options);
  const Bytes version = talk.Ask({26});
  EXPECT_EQ(version.at(3), 0);
  EXPECT_EQ(version.at(4), 0);
  EXPECT_EQ(talk.Ask({50}).size(), 136U);
  EXPECT_EQ(talk.Ask({35}).size(), 8U);
  EXPECT_EQ(talk.Ask({23, 0, 0}).size(), 8U);
  EXPECT_EQ(talk.Ask({27, 4}).size(), 8U);
  for (const std::uint8_t code : Bytes{17, 18, 20, 25, 29, 30, 32, 51}) {
    EXPECT_TRUE(talk.Ask({code, 1}).empty()) << int{code};
  }
}

}  // namespace
}  // namespace morvane::simulator
