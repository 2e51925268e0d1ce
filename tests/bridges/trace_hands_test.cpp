// Traces without hands: what is noted in place of each kind of bytes.

#include <filesystem>

#include "bridges/trace_desk.h"
#include "wire/frame.h"

namespace morvane::bridges {
namespace {

using test::Bytes;
using test::Long;
using test::OffTheWire;
using test::OnTheWire;
using test::Short;
using ::testing::ElementsAre;

constexpr int kToMachine = 23;
constexpr int kFromMachine = 21;

class TraceWithoutHands : public test::TracedDesk {
 protected:
  TraceWithoutHands() : TracedDesk(true) {}

  /// The bytes of the n-th line, and of those behind it up to `last`.
  [[nodiscard]] Bytes Noted(std::size_t first, std::size_t last) const {
    Bytes bytes;
    const auto lines = Traced();
    for (std::size_t i = first; i <= last; ++i) {
      TraceLine line;
      EXPECT_EQ(ParseTraceLine(lines.at(i), line), std::nullopt);
      bytes.insert(bytes.end(), line.Bytes.begin(), line.Bytes.end());
    }
    return bytes;
  }
  [[nodiscard]] Bytes Noted(std::size_t line) const { return Noted(line, line); }
  [[nodiscard]] std::string Said(std::size_t line) const {
    const std::string text = Traced().at(line);
    return text.substr(text.find(" ; ") + 3);
  }
};

/// A plain long frame with the byte i at place i.
Bytes Counted(std::uint8_t code) {
  Bytes frame(136);
  for (std::size_t i = 8; i < frame.size(); ++i) frame[i] = static_cast<std::uint8_t>(i);
  frame[0] = code;
  return frame;
}

TEST_F(TraceWithoutHands, ADealIsNotedWithoutItsList) {
  Bytes deal = Counted(0x98);
  deal[2] = 0x30;
  Write(OnTheWire(deal, kToMachine));
  EXPECT_EQ(Noted(0), OnTheWire(Long({0x98, 0, 0x30}), kToMachine));
  EXPECT_EQ(Said(0), "CmdDeal begin");
  EXPECT_EQ(Scripted->Sent.back(), deal) << "the machine has it as it was";
}

TEST_F(TraceWithoutHands, ARouteSaysWhetherThereIsAnOrder) {
  Bytes route = Long({0x9F, 28});
  route[8] = 5;
  Write(OnTheWire(route, kToMachine));
  EXPECT_EQ(Noted(0), OnTheWire(Long({0x9F, 28}), kToMachine));
  EXPECT_EQ(Said(0), "CmdRoute 28 cards in order");
}

TEST_F(TraceWithoutHands, FillerAndWhatNobodyKnowsAreZeros) {
  Write(OnTheWire(Short({0x19, 2, 77, 78, 79, 80, 81}), kToMachine));
  Arrives(OnTheWire(Counted(0xB3), kFromMachine));
  Read(8);
  Read(128);
  EXPECT_EQ(Noted(0), OnTheWire(Short({0x19, 2}), kToMachine));
  EXPECT_EQ(Noted(1, 2), OnTheWire(Long({0xB3, 0, 0, 0, 0, 0, 0, 0, 8, 9, 10, 11}), kFromMachine));
  EXPECT_EQ(Said(0), "CmdStatus pedal seen");
}

// In a test deal all of a poll is random but for bit 0, and may say by chance what others say.
TEST_F(TraceWithoutHands, APollOfATestDealIsLikeAnyOther) {
  Write(OnTheWire(Long({0x9F, 52, 1}), kToMachine));
  Write(OnTheWire(Long({0x98, 0}), kToMachine));
  Write(OnTheWire(Short({0x19, 2, 77, 78, 79, 80, 81}), kToMachine));
  Write(OnTheWire(Short({0x19, 0xC6, 7, 8, 9, 8, 1}), kToMachine));
  EXPECT_EQ(Noted(2), OnTheWire(Short({0x19, 0x80}), kToMachine));
  EXPECT_EQ(Noted(3), Noted(2));
  EXPECT_EQ(Said(2), "CmdStatus");
}

TEST_F(TraceWithoutHands, ABoardIsNotedInTheOrderOfItsPockets) {
  Bytes board = Long({0x9D});
  Bytes sorted = board;
  for (std::size_t i = 0; i < 52; ++i) {
    board[8 + i] = static_cast<std::uint8_t>(i % 4 + 1);
    sorted[8 + i] = static_cast<std::uint8_t>(4 - i / 13);
  }
  Arrives(OnTheWire(board, kFromMachine));
  const Bytes head = Read(8);
  EXPECT_FALSE(std::filesystem::exists(Path)) << "it depends on the sum of the whole frame";
  Clock.Spend(std::chrono::microseconds(9));
  Bytes got = head;
  const Bytes body = Read(128);
  got.insert(got.end(), body.begin(), body.end());
  EXPECT_EQ(got, OnTheWire(board, kFromMachine)) << "the program has it as it was";
  EXPECT_EQ(Noted(0, 1), OnTheWire(sorted, kFromMachine));
  EXPECT_TRUE(Traced().at(0).starts_with("0.000000 0.000000 Read 0 handle=7 asked=8 bytes="));
  EXPECT_TRUE(Traced().at(1).starts_with("0.000009 0.000000 Read 0 handle=7 asked=128 bytes="));
  EXPECT_EQ(Said(0), "head of a long frame");
  EXPECT_EQ(Said(1), "board");
}

TEST_F(TraceWithoutHands, AVerdictIsToldWithoutItsCard) {
  Arrives(OnTheWire(Short({0x25, 1, 2, 14, 4, 55, 0}), kFromMachine));
  Read(8);
  EXPECT_EQ(Noted(0), OnTheWire(Short({0x25}), kFromMachine));
  EXPECT_EQ(Said(0), "error verdict: rank 0, suit 0");
}

// As MachineLink tells them: the sum of the plain bytes and the check byte is FF. Zeros behind a
// check byte of 80 are 7F, 94, A9 ... of sum 32; the zeros of a long frame are FF, 14, 29 ... of
// sum 72. Bit 7 of the first says how long.
TEST_F(TraceWithoutHands, WhatFailsItsCheckFailsItStillAndIsAsLong) {
  Bytes verdict = OnTheWire(Short({0x25, 1, 2, 14, 4}), kFromMachine);
  verdict[4] ^= 1;
  Bytes board = OnTheWire(Counted(0x9D), kFromMachine);
  board[100] ^= 1;
  Arrives(verdict);
  Read(8);
  Arrives(board);
  Read(8);
  Read(128);
  Bytes deal = OnTheWire(Counted(0x98), kToMachine);
  deal[100] ^= 1;
  Write(deal);
  const Bytes shortBlank{0, 0, 0, 0, 0, 0, 0, 0x80};
  EXPECT_EQ(Noted(0), shortBlank);
  EXPECT_EQ(Noted(1, 2), Bytes(136));
  EXPECT_EQ(Noted(3), Bytes(136));
  for (const std::size_t line : {0U, 2U, 3U}) EXPECT_EQ(Said(line), "bad check");
  EXPECT_EQ(OffTheWire(shortBlank, kFromMachine)[0], 0x7F);
  EXPECT_EQ(OffTheWire(Bytes(136), kFromMachine)[0], 0xFF);
}

TEST_F(TraceWithoutHands, ZerosFailTheCheckOfALink) {
  for (const std::uint8_t step : {wire::kStepFromMachine, wire::kStepToMachine}) {
    wire::Frame blank{};
    EXPECT_FALSE(wire::Unscramble(blank, step));
    blank = {0, 0, 0, 0, 0, 0, 0, 0x80};
    EXPECT_FALSE(wire::Unscramble(std::span(blank).first(8), step));
  }
}

TEST_F(TraceWithoutHands, BytesThatAreNoFrameAreZeros) {
  Arrives({1, 2, 3});
  Read(8);
  Write({4, 5, 6, 7, 8, 9, 10, 11, 12});
  EXPECT_EQ(Noted(0), Bytes(3));
  EXPECT_EQ(Noted(1), Bytes(9));
}

TEST_F(TraceWithoutHands, AHeadWhoseBodyDoesNotComeIsZeros) {
  Bytes board = OnTheWire(Counted(0x9D), kFromMachine);
  board.resize(100);
  Arrives(board);
  Read(8);
  Read(128);
  Usb->FlushBuffers(7, 1, 1);
  EXPECT_EQ(Noted(0), Bytes(8));
  EXPECT_EQ(Noted(1), Bytes(92));
  EXPECT_EQ(Traced().size(), 3U);
}

TEST_F(TraceWithoutHands, AHeadIsNotedBeforeAnyOtherOperation) {
  Arrives(OnTheWire(Counted(0x9D), kFromMachine));
  Read(8);
  Usb->SetTimeouts(1, 2);
  Read(128);
  EXPECT_THAT(Traced(), ElementsAre("0.000000 0.000000 Read 0 handle=7 asked=8 "
                                    "bytes=0000000000000000 ; head of a long frame",
                                    "0.000000 0.000000 SetTimeouts 0 read=1 write=2",
                                    "0.000000 0.000000 Read 0 handle=7 asked=128 bytes=" +
                                        std::string(256, '0') + " ; half a frame"));
}

TEST_F(TraceWithoutHands, AdviceIsLeftOutForItMayNameFramesAndFiles) {
  std::uint32_t count = 0;
  Scripted->Words = "/home/anna/club/monday.txt, line 10\nThe program does something else.";
  Usb->GetNumDevices(count);
  EXPECT_THAT(Traced().back(), ::testing::HasSubstr(" GetNumDevices "));
}

TEST_F(TraceWithoutHands, AHeadIsNotedAtTheEnd) {
  Arrives(OnTheWire(Counted(0x9D), kFromMachine));
  Read(8);
  Usb->End();
  EXPECT_EQ(Noted(0), Bytes(8));
  EXPECT_TRUE(test::Content(Path).ends_with(" ; head of a long frame\n# end\n"));
}

}  // namespace
}  // namespace morvane::bridges
