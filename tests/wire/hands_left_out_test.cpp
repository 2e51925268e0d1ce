// What of each frame may be handed on.

#include "wire/hands_left_out.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace morvane::wire {
namespace {

/// A plain frame of this code whose other bytes tell themselves apart: byte i is i + 1.
Frame Full(int code) {
  Frame frame{};
  for (std::size_t i = 0; i < frame.size(); ++i) frame[i] = static_cast<std::uint8_t>(i + 1);
  SetCode(frame, static_cast<std::uint8_t>(code));
  return frame;
}

/// `Full`, but 0 from `first` to `last`.
Frame Without(Frame frame, std::size_t first, std::size_t last) {
  for (std::size_t i = first; i <= last; ++i) frame[i] = 0;
  return frame;
}

Frame OfCommand(Frame frame) {
  LeaveOutHandsOfCommand(frame);
  return frame;
}

Frame OfReply(Frame frame) {
  LeaveOutHandsOfReply(frame);
  return frame;
}

/// But for the check byte, which is no part of what a plain frame says.
Frame OnlyTheCode(int code) {
  Frame frame{static_cast<std::uint8_t>(code)};
  frame[7] = 8;
  return frame;
}

TEST(HandsLeftOut, StartsOfRunsKeepAllButTheirPayload) {
  for (const int code : {0x98, 0x9C, 0x9F}) {
    EXPECT_EQ(OfCommand(Full(code)), Without(Full(code), 8, 135)) << code;
  }
}

TEST(HandsLeftOut, OtherCommandsOfOursStayAsTheyAre) {
  for (const int code :
       {0x12, 0x19, 0x1A, 0x1B, 0x1D, 0x1E, 0x20, 0x33, 0x35, 0x01, 0x02, 0x0A, 0x0F, 0x10, 0x15,
        0x22, 0x25, 0x11, 0x13, 0x14, 0x17, 0x23, 0x24, 0x32, 0x34, 0x29, 0x2B, 0x2C, 0xAA, 0xAD}) {
    EXPECT_EQ(OfCommand(Full(code)), Full(code)) << code;
  }
}

TEST(HandsLeftOut, OfAFrameThatNobodyKnowsTheCodeStays) {
  for (const int code : {0x77, 0xF0}) {
    EXPECT_EQ(OfCommand(Full(code)), OnlyTheCode(code)) << code;
    EXPECT_EQ(OfReply(Full(code)), OnlyTheCode(code)) << code;
  }
}

TEST(HandsLeftOut, ABoardThatWasReadHasItsCountsOnly) {
  Frame board = Full(0x9D);
  for (std::size_t i = 8; i < 60; ++i) board[i] = static_cast<std::uint8_t>(i % 4 + 1);
  board[8] = 0;  // not seen; the other pocket 1 is one short then
  Frame sorted = OnlyTheCode(0x9D);
  std::fill_n(sorted.begin() + 8, 13, 4);
  std::fill_n(sorted.begin() + 21, 13, 3);
  std::fill_n(sorted.begin() + 34, 13, 2);
  std::fill_n(sorted.begin() + 47, 12, 1);
  EXPECT_EQ(OfReply(board), sorted);
}

TEST(HandsLeftOut, ACardLogSaysHowManyWereDealt) {
  Frame log = Full(0xA0);
  for (std::size_t i = 8; i < 63; ++i) log[i] = 0;
  log[9] = 2;
  log[30] = 3;
  log[62] = 1;
  Frame sorted = OnlyTheCode(0xA0);
  sorted[8] = 3;
  sorted[9] = 2;
  sorted[10] = 1;
  EXPECT_EQ(OfReply(log), sorted);
}

TEST(HandsLeftOut, PicturesKeepTheNumbersOfTheirLines) {
  for (const int code : {0x81, 0x82}) {
    EXPECT_EQ(OfReply(Full(code)), Without(Full(code), 8, 135)) << code;
  }
}

TEST(HandsLeftOut, ALongStatusIsAStatus) {
  EXPECT_EQ(OfReply(Full(0x9C)), Without(Full(0x9C), 8, 135));
}

TEST(HandsLeftOut, VerdictsNameNoCard) {
  for (const int code : {0x15, 0x25}) {
    EXPECT_EQ(OfReply(Full(code)), Without(Full(code), 3, 4)) << code;
  }
}

TEST(HandsLeftOut, AVerdictWithoutACardSaysSo) {
  Frame verdict = Full(0x25);
  verdict[3] = 61;
  EXPECT_EQ(OfReply(verdict), Without(verdict, 4, 4));
}

TEST(HandsLeftOut, TestTextAndMeasuresOfASymbolGoWhole) {
  for (const int code : {0x9E, 0x0F, 0x10}) {
    EXPECT_EQ(OfReply(Full(code)), OnlyTheCode(code)) << code;
  }
}

TEST(HandsLeftOut, OtherRepliesOfOursStayAsTheyAre) {
  for (const int code : {0x19, 0x18, 0x1A, 0x12, 0xB3, 0x1B, 0x0A, 0x11, 0x17, 0x23, 0xB2, 0x14,
                         0x29, 0x2A, 0x2B, 0x2C, 0x2D}) {
    EXPECT_EQ(OfReply(Full(code)), Full(code)) << code;
  }
}

TEST(HandsLeftOut, OnceIsEnough) {
  for (int code = 0; code < 256; ++code) {
    const Frame command = OfCommand(Full(code));
    const Frame reply = OfReply(Full(code));
    EXPECT_EQ(OfCommand(command), command) << code;
    EXPECT_EQ(OfReply(reply), reply) << code;
  }
}

}  // namespace
}  // namespace morvane::wire
