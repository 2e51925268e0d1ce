// The frames of the machine's service against their tables on paper.

#include <gmock/gmock.h>

#include "support/scripted_bridge.h"
#include "wire/service_commands.h"

namespace morvane::wire {
namespace {

using test::Bytes;
using ::testing::ElementsAre;

constexpr std::uint8_t kFiller = 0xEE;

/// Bytes 0 to 6 of the command; byte 7 is never touched.
template <typename Command>
Bytes Plain(const Command& command) {
  Frame frame;
  frame.fill(kFiller);
  Put(command, frame);
  EXPECT_EQ(frame[7], kFiller);
  EXPECT_EQ(frame[8], kFiller);
  return {frame.begin(), frame.begin() + 7};
}

constexpr std::uint8_t kR = kFiller;

TEST(ServiceCommands, ReadFramesNameTheirSubCodeAndAreFillerBehindIt) {
  using enum CardIndex;
  EXPECT_THAT(Plain(ReadBlock<PositionBlock>(Standard)), ElementsAre(17, 1, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ReadBlock<SymbolBlock>(Standard)), ElementsAre(17, 2, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ReadBlock<SuitBlock>(Standard)), ElementsAre(17, 3, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ReadBlock<SwitchAnswer>(Standard)), ElementsAre(17, 4, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ReadBlock<PositionBlock>(Jumbo)), ElementsAre(17, 5, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ReadBlock<SymbolBlock>(Jumbo)), ElementsAre(17, 6, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ReadBlock<SuitBlock>(Jumbo)), ElementsAre(17, 7, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ReadBlock<SwitchAnswer>(Jumbo)), ElementsAre(17, 8, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ReadBlock<PositionBlock>(Small)), ElementsAre(17, 10, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ReadBlock<SymbolBlock>(Small)), ElementsAre(17, 11, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ReadBlock<SuitBlock>(Small)), ElementsAre(17, 12, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ReadBlock<SwitchAnswer>(Small)), ElementsAre(17, 13, kR, kR, kR, kR, kR));
}

TEST(ServiceCommands, BlocksOfTheWholeMachineHaveOneSubCodeForEveryIndex) {
  for (const CardIndex index : {CardIndex::Standard, CardIndex::Jumbo, CardIndex::Small}) {
    EXPECT_THAT(Plain(ReadBlock<ThresholdBlock>(index)), ElementsAre(17, 9, kR, kR, kR, kR, kR));
    EXPECT_THAT(Plain(ReadBlock<VideoBlock>(index)), ElementsAre(17, 14, kR, kR, kR, kR, kR));
  }
}

TEST(ServiceCommands, AWrittenPositionIsThatOfTheViewAndThenTheStartPoint) {
  const PositionBlock values{.PosX = 11, .PosY = 12, .StartX = 13, .StartY = 14};
  EXPECT_THAT(Plain(WriteBlock(CardIndex::Standard, values)),
              ElementsAre(19, 1, 11, 12, 13, 14, kR));
  EXPECT_THAT(Plain(WriteBlock(CardIndex::Jumbo, values)), ElementsAre(19, 5, 11, 12, 13, 14, kR));
  EXPECT_THAT(Plain(WriteBlock(CardIndex::Small, values)), ElementsAre(19, 10, 11, 12, 13, 14, kR));
}

TEST(ServiceCommands, WrittenLimitsHaveTheLargestSizeFirst) {
  const SizeLimits limits{.MaxX = 40, .MaxY = 60, .MinX = 20, .MinY = 30};
  EXPECT_THAT(Plain(WriteBlock(CardIndex::Standard, SymbolBlock{limits})),
              ElementsAre(19, 2, 40, 60, 20, 30, kR));
  EXPECT_THAT(Plain(WriteBlock(CardIndex::Small, SuitBlock{limits})),
              ElementsAre(19, 12, 40, 60, 20, 30, kR));
}

TEST(ServiceCommands, WrittenSwitchesHaveAByteEach) {
  const auto write = [](SwitchBlock values) {
    return Plain(WriteBlock(CardIndex::Standard, values));
  };
  EXPECT_THAT(write({.IgnoreFlip = true}), ElementsAre(19, 4, 1, 0, 0, 0, kR));
  EXPECT_THAT(write({.IgnoreBox = true}), ElementsAre(19, 4, 0, 1, 0, 0, kR));
  EXPECT_THAT(write({.UseBoard = true}), ElementsAre(19, 4, 0, 0, 1, 0, kR));
  EXPECT_THAT(Plain(WriteBlock(CardIndex::Jumbo, SwitchBlock{true, true, true})),
              ElementsAre(19, 8, 1, 1, 1, 0, kR));
}

TEST(ServiceCommands, WrittenThresholdsAreBoldThenFineAndTheOptionLast) {
  const ThresholdBlock values{
      .BoldSymbol = 10, .BoldSuit = 90, .FineSymbol = 50, .FineSuit = 60, .RecoOption = 255};
  EXPECT_THAT(Plain(WriteBlock(CardIndex::Jumbo, values)), ElementsAre(19, 9, 10, 90, 50, 60, 255));
}

TEST(ServiceCommands, WrittenVideoValuesEndInZerosAndATrialIsMarked) {
  EXPECT_THAT(Plain(WriteBlock(CardIndex::Small,
                               VideoBlock{.Brightness = 128, .Contrast = 64, .BoardSen = 180})),
              ElementsAre(19, 14, 128, 64, 180, 0, 0));
  EXPECT_THAT(Plain(WriteBlock(CardIndex::Standard, VideoBlock{.BoardSen = 254, .Trial = true})),
              ElementsAre(19, 14, 0, 0, 254, 1, 0));
}

TEST(ServiceCommands, ATrialReachesTheEndsOfTheScale) {
  const auto trial = [](std::uint8_t sensitivity) {
    return Plain(WriteBlock(CardIndex::Standard, VideoBlock{0, 0, sensitivity, true}));
  };
  EXPECT_THAT(trial(255), ElementsAre(19, 14, 0, 0, 255, 1, 0));
  EXPECT_THAT(trial(20), ElementsAre(19, 14, 0, 0, 20, 1, 0));
}

TEST(ServiceCommands, OutputsAreABitEach) {
  EXPECT_THAT(Plain(OutputsCommand{.Outputs = OutputsCommand::kMotors}),
              ElementsAre(23, 1, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(OutputsCommand{.Outputs = OutputsCommand::kGate1}),
              ElementsAre(23, 2, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(OutputsCommand{.Outputs = OutputsCommand::kGate2}),
              ElementsAre(23, 4, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(OutputsCommand{.Outputs = OutputsCommand::kGate3}),
              ElementsAre(23, 8, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(OutputsCommand{.Outputs = OutputsCommand::kCamLeds}),
              ElementsAre(23, 16, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(OutputsCommand{.Outputs = OutputsCommand::kCamPower}),
              ElementsAre(23, 32, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(OutputsCommand{.Outputs = OutputsCommand::kFrontGreenLed}),
              ElementsAre(23, 64, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(OutputsCommand{.Outputs = OutputsCommand::kFrontRedLed, .Feed = true}),
              ElementsAre(23, 128, 1, kR, kR, kR, kR));
}

TEST(ServiceCommands, StatusFramesNameTheirSelector) {
  EXPECT_THAT(Plain(kMotors1And2), ElementsAre(27, 0, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(kMotors3And4), ElementsAre(27, 1, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(kClimate), ElementsAre(27, 2, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(kSpareSensor), ElementsAre(27, 3, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(kLabelSensor), ElementsAre(27, 4, 0, kR, kR, kR, kR));
}

TEST(ServiceCommands, TheBoardSwitchIsAskedInAFrameWithoutFiller) {
  EXPECT_THAT(Plain(BoardSensorCommand{}), ElementsAre(27, 5, 0, 0, 0, 0, 0));
}

TEST(ServiceCommands, WhatTheMachineIsIsAskedInFramesOfItsOwn) {
  EXPECT_THAT(Plain(ServiceVersionCommand{}), ElementsAre(26, kR, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ServiceIdentityCommand{1}), ElementsAre(18, 1, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ServiceIdentityCommand{2}), ElementsAre(18, 2, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(CounterPageCommand{7}), ElementsAre(51, 0, 7, kR, kR, kR, kR));
  EXPECT_THAT(Plain(BootAreaCommand{}), ElementsAre(50, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(Plain(LogicVersionCommand{}), ElementsAre(35, 0, 0, 0, 0, 0, 0));
}

TEST(ServiceCommands, FramesThatOnlyWriteHaveNoFillerThatCouldSaySomething) {
  EXPECT_THAT(Plain(TestWriteCommand{12, 200}), ElementsAre(36, 12, 200, 0, 0, 0, 0));
  EXPECT_THAT(Plain(SetCounterCommand{0x01020304}), ElementsAre(52, 0, 1, 2, 3, 4, 99));
}

TEST(ServiceReplies, ParametersStandWhereTheyAreWritten) {
  const auto positions = Get<ParametersReply<PositionBlock>>({17, 10, 11, 12, 13, 14, kR});
  EXPECT_EQ(positions.SubCode, 10);
  EXPECT_EQ(positions.Values, (PositionBlock{.PosX = 11, .PosY = 12, .StartX = 13, .StartY = 14}));
  const auto suit = Get<ParametersReply<SuitBlock>>({17, 3, 40, 60, 20, 30, kR});
  EXPECT_EQ(suit.Values.Limits, (SizeLimits{.MaxX = 40, .MaxY = 60, .MinX = 20, .MinY = 30}));
  const auto thresholds = Get<ParametersReply<ThresholdBlock>>({17, 9, 1, 2, 3, 4, 5});
  EXPECT_EQ(thresholds.Values,
            (ThresholdBlock{
                .BoldSymbol = 1, .BoldSuit = 2, .FineSymbol = 3, .FineSuit = 4, .RecoOption = 5}));
  const auto video = Get<ParametersReply<VideoBlock>>({17, 14, 128, 64, 180, 0, 0});
  EXPECT_EQ(video.Values, (VideoBlock{.Brightness = 128, .Contrast = 64, .BoardSen = 180}));
}

TEST(ServiceReplies, SwitchesAreAnsweredInBitsOfByte4BehindTheNumberOfTheRecord) {
  const auto get = [](std::uint8_t bits) {
    return Get<ParametersReply<SwitchAnswer>>({17, 8, 0x12, 0x34, bits, kR, kR}).Values;
  };
  EXPECT_EQ(get(0).ParamId, 0x1234);
  EXPECT_TRUE(get(1).IgnoreFlip);
  EXPECT_FALSE(get(0xFE).IgnoreFlip);
  EXPECT_TRUE(get(2).IgnoreBox);
  EXPECT_FALSE(get(0xFD).IgnoreBox);
  EXPECT_TRUE(get(4).UseBoard);
  EXPECT_FALSE(get(0xFB).UseBoard);
}

TEST(ServiceReplies, PhotoSensorsAndSwitches) {
  const auto photos = Get<PhotoReply>({23, 1, 2, 3, 4, 255, 0xA4});
  EXPECT_THAT(photos.Photo, ElementsAre(0, 1, 2, 3, 4, 255));
  EXPECT_EQ(photos.Switches, 0xA4);
  EXPECT_EQ(PhotoReply::PhotoBit(1), 1);
  EXPECT_EQ(PhotoReply::PhotoBit(5), 16);
  EXPECT_EQ(PhotoReply::kFrontSwitch, 32);
  EXPECT_EQ(PhotoReply::kCoverSwitch, 64);
  EXPECT_EQ(PhotoReply::kBoxSwitch, 128);
}

TEST(ServiceReplies, WhatIsMeasuredIsLeastSignificantByteFirst) {
  // 32767 - (256 x byte 3 + byte 2): 32767 - 18767 = 14000, 18767 = 73 x 256 + 79.
  const auto motors = Get<MotorReply>({27, 0, 79, 73, 0xFF, 0x7F});
  EXPECT_EQ(MotorReply::kStill - motors.First, 14000);
  EXPECT_EQ(MotorReply::kStill - motors.Second, 0);
  const auto climate = Get<ClimateReply>({27, 2, 0x15, 0x01, 0x58, 0x02});
  EXPECT_EQ(climate.Temperature, 277);
  EXPECT_EQ(climate.Supply, 600);
}

TEST(ServiceReplies, EachStatusAnswerTellsTheFlipPlateInTheTopBitOfItsSelector) {
  EXPECT_TRUE(Get<MotorReply>({27, 0x81}).Head.FlipPlate);
  EXPECT_EQ(Get<MotorReply>({27, 0x81}).Head.Selector, 1);
  EXPECT_EQ(Get<MotorReply>({27, 0xC1}).Head.Selector, 1) << "six bits count";
  EXPECT_FALSE(Get<ClimateReply>({27, 0x42}).Head.FlipPlate);
  EXPECT_EQ(Get<ClimateReply>({27, 0x42}).Head.Selector, 2);
  EXPECT_TRUE(Get<SpareSensorReply>({27, 0x83}).Head.FlipPlate);
  const auto label = Get<LabelReply>({27, 0x84, 27});
  EXPECT_TRUE(label.Head.FlipPlate);
  EXPECT_EQ(label.Label, 27);
}

TEST(ServiceReplies, TheBoardSwitchSaysWhetherItSeesABoard) {
  EXPECT_EQ(Get<BoardSensorReply>({27, 5, 1}).Seen, 1);
  EXPECT_EQ(Get<BoardSensorReply>({27, 5, 0}).Seen, 0);
  const auto flipped = Get<BoardSensorReply>({27, 0x85, 1});
  EXPECT_EQ(flipped.Seen, 1);
  EXPECT_TRUE(flipped.Head.FlipPlate);
  EXPECT_TRUE(BoardSensorCommand{}.IsEchoedBy(flipped));
  EXPECT_TRUE(BoardSensorCommand{}.IsEchoedBy(Get<BoardSensorReply>({27, 0xC5})));
  EXPECT_FALSE(BoardSensorCommand{}.IsEchoedBy(Get<BoardSensorReply>({27, 4, 1})));
  EXPECT_FALSE(BoardSensorCommand{}.IsEchoedBy(Get<BoardSensorReply>({27, 0x25, 1})));
}

TEST(ServiceReplies, VersionsOfLogicAndBootArea) {
  EXPECT_EQ(Get<LogicVersionReply>({35, 37}).Version, 37);
  Frame frame{178, 0, 224};
  frame[40] = 1;
  frame[41] = 0x20;
  const auto boot = Get<BootAreaReply>(frame);
  EXPECT_EQ(boot.Area, 224);
  EXPECT_EQ(boot.BootMajor, 1);
  EXPECT_EQ(boot.BootMinor, 0x20);
}

TEST(ServiceReplies, ACounterPageHas32NumbersHighByteFirst) {
  Frame frame{179, 0, 3};
  for (std::size_t at = 8; at < 136; ++at) frame[at] = static_cast<std::uint8_t>(at - 8);
  const auto page = Get<CounterPageReply>(frame);
  EXPECT_EQ(page.Page, 3);
  EXPECT_EQ(page.Counters[0], 0x00010203U);
  EXPECT_EQ(page.Counters[1], 0x04050607U);
  EXPECT_EQ(page.Counters[31], 0x7C7D7E7FU);
}

TEST(ServiceReplies, AVerdictIsTimeRankSuitThresholdAndError) {
  const auto verdict = Get<VerdictReply>({21, 1, 4, 14, 3, 55, 25});
  EXPECT_EQ(verdict.Time, 260);
  EXPECT_EQ(verdict.Rank, 14);
  EXPECT_EQ(verdict.Suit, 3);
  EXPECT_EQ(verdict.Threshold, 55);
  EXPECT_EQ(verdict.Error, 25);
}

template <typename F>
Frame PutBack(const Frame& frame) {
  Frame copy{};
  Put(Get<F>(frame), copy);
  return copy;
}

TEST(ServiceReplies, PutGivesBackWhatGetTook) {
  const Frame switches{17, 4, 0x12, 0x34, 7};
  EXPECT_EQ(PutBack<ParametersReply<SwitchAnswer>>(switches), switches);
  const Frame photos{23, 1, 2, 3, 4, 5, 0xE1};
  EXPECT_EQ(PutBack<PhotoReply>(photos), photos);
  const Frame motors{27, 0x81, 79, 73, 1, 2};
  EXPECT_EQ(PutBack<MotorReply>(motors), motors);
  const Frame climate{27, 2, 1, 2, 3, 4};
  EXPECT_EQ(PutBack<ClimateReply>(climate), climate);
  const Frame label{27, 0x84, 27};
  EXPECT_EQ(PutBack<LabelReply>(label), label);
  const Frame logic{35, 37};
  EXPECT_EQ(PutBack<LogicVersionReply>(logic), logic);
  Frame boot{178};
  boot[40] = 1;
  boot[41] = 2;
  EXPECT_EQ(PutBack<BootAreaReply>(boot), boot);
  Frame page{179, 0, 1};
  for (std::size_t at = 8; at < 136; ++at) page[at] = static_cast<std::uint8_t>(200 - at);
  EXPECT_EQ(PutBack<CounterPageReply>(page), page);
  const Frame verdict{21, 1, 2, 14, 3, 4, 5};
  EXPECT_EQ(PutBack<VerdictReply>(verdict), verdict);
  const Frame write{19, 14, 1, 2, 3, 1, 0};
  EXPECT_EQ(PutBack<WriteParametersCommand<VideoBlock>>(write), write);
  const Frame counter{52, 0, 1, 2, 3, 4, 99};
  EXPECT_EQ(PutBack<SetCounterCommand>(counter), counter);
}

}  // namespace
}  // namespace morvane::wire
