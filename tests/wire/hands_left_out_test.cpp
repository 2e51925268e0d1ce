// What of each frame may be handed on.

#include "wire/hands_left_out.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>
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

/// `frame`, but 0 from `first` to `last`.
Frame Without(Frame frame, std::size_t first, std::size_t last) {
  for (std::size_t i = first; i <= last; ++i) frame[i] = 0;
  return frame;
}

Frame OnlyTheCode(int code) { return {static_cast<std::uint8_t>(code)}; }

/// Of `Full` the code and these bytes.
Frame Only(int code, const std::vector<std::size_t>& bytes) {
  Frame frame = OnlyTheCode(code);
  for (const std::size_t at : bytes) frame[at] = Full(code)[at];
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

// Byte 2 is 3: no small index, without which byte 6 may be random.
TEST(HandsLeftOut, StartsOfRunsKeepTheirSettings) {
  for (const int code : {0x98, 0x9C, 0x9F}) {
    EXPECT_EQ(OfCommand(Full(code)), Only(code, {1, 2, 3, 4, 5})) << code;
  }
}

TEST(HandsLeftOut, OfASmallIndexTheLastByteToo) {
  Frame deal = Full(0x98);
  deal[2] = 0x16;
  Frame kept = Only(0x98, {1, 2, 3, 4, 5, 6});
  kept[2] = 0x16;
  EXPECT_EQ(OfCommand(deal), kept);
}

TEST(HandsLeftOut, OtherCommandsKeepWhatTheyTellTheMachine) {
  const std::vector<std::pair<int, std::vector<std::size_t>>> told{
      {0x12, {1}},
      {0x19, {1}},
      {0x1A, {}},
      {0x1B, {1, 2}},
      {0x1D, {1}},
      {0x1E, {}},
      {0x20, {1}},
      {0x33, {1, 2}},
      {0x35, {1, 2, 3, 4, 5, 6}},
      {0x01, {1}},
      {0x02, {1}},
      {0x0A, {1, 2, 3}},
      {0x0F, {}},
      {0x10, {}},
      {0x15, {1, 2, 3, 4, 5, 6}},
      {0x22, {1, 2, 3, 4, 5, 6}},
      {0x25, {}},
      {0x11, {1}},
      {0x13, {1, 2, 3, 4, 5}},
      {0x14, {1, 2, 3, 4, 5, 6}},
      {0x17, {1, 2}},
      {0x23, {1, 2, 3, 4, 5, 6}},
      {0x24, {1, 2, 3, 4, 5, 6}},
      {0x32, {1, 2, 3, 4, 5, 6}},
      {0x34, {1, 2, 3, 4, 5, 6}},
      {0x29, {1}},
      {0x2B, {1, 2, 3, 4, 5, 6}},
      {0x2C, {1, 2, 3, 4, 5, 6}},
      {0xAD, {1, 2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 13, 14, 15}},
  };
  for (const auto& [code, bytes] : told)
    EXPECT_EQ(OfCommand(Full(code)), Only(code, bytes)) << code;
}

TEST(HandsLeftOut, ABlockOfFirmwareIsWhole) {
  Frame block = Without(Full(0xAA), 4, 7);
  EXPECT_EQ(OfCommand(Full(0xAA)), block);
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
  for (const int code : {0x81, 0x82}) EXPECT_EQ(OfReply(Full(code)), Only(code, {1})) << code;
}

// Counts are six bits, and of byte 6 bits 2 to 4 mean something.
TEST(HandsLeftOut, OfAStatusOnlyItsFieldsStay) {
  for (const int code : {0x19, 0x9C}) {
    Frame status = Full(code);
    const std::array<std::uint8_t, 6> sent{0xFE, 0xC3, 0x84, 0x45, 0xFF, 0xFB};
    const std::array<std::uint8_t, 6> kept{0xFE, 0x03, 0x04, 0x05, 0x3F, 0x18};
    std::ranges::copy(sent, status.begin() + 1);
    Frame expected = OnlyTheCode(code);
    std::ranges::copy(kept, expected.begin() + 1);
    EXPECT_EQ(OfReply(status), expected) << code;
  }
}

TEST(HandsLeftOut, OfVerdictsOnlyTheErrorStays) {
  for (const int code : {0x15, 0x25}) EXPECT_EQ(OfReply(Full(code)), Only(code, {6})) << code;
}

TEST(HandsLeftOut, AVerdictWithoutACardSaysSo) {
  Frame verdict = Full(0x25);
  verdict[3] = 61;
  Frame kept = Only(0x25, {6});
  kept[3] = 61;
  EXPECT_EQ(OfReply(verdict), kept);
}

TEST(HandsLeftOut, TestTextAndMeasuresOfASymbolGoWhole) {
  for (const int code : {0x9E, 0x0F, 0x10}) {
    EXPECT_EQ(OfReply(Full(code)), OnlyTheCode(code)) << code;
  }
}

TEST(HandsLeftOut, OtherRepliesKeepWhatTheirTablesName) {
  const std::vector<std::pair<int, std::vector<std::size_t>>> named{
      {0x18, {}},
      {0x1A, {1, 2, 3, 4, 5}},
      {0x12, {1, 2, 3, 4, 5}},
      {0x0A, {1, 2, 3, 5, 6}},
      {0x11, {1, 2, 3, 4, 5, 6}},
      {0x17, {1, 2, 3, 4, 5, 6}},
      {0x23, {1}},
      {0x14, {1, 2, 3, 4, 5}},
      {0xB2, {2, 40, 41}},
      {0x29, {1}},
      {0x2A, {1}},
      {0x2B, {1}},
      {0x2C, {1}},
      {0x2D, {1}},
  };
  for (const auto& [code, bytes] : named) EXPECT_EQ(OfReply(Full(code)), Only(code, bytes)) << code;
}

TEST(HandsLeftOut, OfStoredDataTheIdentityOfTheSetStandsElsewhere) {
  Frame stored = Full(0xB2);
  stored[2] = 0xE0;
  Frame kept = Only(0xB2, {18, 28, 38, 48, 58, 68, 78, 88});
  kept[2] = 0xE0;
  EXPECT_EQ(OfReply(stored), kept);
}

TEST(HandsLeftOut, TheFirstCounterComesAlone) {
  Frame counter = Full(0xB3);
  counter[2] = 0;
  EXPECT_EQ(OfReply(counter), Only(0xB3, {8, 9, 10, 11}));
}

TEST(HandsLeftOut, ALaterPageOfCountersIsWhole) {
  EXPECT_EQ(OfReply(Full(0xB3)), Without(Without(Full(0xB3), 1, 1), 3, 7));
}

// Byte 1 has the selector in its lower six bits and a switch in bit 7.
TEST(HandsLeftOut, OfASensorWhatItsSelectorAsksForStays) {
  const std::vector<std::pair<int, std::vector<std::size_t>>> named{
      {0, {2, 3, 4, 5}}, {1, {2, 3, 4, 5}}, {2, {2, 3, 4, 5}}, {3, {}}, {4, {2}}, {5, {2}}, {6, {}},
  };
  for (const auto& [selector, bytes] : named) {
    Frame sensor = Full(0x1B);
    sensor[1] = static_cast<std::uint8_t>(0xC0 + selector);
    Frame kept = Only(0x1B, bytes);
    kept[1] = static_cast<std::uint8_t>(0x80 + selector);
    EXPECT_EQ(OfReply(sensor), kept) << selector;
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

Frame Short(std::initializer_list<std::uint8_t> bytes) {
  Frame frame{};
  std::ranges::copy(bytes, frame.begin());
  return frame;
}

/// A poll as one of these commands in turn is followed by it.
Frame PollBehind(const std::vector<Frame>& commands, const Frame& poll) {
  RandomLeftOut random;
  for (Frame command : commands) random.LeaveOut(command);
  Frame left = poll;
  random.LeaveOut(left);
  return left;
}

const Frame kTestDeal = Short({0x9F, 52, 1});
const Frame kStart = Short({0x98});
const Frame kByChance = Short({0x19, 3, 9, 9, 9, 9, 9});

TEST(RandomLeftOut, ATestDealsPollIsTheSameWhateverIsRandomInIt) {
  const Frame poll = PollBehind({kTestDeal, kStart}, Short({0x19, 0xF2, 8, 7, 6, 5, 4}));
  const Frame breaking = PollBehind({kTestDeal, kStart}, Short({0x19, 0xF3, 8, 7, 6, 5, 4}));
  EXPECT_EQ(poll, Short({0x19, 0x80}));
  EXPECT_EQ(breaking, Short({0x19, 0x81}));
  EXPECT_EQ(PollBehind({kTestDeal, kStart}, kByChance), breaking);
  EXPECT_EQ(PollBehind({kTestDeal, kStart, kByChance, kStart}, kByChance), breaking)
      << "it has gone on behind an error";
}

TEST(RandomLeftOut, ThePollOfTheErrorDialogHasItsFlags) {
  EXPECT_EQ(PollBehind({kTestDeal, kStart}, Short({0x19, 2, 9})), Short({0x19, 2}));
}

TEST(RandomLeftOut, OutsideATestDealAPollHasItsFlags) {
  EXPECT_EQ(PollBehind({}, kByChance), Short({0x19, 3}));
  EXPECT_EQ(PollBehind({kTestDeal, Short({0x9F, 52, 0}), kStart}, kByChance), Short({0x19, 3}));
  EXPECT_EQ(PollBehind({kTestDeal, kStart, Short({0x1A})}, kByChance), Short({0x19, 3}));
}

}  // namespace
}  // namespace morvane::wire
