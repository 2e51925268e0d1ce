// What the factory writes into a machine, and what the machine counts, against frames on paper.

#include <gmock/gmock.h>

#include "simulator/talk.h"

namespace morvane::simulator {
namespace {

using ::testing::ElementsAre;

const Bytes kEraseRecord{44, 93, 0, 192, 0, 0, 0};
const Bytes kEraseErrors{43, 90, 0, 99, 99, 99, 99};

/// Serial number 1234 (4D2h), the hardware's low byte, 31 December 2024 (7E8h); the rest is random.
Bytes WriteRecord(std::uint8_t hardware) {
  Bytes frame(136, 0xA5);
  const Bytes head{173, 92, 0, 192, 0, 0, 0, 0, 0x04, 0xD2, 0, hardware, 31, 12, 0x07, 0xE8};
  std::copy(head.begin(), head.end(), frame.begin());
  return frame;
}

Bytes Page(Talk& talk, std::uint8_t page) {
  const Bytes reply = talk.Ask({18, page, 0});
  return {reply.at(2), reply.at(3), reply.at(4), reply.at(5)};
}

int StatusOf(Talk& talk, const Bytes& frame) {
  const Bytes reply = talk.Ask(frame);
  return reply.size() == 8 ? reply[1] : -1;
}

/// Counter `at` of a page.
unsigned Counter(Talk& talk, std::uint8_t page, std::size_t at) {
  const Bytes reply = talk.Ask({51, 0, page});
  unsigned value = 0;
  for (std::size_t i = 0; i < 4; ++i) value = value * 256 + reply.at(8 + 4 * at + i);
  return value;
}

/// Begins a board whose first card stops it.
void StopWith(Talk& talk, int code) {
  talk.Machine.CauseFault(code);
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
  EXPECT_EQ(talk.PollToEnd(), code);
}

void DealOne(Talk& talk) {
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(2))));
  EXPECT_EQ(talk.PollToEnd(), 0);
}

TEST(FactoryFrames, TheRecordIsErasedAndWritten) {
  Talk talk;
  EXPECT_THAT(Page(talk, 1), ElementsAre(0x12, 0x67, 0, 0x7F));
  EXPECT_THAT(talk.Ask(kEraseRecord), ElementsAre(44, 0, 0, 0, 0, 0, 0, 255 - 44));
  EXPECT_THAT(Page(talk, 1), ElementsAre(255, 255, 255, 255));
  EXPECT_THAT(Page(talk, 2), ElementsAre(255, 255, 255, 255));
  EXPECT_THAT(talk.Ask(WriteRecord(0x3F)), ElementsAre(45, 0, 0, 0, 0, 0, 0, 255 - 45));
  EXPECT_THAT(Page(talk, 1), ElementsAre(0x04, 0xD2, 0, 0x3F));
  EXPECT_THAT(Page(talk, 2), ElementsAre(31, 12, 0x07, 0xE8));
}

TEST(FactoryFrames, ARecordIsWrittenOnlyBehindAnErase) {
  Talk talk;
  EXPECT_EQ(StatusOf(talk, WriteRecord(0x3F)), 1);
  EXPECT_THAT(Page(talk, 1), ElementsAre(0x12, 0x67, 0, 0x7F));
  EXPECT_EQ(StatusOf(talk, kEraseRecord), 0);
  EXPECT_EQ(StatusOf(talk, WriteRecord(0x3F)), 0);
  EXPECT_EQ(StatusOf(talk, WriteRecord(0x3F)), 0) << "the same, because its answer was lost";
  EXPECT_EQ(StatusOf(talk, WriteRecord(0x7F)), 1);
  EXPECT_THAT(Page(talk, 1), ElementsAre(0x04, 0xD2, 0, 0x3F));
  EXPECT_EQ(StatusOf(talk, kEraseRecord), 0);
  EXPECT_EQ(StatusOf(talk, WriteRecord(0x7F)), 0);
}

TEST(FactoryFrames, TheHardwareIsThatOfTheRecordAtOnce) {
  Talk talk;
  talk.Machine.InsertBoard(1);
  EXPECT_EQ(talk.Ask({27, 4}).at(2), 0x0F);
  EXPECT_FALSE(talk.Ask({17, 5}).empty()) << "Jumbo";
  EXPECT_EQ(StatusOf(talk, kEraseRecord), 0);
  EXPECT_EQ(StatusOf(talk, WriteRecord(0x73)), 0);  // bits 2 and 3 are clear
  EXPECT_EQ(talk.Ask({27, 4}).at(2), 0);
  EXPECT_TRUE(talk.Ask({17, 5}).empty());
}

