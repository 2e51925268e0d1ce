#include "wire/frame.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <numeric>

#include "support/scripted_bridge.h"
#include "wire/commands.h"
#include "wire/replies.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using ::testing::Each;
using ::testing::ElementsAre;

Bytes Wire(Bytes plain, std::uint8_t step) {
  Scramble(plain, step);
  return plain;
}

TEST(Frame, AllZerosShowTheBareKey) {
  EXPECT_THAT(Wire(Bytes(8, 0), kStepToMachine),
              ElementsAre(0x00, 0x17, 0x2E, 0x45, 0x5C, 0x73, 0x8A, 0xFF));
  EXPECT_THAT(Wire(Bytes(8, 0), kStepFromMachine),
              ElementsAre(0x00, 0x15, 0x2A, 0x3F, 0x54, 0x69, 0x7E, 0xFF));
}

TEST(Frame, AStatusCommandWorkedByHand) {
  // 19 02 10 20 30 40 50: the sum is 10B, S = 0B. Keys 0B 22 39 50 67 7E 95.
  EXPECT_THAT(Wire({0x19, 0x02, 0x10, 0x20, 0x30, 0x40, 0x50, 0xEE}, kStepToMachine),
              ElementsAre(0x12, 0x20, 0x29, 0x70, 0x57, 0x3E, 0xC5, 0xF4));
}

TEST(Frame, Byte8OfALongFrameTakesTheSeventhKeyStep) {
  Bytes plain(136, 0);
  plain[0] = 0x98;  // S = 98
  const Bytes wire = Wire(plain, kStepToMachine);
  EXPECT_EQ(wire[7], 0x67);
  EXPECT_EQ(wire[8], (0x98 + 161) & 0xFF);
  EXPECT_EQ(wire[135], (0x98 + 23 * 134) & 0xFF);
}

TEST(Frame, ScrambledFramesComeBackAndTheKeyWraps) {
  Bytes plain(136);
  std::iota(plain.begin(), plain.end(), std::uint8_t{0x80});
  Bytes wire = plain;
  Scramble(wire, kStepFromMachine);
  EXPECT_EQ(wire, test::OnTheWire(plain, 21));
  EXPECT_TRUE(Unscramble(wire, kStepFromMachine));
  wire[7] = plain[7];
  EXPECT_EQ(wire, plain);
}

TEST(Frame, EveryCorruptedByteOfAShortFrameButAPairBreaksTheCheck) {
  const Bytes good = test::OnTheWire(test::Short({0x19, 0xFF, 1, 2, 3, 4, 8}), 21);
  for (std::size_t i = 0; i < good.size(); ++i) {
    Bytes bad = good;
    bad[i] = static_cast<std::uint8_t>(bad[i] + 1);
    EXPECT_FALSE(Unscramble(bad, kStepFromMachine)) << i;
  }
}

TEST(Wire, CardsStandFromTheTwoOfSpadesToTheAceOfClubs) {
  EXPECT_EQ(WirePosition(13), 8U);
  EXPECT_EQ(WirePosition(1), 20U);
  EXPECT_EQ(WirePosition(26), 21U);
  EXPECT_EQ(WirePosition(14), 33U);
  EXPECT_EQ(WirePosition(39), 34U);
  EXPECT_EQ(WirePosition(27), 46U);
  EXPECT_EQ(WirePosition(52), 47U);
  EXPECT_EQ(WirePosition(40), 59U);
}

TEST(Wire, BoardLabelsAreTheSeventyCodesOfFourBits) {
  EXPECT_EQ(BoardLabelTable[15], 1);
  EXPECT_EQ(BoardLabelTable[23], 2);
  EXPECT_EQ(BoardLabelTable[27], 3);
  EXPECT_EQ(BoardLabelTable[240], 70);
  EXPECT_EQ(BoardLabelTable[0], 0);
  EXPECT_EQ(BoardLabelTable[255], 0);
  EXPECT_EQ(BoardLabelTable[16], 0);
  EXPECT_EQ(std::count(BoardLabelTable.begin(), BoardLabelTable.end(), 0), 256 - 70);
  EXPECT_EQ(LabelOfBoard(1), 15);
  EXPECT_EQ(LabelOfBoard(70), 240);
  EXPECT_EQ(LabelOfBoard(71), 0);
  EXPECT_EQ(LabelOfBoard(0), 0);
}

template <typename Command>
Bytes Plain(const Command& command, std::size_t bytes, std::uint8_t filler = 0xEE) {
  Frame frame;
  frame.fill(filler);
  command.Put(frame);
  return {frame.begin(), frame.begin() + static_cast<std::ptrdiff_t>(bytes)};
}

