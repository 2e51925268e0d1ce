#include "poker/poker_desk.h"
#include "program/setting_keys.h"
#include "support/frame_list.h"

namespace morvane::poker {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::ElementsAre;

/// The bytes 8 to 62 of a long frame, one number a card.
std::vector<int> Payload(const Bytes& frame) { return {frame.begin() + 8, frame.begin() + 63}; }
/// What stands behind the digits of `FramesAre`: a run of the same number.
std::vector<int> operator+(std::vector<int> a, const std::vector<int>& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}
/// The bytes 0 to 5 of a long frame; byte 6 is random.
std::vector<int> Head(const Bytes& frame) { return {frame.begin(), frame.begin() + 6}; }
std::vector<int> Times(int count, int number) {
  return std::vector<int>(static_cast<std::size_t>(count), number);
}

/// The deal with machine card s in slot s, from a pack that feeds the Two of Spades first.
class BytesOfARun : public PokerDesk {
 protected:
  void SetUp() override {
    PokerDesk::SetUp();
    Contact();
    PokerOrder order = EmptyOrder(1);
    order.Current() = DealInOrder();
    poker.Take(order);
    std::vector<int> pack(52);
    std::iota(pack.begin(), pack.end(), 1);
    ASSERT_TRUE(sim.LayInFeeder(pack));
  }
};

TEST_F(BytesOfARun, TheFirstTellsNoOrderAndThePocketOfEveryCard) {
  RunTo(1);
  ASSERT_EQ(SentOf(0x9F).size(), 1U);
  EXPECT_THAT(Head(SentOf(0x9F)[0]), ElementsAre(0x9F, 52, 0, 0, 0, 0));
  EXPECT_EQ(Payload(SentOf(0x9F)[0]), Times(55, 0));
  EXPECT_TRUE(FramesAre(SentOf(0x98),
                        {"98 00 00 00 0B 24 .. | 321 321 321 321 321 321 321 321 321 3 444444444 "
                         "444444444 444444444"}));
}

// Behind the first run the feeder has, from the top, East 28 25 22 19 16 13 10 7 4 1, West 26 23 20
// 17 14 11 8 5 2, South 27 24 21 18 15 12 9 6 3: card 3 comes first, card 28 last.
TEST_F(BytesOfARun, TheSecondTellsThatTheBottomCardComesFirst) {
  RunTo(2);
  ASSERT_EQ(SentOf(0x9F).size(), 2U);
  EXPECT_THAT(Head(SentOf(0x9F)[1]), ElementsAre(0x9F, 28, 0, 0, 0, 0));
  const std::vector<int> order{19, 10, 1,  20, 11, 2,  21, 12, 3,  22, 13, 4,  23, 14,
                               5,  24, 15, 6,  25, 16, 7,  26, 17, 8,  27, 18, 9,  28};
  EXPECT_EQ(Payload(SentOf(0x9F)[1]), order + Times(27, 127));
  EXPECT_TRUE(FramesAre({SentOf(0x98)[1]}, {"98 00 00 00 0B 24 .. | 333 222 111 333 222 111 333 "
                                            "222 111 4 000000000 000000000 000000000"}));
}

// They come 3 6 9 ... 27, 2 5 ... 26, 1 4 ... 25, 28, so that East has from the top 19 10 1, with
// 20 11 2 and 21 12 3 below, as has each: West 22 13 4 23 14 5 24 15 6, South 25 16 7 26 17 8 27 18
// 9; the feeder's bottom card is 9.
TEST_F(BytesOfARun, TheThirdHas27CardsAndThe28thIsNotExpected) {
  RunTo(3);
  EXPECT_THAT(Head(SentOf(0x9F)[2]), ElementsAre(0x9F, 27, 0, 0, 0, 0));
  const std::vector<int> order{25, 22, 19, 16, 13, 10, 7,  4,  1,  26, 23, 20, 17, 14,
                               11, 8,  5,  2,  27, 24, 21, 18, 15, 12, 9,  6,  3};
  EXPECT_EQ(Payload(SentOf(0x9F)[2]), order + Times(28, 127));
  EXPECT_TRUE(FramesAre({SentOf(0x98)[2]}, {"98 00 00 00 0B 24 .. | 333333333 222222222 111111111 "
                                            "0 000000000 000000000 000000000"}));
}

// East has 1 to 9 now with 1 on top, West 10 to 18, South 19 to 27: card 27 comes first.
TEST_F(BytesOfARun, TheFourthSendsAllToNorth) {
  RunTo(4);
  EXPECT_THAT(Head(SentOf(0x9F)[3]), ElementsAre(0x9F, 27, 0, 0, 0, 0));
  std::vector<int> order(27);
  std::iota(order.rbegin(), order.rend(), 1);
  EXPECT_EQ(Payload(SentOf(0x9F)[3]), order + Times(28, 127));
  EXPECT_TRUE(FramesAre({SentOf(0x98)[3]}, {"98 00 00 00 0B 24 .. | 444444444 444444444 444444444 "
                                            "0 000000000 000000000 000000000"}));
  EXPECT_EQ(Stacked(), DealInOrder());
}

TEST_F(BytesOfARun, OneGoesByRouteStartPollsCardLogAndPockets) {
  RunTo(1);
  EXPECT_EQ(bridge.Sent[0][0], 0x9F);
  EXPECT_EQ(bridge.Sent[1][0], 0x98);
  EXPECT_TRUE(FramesAre({bridge.Sent[2]}, {"19 00 .. .. .. .. .."}));
  EXPECT_EQ(SentOf(0x19).size(), 52U) << "one card a poll";
  const std::size_t frames = bridge.Sent.size();
  EXPECT_TRUE(FramesAre({bridge.Sent[frames - 2], bridge.Sent[frames - 1]},
                        {"20 00 00 00 00 00 ..", "1D 00 00 00 00 00 .."}));
}

TEST_F(BytesOfARun, LargeCardsSetBit3AndNothingElseIsToldOfThePack) {
  for (const auto& [key, value] :
       {std::pair{kCardIndex, "1"}, {kNational, "5"}, {kCardType, "1"}, {kThreshold, "2"}}) {
    desk.Store.Set(key, value);
  }
  Poker other(desk.Prog, machine, memory);
  machine.Link.UsbHandle = 7;
  poker.Exit();
  machine.Link.UsbHandle = 7;
  other.Open(view);
  desk.Loop.WaitMs(Poker::kFirstContactMs);
  other.Take(poker.Order());
  bridge.Sent.clear();
  other.Press(Button::FirstDeal);
  EXPECT_EQ(SentOf(0x98)[0][2], 8);
  EXPECT_EQ(SentOf(0x98)[0][3], 0);
  other.Press(Button::SecondDeal);
  EXPECT_EQ(SentOf(0x98)[1][3], 0) << "the rotation stays the first";
  EXPECT_EQ(SentOf(0x98)[1][4], 11);
  other.Exit();
}

}  // namespace
}  // namespace morvane::poker
