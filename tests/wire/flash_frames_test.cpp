#include <gtest/gtest.h>

#include "wire/flash_commands.h"
#include "wire/replies.h"

namespace morvane::wire {
namespace {

template <typename Command>
Frame PutOver(const Command& command, std::uint8_t filler) {
  Frame frame;
  frame.fill(filler);
  Put(command, frame);
  return frame;
}

TEST(FlashCommands, AStartIs41And95AndFiller) {
  const Frame frame = PutOver(StartDownloadCommand{}, 7);
  EXPECT_EQ((std::array{frame[0], frame[1], frame[2], frame[6]}),
            (std::array<std::uint8_t, 4>{41, 95, 7, 7}));
}

TEST(FlashCommands, ABlockIs170And98ItsNumberHighByteFirstFillerAnd128Bytes) {
  FlashBlockCommand block{0x2FE};
  block.Content.front() = 11;
  block.Content.back() = 12;
  const Frame frame = PutOver(block, 7);
  EXPECT_EQ((std::array{frame[0], frame[1], frame[2], frame[3], frame[4], frame[6]}),
            (std::array<std::uint8_t, 6>{170, 98, 2, 0xFE, 7, 7}));
  EXPECT_EQ(frame[8], 11);
  EXPECT_EQ(frame[9], 0);
  EXPECT_EQ(frame[135], 12);
  EXPECT_EQ(Get<FlashBlockCommand>(frame).Block, 0x2FE);
  EXPECT_EQ(FrameSize(CodeOf(frame)), kLongFrame);
}

TEST(FlashCommands, TheRecordsBlockIsErasedBy44And93) {
  const Frame frame = PutOver(EraseRecordCommand{}, 7);
  EXPECT_EQ((std::array{frame[0], frame[1], frame[2], frame[3], frame[4], frame[5], frame[6]}),
            (std::array<std::uint8_t, 7>{44, 93, 0, 192, 0, 0, 0}));
}

TEST(FlashCommands, TheRecordIsWrittenHighByteFirstAndTheRestStaysRandom) {
  const Frame frame =
      PutOver(WriteRecordCommand{.Block = {}, .Record = {0x1234, 0x0065, 31, 12, 2019}}, 7);
  EXPECT_EQ((std::array{frame[0], frame[1], frame[2], frame[3], frame[4], frame[5], frame[6]}),
            (std::array<std::uint8_t, 7>{173, 92, 0, 192, 0, 0, 0}));
  EXPECT_EQ((std::array{frame[8], frame[9], frame[10], frame[11], frame[12], frame[13], frame[14],
                        frame[15], frame[16], frame[135]}),
            (std::array<std::uint8_t, 10>{0x12, 0x34, 0x00, 0x65, 31, 12, 0x07, 0xE3, 7, 7}));
  EXPECT_EQ(Get<ManufacturingRecord>(frame), (ManufacturingRecord{0x1234, 0x65, 31, 12, 2019}));
}

TEST(FlashCommands, TheErrorsAreErasedBy43And90) {
  const Frame frame = PutOver(EraseErrorsCommand{}, 7);
  EXPECT_EQ((std::array{frame[0], frame[1], frame[2], frame[3], frame[4], frame[5], frame[6]}),
            (std::array<std::uint8_t, 7>{43, 90, 0, 99, 99, 99, 99}));
}

TEST(FlashReplies, ADownloadIsAnsweredUnderFourCodesAndNoOther) {
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(Answers<DownloadReply>(static_cast<std::uint8_t>(code)),
              code == 41 || code == 42 || code == 44 || code == 45)
        << code;
  }
  EXPECT_EQ(Get<DownloadReply>({45, 3}).Status, 3);
}

TEST(FlashReplies, TheOthersHaveACodeEach) {
  EXPECT_TRUE(Answers<EraseErrorsReply>(43));
  EXPECT_FALSE(Answers<EraseErrorsReply>(44));
  EXPECT_TRUE(Answers<EraseRecordReply>(44));
  EXPECT_FALSE(Answers<EraseRecordReply>(45));
  EXPECT_TRUE(Answers<WriteRecordReply>(45));
  EXPECT_EQ(Get<EraseErrorsReply>({43, 9}).Status, 9);
}

}  // namespace
}  // namespace morvane::wire