TEST(Commands, ShortOnesNameTheirBytesAndLeaveTheFiller) {
  EXPECT_THAT(Plain(StatusCommand{5}, 7), ElementsAre(0x19, 5, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE));
  EXPECT_THAT(Plain(VersionCommand{}, 7), ElementsAre(0x1A, 0, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE));
  EXPECT_THAT(Plain(IdentityCommand{2}, 7), ElementsAre(0x12, 2, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE));
  EXPECT_THAT(Plain(CounterCommand{0}, 7), ElementsAre(0x33, 0, 0, 0xEE, 0xEE, 0xEE, 0xEE));
  EXPECT_THAT(Plain(SensorCommand{4}, 7), ElementsAre(0x1B, 4, 0, 0xEE, 0xEE, 0xEE, 0xEE));
  EXPECT_THAT(Plain(FetchCommand{CmdFetchBoard}, 3), ElementsAre(0x1D, 0, 0xEE));
  EXPECT_THAT(Plain(FetchCommand{CmdFetchLog}, 3), ElementsAre(0x20, 0, 0xEE));
  EXPECT_THAT(Plain(TestCommand{}, 2), ElementsAre(0x1E, 0xEE));
  EXPECT_THAT(Plain(SortCommand{true, {0x21, 1, 0}}, 7), ElementsAre(0x35, 1, 0x21, 1, 61, 86, 0));
}

TEST(Commands, ARouteCarriesItsOrderFromByte8) {
  RouteCommand route{28, true, {}};
  route.Order.fill(3);
  const Bytes plain = Plain(route, 136);
  EXPECT_THAT(Bytes(plain.begin(), plain.begin() + 9),
              ElementsAre(0x9F, 28, 1, 0, 0, 0, 0xEE, 0xEE, 3));
  EXPECT_EQ(plain[62], 3);
  EXPECT_EQ(plain[63], 0xEE);
}

TEST(Commands, ADealCarriesSettingsAndHandList) {
  StartCommand deal{CmdDeal, true, {0x4F, 3, 6}, {}};
  deal.Pockets.fill(2);
  const Bytes plain = Plain(deal, 136);
  EXPECT_THAT(Bytes(plain.begin(), plain.begin() + 9),
              ElementsAre(0x98, 1, 0x4F, 3, 161, 186, 6, 0xEE, 2));
  EXPECT_EQ(plain[59], 2);
  EXPECT_EQ(plain[60], 0xEE);
}

TEST(Replies, StatusTakesCountsFromSixBitsAndEventsFromThree) {
  Frame frame{0x19, 0xF1, 0xC1, 2, 3, 0x3F, 0x18};
  const StatusReply reply = StatusReply::Get(frame);
  EXPECT_EQ(reply.State, 0xF1);
  EXPECT_THAT(reply.Pocket, ElementsAre(0, 1, 2, 3, 63));
  EXPECT_FALSE(reply.SlotActive);
  EXPECT_TRUE(reply.Pedal);
  EXPECT_TRUE(reply.BoardInserted);
  frame[6] = 4;
  EXPECT_TRUE(StatusReply::Get(frame).SlotActive);
}

TEST(Replies, NumbersAreMostSignificantByteFirst) {
  Frame frame{0x12, 1, 0x12, 0x67, 0x00, 0x0C};
  EXPECT_EQ(IdentityReply::Get(frame).High, 4711);
  EXPECT_EQ(IdentityReply::Get(frame).Low, 12);
  frame = {0xB3, 0, 0, 0, 0, 0, 0, 0, 0x01, 0x02, 0x03, 0x04};
  EXPECT_EQ(CounterReply::Get(frame).Value, 0x01020304U);
}

template <typename Reply>
Frame PutBack(const Frame& frame) {
  Frame copy{};
  Reply::Get(frame).Put(copy);
  return copy;
}

TEST(Replies, PutGivesBackWhatGetTook) {
  const Frame status{0x19, 57, 1, 2, 3, 13, 0x1C};
  EXPECT_EQ(PutBack<StatusReply>(status), status);
  const Frame version{0x1A, 2, 0x90, 1, 0x12, 3};
  EXPECT_EQ(PutBack<VersionReply>(version), version);
  const Frame sensor{0x1B, 4, 23};
  EXPECT_EQ(PutBack<SensorReply>(sensor), sensor);
  Frame board{0x9D};
  std::fill_n(board.begin() + 8, 52, std::uint8_t{3});
  EXPECT_EQ(PutBack<BoardReply>(board), board);
  Frame log{0xA0};
  std::iota(log.begin() + 8, log.begin() + 63, std::uint8_t{1});
  EXPECT_EQ(PutBack<CardLogReply>(log), log);
  EXPECT_EQ(CardLogReply::Get(log).Cards[1], 1);
  EXPECT_EQ(CardLogReply::Get(log).Cards[55], 55);
}

}  // namespace
}  // namespace morvane::machine