TEST(FactoryFrames, APowerCycleLeavesTheRecord) {
  Talk talk;
  EXPECT_EQ(StatusOf(talk, kEraseRecord), 0);
  EXPECT_EQ(StatusOf(talk, WriteRecord(0x3F)), 0);
  talk.Machine.PowerOff();
  talk.Machine.PowerOn();
  EXPECT_THAT(Page(talk, 1), ElementsAre(0x04, 0xD2, 0, 0x3F));
}

TEST(FactoryFrames, APlannedStatusOfTheRecordHappensOnceAndProgramsNothing) {
  Options options = Talk::Fast();
  options.FlashFaults = {{FlashFault::kEraseRecord, 6}, {FlashFault::kWriteRecord, 9}};
  Talk talk(options);
  EXPECT_EQ(StatusOf(talk, kEraseRecord), 6);
  EXPECT_THAT(Page(talk, 1), ElementsAre(0x12, 0x67, 0, 0x7F));
  EXPECT_EQ(StatusOf(talk, kEraseRecord), 0);
  EXPECT_EQ(StatusOf(talk, WriteRecord(0x3F)), 9);
  EXPECT_THAT(Page(talk, 1), ElementsAre(255, 255, 255, 255));
  EXPECT_EQ(StatusOf(talk, WriteRecord(0x3F)), 0);
}

TEST(FactoryFrames, FramesThatCanBeNoneAreNotAnsweredAndDoNothing) {
  Talk talk;
  for (Bytes plain : {kEraseRecord, kEraseErrors, WriteRecord(1)}) {
    plain[1] = 91;
    EXPECT_TRUE(talk.Ask(plain).empty()) << int{plain[0]};
    plain[1] = plain[0] == 173 ? 92 : plain[0] == 44 ? 93 : 90;
    plain[3] = 98;
    EXPECT_TRUE(talk.Ask(plain).empty()) << int{plain[0]};
  }
  EXPECT_THAT(Page(talk, 1), ElementsAre(0x12, 0x67, 0, 0x7F));
}

TEST(FactoryFrames, AMachineWithoutFirmwareAnswersNoneOfThem) {
  Options options = Talk::Fast();
  options.BootMajor = options.BootMinor = 0;
  Talk talk(options);
  for (const Bytes& plain : {kEraseRecord, kEraseErrors, WriteRecord(1)}) {
    EXPECT_TRUE(talk.Ask(plain).empty()) << int{plain[0]};
  }
}

// Code 34 is counter 2 of page 1, code 240 is counter 16 of page 7.
TEST(FactoryFrames, StopsAreCountedByTheirCode) {
  Talk talk;
  StopWith(talk, 5);
  StopWith(talk, 34);
  StopWith(talk, 34);
  StopWith(talk, 240);
  EXPECT_EQ(Counter(talk, 0, 5), 1U);
  EXPECT_EQ(Counter(talk, 0, 6), 0U);
  EXPECT_EQ(Counter(talk, 1, 2), 2U);
  EXPECT_EQ(Counter(talk, 7, 16), 1U);
  EXPECT_EQ(Counter(talk, 7, 31), 0U) << "no code";
  EXPECT_EQ(Counter(talk, 0, 0), 0U) << "no board was dealt";
}

TEST(FactoryFrames, ErasingTheErrorsLeavesTheBoards) {
  Talk talk;
  StopWith(talk, 34);
  DealOne(talk);
  EXPECT_THAT(talk.Ask(kEraseErrors), ElementsAre(43, 0, 0, 0, 0, 0, 0, 255 - 43));
  EXPECT_EQ(Counter(talk, 1, 2), 0U);
  EXPECT_EQ(Counter(talk, 0, 0), 1U);
  EXPECT_THAT(Page(talk, 1), ElementsAre(0x12, 0x67, 0, 0x7F));
}

TEST(FactoryFrames, AnEraseOfTheErrorsThatFailsEveryTime) {
  Options options = Talk::Fast();
  options.EraseStatus = 8;
  Talk talk(options);
  StopWith(talk, 34);
  EXPECT_EQ(StatusOf(talk, kEraseErrors), 8);
  EXPECT_EQ(StatusOf(talk, kEraseErrors), 8);
  EXPECT_EQ(Counter(talk, 1, 2), 1U);
}

TEST(FactoryFrames, SettingTheBoardsLeavesTheErrors) {
  Talk talk;
  StopWith(talk, 34);
  talk.Write(ToWire({52, 0, 0, 1, 0, 2, 99}));
  EXPECT_EQ(Counter(talk, 0, 0), 65538U);
  EXPECT_EQ(Counter(talk, 1, 2), 1U);
  DealOne(talk);
  EXPECT_EQ(Counter(talk, 0, 0), 65539U);
}

}  // namespace
}  // namespace morvane::simulator
