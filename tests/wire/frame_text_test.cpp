#include "wire/frame_text.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace morvane::wire {
namespace {

/// A plain frame that begins with these bytes.
Frame Of(std::initializer_list<std::uint8_t> bytes) {
  Frame frame{};
  std::copy(bytes.begin(), bytes.end(), frame.begin());
  return frame;
}

TEST(FrameText, EveryCommandHasItsNameAndWhatItAsks) {
  EXPECT_EQ(CommandText(Of({0x19, 0})), "CmdStatus");
  EXPECT_EQ(CommandText(Of({0x19, 1})), "CmdStatus break");
  EXPECT_EQ(CommandText(Of({0x19, 6})), "CmdStatus pedal seen board seen");
  EXPECT_EQ(CommandText(Of({0x1A, 0})), "CmdVersion");
  EXPECT_EQ(CommandText(Of({0x12, 1})), "CmdIdentity page 1");
  EXPECT_EQ(CommandText(Of({0x33, 0, 0})), "CmdCounter 0");
  EXPECT_EQ(CommandText(Of({0x1B, 4})), "CmdSensor label");
  EXPECT_EQ(CommandText(Of({0x1B, 2})), "CmdSensor 2");
  EXPECT_EQ(CommandText(Of({0x98, 0})), "CmdDeal begin");
  EXPECT_EQ(CommandText(Of({0x98, 1})), "CmdDeal go on");
  EXPECT_EQ(CommandText(Of({0x9C, 0})), "CmdRead begin");
  EXPECT_EQ(CommandText(Of({0x35, 1})), "CmdSort go on");
  EXPECT_EQ(CommandText(Of({0x9F, 52})), "CmdRoute 52 cards, any order");
  EXPECT_EQ(CommandText(Of({0x9F, 28, 0, 0, 0, 0, 0, 0, 127})), "CmdRoute 28 cards in order");
  EXPECT_EQ(CommandText(Of({0x9F, 1})), "CmdRoute 1 card, any order");
  EXPECT_EQ(CommandText(Of({0x1D})), "CmdFetchBoard");
  EXPECT_EQ(CommandText(Of({0x20})), "CmdFetchLog");
  EXPECT_EQ(CommandText(Of({0x1E})), "CmdTest");
}

TEST(FrameText, TheServiceHasItsNamesToo) {
  EXPECT_EQ(CommandText(Of({0x11, 9})), "CmdReadParameters 9");
  EXPECT_EQ(CommandText(Of({0x13, 14})), "CmdWriteParameters 14");
  EXPECT_EQ(CommandText(Of({0x17, 0x31})), "CmdOutputs 0x31");
  EXPECT_EQ(CommandText(Of({0x17, 0x31, 1})), "CmdOutputs 0x31 feed");
  EXPECT_EQ(CommandText(Of({0x23})), "CmdLogicVersion");
  EXPECT_EQ(CommandText(Of({0x24})), "CmdTestWrite");
  EXPECT_EQ(CommandText(Of({0x32})), "CmdStoredData of the boot area");
  EXPECT_EQ(CommandText(Of({0x34})), "CmdSetCounter");
  EXPECT_EQ(ReplyText(Of({0x11, 9})), "parameters 9");
  EXPECT_EQ(ReplyText(Of({0x17, 1, 2, 3, 4, 255, 0x81})),
            "photo sensors: 1 2 3 4 255, switches 0x81");
  EXPECT_EQ(ReplyText(Of({0x23, 37})), "logic version");
  EXPECT_EQ(ReplyText(Of({0xB2})), "stored data of the boot area");
  EXPECT_EQ(ReplyText(Of({0x15, 1, 2, 14, 3, 46, 0})), "verdict: rank 14, suit 3");
  EXPECT_EQ(ReplyText(Of({0x15, 1, 2, 14, 3, 46, 61})), "verdict: code 61");
}

TEST(FrameText, WhatTheServiceFileAsksHasItsNamesToo) {
  EXPECT_EQ(CommandText(Of({0x14, 2})), "CmdDieIdentity half 2");
  EXPECT_EQ(ReplyText(Of({0x14, 1, 9, 9, 9, 9})), "die identity half 1");
  EXPECT_EQ(CommandText(Of({0x32, 0, 0xE0})), "CmdStoredData of the set's identity");
  EXPECT_EQ(ReplyText(Of({0xB2, 0, 0xE0})), "stored data of the set's identity");
}

TEST(FrameText, CalibrationAndTestDealHaveTheirNamesToo) {
  EXPECT_EQ(CommandText(Of({0x13, 14, 0, 0, 180, 1, 0})), "CmdWriteParameters 14 trial of 180");
  EXPECT_EQ(CommandText(Of({0x13, 14, 9, 9, 180, 0, 0})), "CmdWriteParameters 14");
  EXPECT_EQ(CommandText(Of({0x13, 1, 9, 9, 180, 1, 0})), "CmdWriteParameters 1");
  EXPECT_EQ(CommandText(Of({0x1B, 5})), "CmdSensor board");
  EXPECT_EQ(ReplyText(Of({0x1B, 5, 1})), "sensor: board");
  EXPECT_EQ(ReplyText(Of({0x1B, 0x85, 0})), "sensor: no board, flip plate");
  EXPECT_EQ(CommandText(Of({0x9F, 52, 1, 0, 0, 0, 0, 0, 1, 2})), "CmdRoute 52 cards, test deal");
}

TEST(FrameText, ProgrammingHasItsNamesToo) {
  EXPECT_EQ(CommandText(Of({0x29, 95})), "CmdStartDownload");
  EXPECT_EQ(CommandText(Of({0xAA, 98, 2, 0x1F})), "CmdFlashBlock 0x021F");
  EXPECT_EQ(CommandText(Of({0x2B})), "CmdEraseErrors");
  EXPECT_EQ(CommandText(Of({0x2C})), "CmdEraseRecord");
  EXPECT_EQ(CommandText(Of({0xAD})), "CmdWriteRecord");
  EXPECT_EQ(ReplyText(Of({0x29, 0})), "download: status 0");
  EXPECT_EQ(ReplyText(Of({0x2A, 3})), "block: status 3");
  EXPECT_EQ(ReplyText(Of({0x2B, 1})), "errors erased: status 1");
  EXPECT_EQ(ReplyText(Of({0x2C, 0})), "record erased: status 0");
  EXPECT_EQ(ReplyText(Of({0x2D, 0})), "record written: status 0");
}

TEST(FrameText, TheCameraHasItsNamesToo) {
  EXPECT_EQ(CommandText(Of({0x01, 191})), "CmdPictureLine 191");
  EXPECT_EQ(CommandText(Of({0x02, 7})), "CmdErrorPictureLine 7");
  EXPECT_EQ(CommandText(Of({0x0A, 1, 0, 0, 9, 9, 9})), "CmdCapture index 1");
  EXPECT_EQ(CommandText(Of({0x0A, 1, 0, 23, 60, 80, 9})), "CmdCapture index 1 at 60 80");
  EXPECT_EQ(CommandText(Of({0x0F})), "CmdSymbolMeasure");
  EXPECT_EQ(CommandText(Of({0x10})), "CmdSuitMeasure");
  EXPECT_EQ(CommandText(Of({0x15})), "CmdRecognise");
  EXPECT_EQ(CommandText(Of({0x22, 60, 80, 0, 2, 66, 60})), "CmdTrial 60 80");
  EXPECT_EQ(CommandText(Of({0x25})), "CmdErrorVerdict");
  EXPECT_EQ(ReplyText(Of({0x81, 5})), "picture line 5");
  EXPECT_EQ(ReplyText(Of({0x82, 5})), "error line 5");
  EXPECT_EQ(ReplyText(Of({0x0A})), "picture");
  EXPECT_EQ(ReplyText(Of({0x0F, 1, 2, 58, 83, 20, 61})), "symbol: 58..83 x 20..61");
  EXPECT_EQ(ReplyText(Of({0x10, 1, 2, 59, 82, 68, 97})), "suit: 59..82 x 68..97");
  EXPECT_EQ(ReplyText(Of({0x25, 0, 41, 61, 0, 46, 55})), "error verdict: code 55");
}

TEST(FrameText, AStatusFrameIsToldByItsSelector) {
  EXPECT_EQ(ReplyText(Of({0x1B, 0, 79, 73, 0xFF, 0x7F})), "sensor: motors 14000 0");
  EXPECT_EQ(ReplyText(Of({0x1B, 0x81, 79, 73, 0xFF, 0x7F})), "sensor: motors 14000 0, flip plate");
  EXPECT_EQ(ReplyText(Of({0x1B, 2, 0x15, 1, 0x58, 2})), "sensor: climate 277 600");
  EXPECT_EQ(ReplyText(Of({0x1B, 0x83})), "sensor: 3, flip plate");
  EXPECT_EQ(ReplyText(Of({0x1B, 0x84, 27})), "sensor: 0x1B, board 3, flip plate");
}

TEST(FrameText, EveryReplyHasItsNameAndWhatItSays) {
  EXPECT_EQ(ReplyText(Of({0x19, 0xFF, 3, 2, 4, 1, 0})), "status: busy, 3 2 4 1");
  EXPECT_EQ(ReplyText(Of({0x9C, 0xF1, 0, 0, 0, 0, 0})), "status: busy, 0 0 0 0");
  EXPECT_EQ(ReplyText(Of({0x19, 0xF0, 13, 13, 0x4D, 12, 0})), "status: code 240, 13 13 13 12")
      << "six bits count";
  EXPECT_EQ(ReplyText(Of({0x19, 0, 0, 0, 0, 0, 0x1C})),
            "status: idle, 0 0 0 0, slot, pedal, board");
  EXPECT_EQ(ReplyText(Of({0x18})), "accepted");
  EXPECT_EQ(ReplyText(Of({0x1A, 2, 0x90})), "version: 2.90");
  EXPECT_EQ(ReplyText(Of({0x1A, 2, 0x04})), "version: 2.04");
  EXPECT_EQ(ReplyText(Of({0x12, 1, 0x12, 0x67, 0x00, 0x7F})), "identity: 4711, hardware 0x007F");
  EXPECT_EQ(ReplyText(Of({0x12, 2, 14, 6, 7, 0xE3})), "identity: page 2");
  EXPECT_EQ(ReplyText(Of({0xB3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2})), "counter: 258");
  EXPECT_EQ(ReplyText(Of({0x1B, 4, 27})), "sensor: 0x1B, board 3");
  EXPECT_EQ(ReplyText(Of({0x1B, 4, 0})), "sensor: 0x00");
  EXPECT_EQ(ReplyText(Of({0x9D})), "board");
  EXPECT_EQ(ReplyText(Of({0xA0})), "card log");
  EXPECT_EQ(ReplyText(Of({0x9E})), "test text");
}

TEST(FrameText, ACodeWithoutANameIsShownAsANumber) {
  EXPECT_EQ(CommandText(Of({0x77})), "frame 0x77");
  EXPECT_EQ(ReplyText(Of({0xEF})), "frame 0xEF");
  EXPECT_EQ(CommandName(0x77), "");
  EXPECT_EQ(ReplyName(0x98), "");
  EXPECT_EQ(CommandName(0x98), "CmdDeal");
  EXPECT_EQ(ReplyName(0x9C), "status");
}

}  // namespace
}  // namespace morvane::wire
