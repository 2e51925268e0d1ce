// Every frame against its table on paper.

#include <gmock/gmock.h>

#include <algorithm>
#include <numeric>

#include "support/scripted_bridge.h"
#include "wire/commands.h"
#include "wire/replies.h"

namespace morvane::wire {
namespace {

using test::Bytes;
using ::testing::ElementsAre;

/// The byte of a long frame that belongs to a set's card.
std::size_t ByteOf(int card) {
  StartCommand start;
  start.Pockets[MachineCard::Of(card)] = 4;
  Frame frame{};
  Put(start, frame);
  return static_cast<std::size_t>(std::find(frame.begin() + 8, frame.end(), 4) - frame.begin());
}

TEST(MachineCards, StandFromTheTwoOfSpadesToTheAceOfClubs) {
  EXPECT_EQ(ByteOf(13), 8U);
  EXPECT_EQ(ByteOf(1), 20U);
  EXPECT_EQ(ByteOf(26), 21U);
  EXPECT_EQ(ByteOf(14), 33U);
  EXPECT_EQ(ByteOf(39), 34U);
  EXPECT_EQ(ByteOf(27), 46U);
  EXPECT_EQ(ByteOf(52), 47U);
  EXPECT_EQ(ByteOf(40), 59U);
}

TEST(MachineCards, GoThereAndBackForEveryCard) {
  EXPECT_EQ(MachineCard::Of(13).Number(), 1);   // the Two of Spades
  EXPECT_EQ(MachineCard::Of(1).Number(), 13);   // the Ace of Spades
  EXPECT_EQ(MachineCard::Of(26).Number(), 14);  // the Two of Hearts
  EXPECT_EQ(MachineCard::Of(40).Number(), 52);  // the Ace of Clubs
  for (int card = 1; card <= kCards; ++card) {
    EXPECT_EQ(MachineCard::Of(card).Card(), card);
  }
}

TEST(MachineCards, AListIsLookedUpAtThePlaceOfTheCardOnTheWire) {
  // The place of card c: 14 - c, 40 - c, 66 - c or 92 - c by suit.
  const auto place = [](int c) { return (c < 14 ? 14 : c <= 26 ? 40 : c <= 39 ? 66 : 92) - c; };
  for (int card = 1; card <= kCards; ++card) {
    Frame frame{0xA0};
    frame[7 + static_cast<std::size_t>(place(card))] = 1;
    const CardBytes log = Get<CardLogReply>(frame).Cards;
    for (int other = 1; other <= kCards; ++other) {
      EXPECT_EQ(log[MachineCard::Of(other)] != 0, other == card) << card << " " << other;
    }
  }
}

TEST(MachineCards, JokersAreNoCardsOfASet) {
  for (int joker = 53; joker <= MachineCard::kLast; ++joker) {
    EXPECT_EQ(MachineCard(joker).Card(), 0);
  }
}

template <typename Command>
Bytes Plain(const Command& command, std::size_t bytes, std::uint8_t filler = 0xEE) {
  Frame frame;
  frame.fill(filler);
  Put(command, frame);
  return {frame.begin(), frame.begin() + static_cast<std::ptrdiff_t>(bytes)};
}

TEST(Commands, ShortOnesNameTheirBytesAndLeaveTheFiller) {
  EXPECT_THAT(Plain(StatusCommand{5}, 7), ElementsAre(0x19, 5, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE));
  EXPECT_THAT(Plain(VersionCommand{}, 7), ElementsAre(0x1A, 0, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE));
  EXPECT_THAT(Plain(IdentityCommand{2}, 7), ElementsAre(0x12, 2, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE));
  EXPECT_THAT(Plain(CounterCommand{0}, 7), ElementsAre(0x33, 0, 0, 0xEE, 0xEE, 0xEE, 0xEE));
  EXPECT_THAT(Plain(SensorCommand{4}, 7), ElementsAre(0x1B, 4, 0, 0xEE, 0xEE, 0xEE, 0xEE));
  EXPECT_THAT(Plain(FetchBoardCommand{}, 3), ElementsAre(0x1D, 0, 0xEE));
  EXPECT_THAT(Plain(FetchLogCommand{}, 3), ElementsAre(0x20, 0, 0xEE));
  EXPECT_THAT(Plain(TestCommand{}, 2), ElementsAre(0x1E, 0xEE));
  EXPECT_THAT(Plain(SortCommand{true, {0x21, 1, 0}}, 7), ElementsAre(0x35, 1, 0x21, 1, 61, 86, 0));
}

TEST(Commands, ARouteCarriesItsOrderFromByte8) {
  RouteCommand route{28, true, {}};
  route.Order.Bytes.fill(3);
  const Bytes plain = Plain(route, 136);
  EXPECT_THAT(Bytes(plain.begin(), plain.begin() + 9),
              ElementsAre(0x9F, 28, 1, 0, 0, 0, 0xEE, 0xEE, 3));
  EXPECT_EQ(plain[62], 3);
  EXPECT_EQ(plain[63], 0xEE);
}

TEST(Commands, ADealCarriesSettingsAndHandList) {
  StartCommand deal{CmdDeal, true, {0x4F, 3, 6}, {}, 52};
  deal.Pockets.Bytes.fill(2);
  const Bytes plain = Plain(deal, 136);
  EXPECT_THAT(Bytes(plain.begin(), plain.begin() + 9),
              ElementsAre(0x98, 1, 0x4F, 3, 161, 186, 6, 0xEE, 2));
  EXPECT_EQ(plain[59], 2);
  EXPECT_EQ(plain[60], 0xEE);
}

TEST(Commands, ADealMayLeaveTheLastSettingRandomAndSetTheJokersPlaces) {
  StartCommand deal{CmdDeal, false, {8, 0, std::nullopt}, {}, CardBytes::kPlaces};
  deal.Pockets[MachineCard(55)] = 4;
  const Bytes plain = Plain(deal, 136);
  EXPECT_THAT(Bytes(plain.begin(), plain.begin() + 9),
              ElementsAre(0x98, 0, 8, 0, 11, 36, 0xEE, 0xEE, 0));
  EXPECT_EQ(plain[60], 0);
  EXPECT_EQ(plain[62], 4);
  EXPECT_EQ(plain[63], 0xEE);
}

TEST(Commands, AReadMaySetOnePlaceBehindItsPack) {
  StartCommand read;
  read.Code = CmdRead;
  read.Pockets.Bytes.fill(4);
  read.Places = 53;
  const Bytes plain = Plain(read, 136);
  EXPECT_EQ(plain[0], 0x9C);
  EXPECT_EQ(plain[60], 4);
  EXPECT_EQ(plain[61], 0xEE);
}

TEST(Commands, TheDialogsPollLeavesByte2AndClearsTheRest) {
  EXPECT_THAT(Plain(DialogPollCommand{6}, 8), ElementsAre(0x19, 6, 0xEE, 0, 0, 0, 0, 0xEE));
}

TEST(Commands, GetGivesBackWhatPutWrote) {
  Frame frame{};
  StartCommand read{CmdRead, true, {0x21, 2, 5}, {}, 52};
  read.Pockets[MachineCard(1)] = 3;
  read.Pockets[MachineCard(52)] = 2;
  Put(read, frame);
  const auto start = Get<StartCommand>(frame);
  EXPECT_EQ(start.Code, CmdRead);
  EXPECT_TRUE(start.Continue);
  EXPECT_EQ(start.Settings.CardConfig, 0x21);
  EXPECT_EQ(start.Settings.DealRotation, 2);
  EXPECT_EQ(start.Settings.CardConfigExtra, 5);
  EXPECT_EQ(start.Pockets, read.Pockets);
  EXPECT_EQ(start.Places, 55U) << "who receives it cannot know how many were set";
}

TEST(Commands, MorePlacesThanThereAreAreNotSent) {
  StartCommand start;
  start.Pockets.Bytes.fill(1);
  start.Places = 200;
  const Bytes plain = Plain(start, 136);
  EXPECT_EQ(plain[62], 1);
  EXPECT_EQ(plain[63], 0xEE);
}

TEST(Replies, AStatusAnswersInEitherSize) {
  EXPECT_TRUE(Answers<StatusReply>(0x19));
  EXPECT_TRUE(Answers<StatusReply>(0x9C));
  EXPECT_FALSE(Answers<StatusReply>(0x18));
  EXPECT_TRUE(Answers<AcceptedReply>(0x18));
  EXPECT_FALSE(Answers<VersionReply>(0x19));
}

TEST(Replies, StatusTakesCountsFromSixBitsAndEventsFromThree) {
  Frame frame{0x19, 0xF1, 0xC1, 2, 3, 0x3F, 0x18};
  const auto reply = Get<StatusReply>(frame);
  EXPECT_EQ(reply.State, 0xF1);
  EXPECT_THAT(reply.Pocket, ElementsAre(0, 1, 2, 3, 63));
  EXPECT_FALSE(reply.SlotActive);
  EXPECT_TRUE(reply.Pedal);
  EXPECT_TRUE(reply.BoardInserted);
  frame[6] = 4;
  EXPECT_TRUE(Get<StatusReply>(frame).SlotActive);
}

TEST(Replies, NumbersAreMostSignificantByteFirst) {
  Frame frame{0x12, 1, 0x12, 0x67, 0x00, 0x0C};
  EXPECT_EQ(Get<IdentityReply>(frame).High, 4711);
  EXPECT_EQ(Get<IdentityReply>(frame).Low, 12);
  frame = {0xB3, 0, 0, 0, 0, 0, 0, 0, 0x01, 0x02, 0x03, 0x04};
  EXPECT_EQ(Get<CounterReply>(frame).Value, 0x01020304U);
}

template <typename Reply>
Frame PutBack(const Frame& frame) {
  Frame copy{};
  Put(Get<Reply>(frame), copy);
  return copy;
}

TEST(Replies, PutGivesBackWhatGetTook) {
  const Frame status{0x19, 57, 1, 2, 3, 13, 0x1C};
  EXPECT_EQ(PutBack<StatusReply>(status), status);
  const Frame version{0x1A, 2, 0x90, 1, 0x12, 3};
  EXPECT_EQ(PutBack<VersionReply>(version), version);
  const Frame sensor{0x1B, 4, 23};
  EXPECT_EQ(PutBack<SensorReply>(sensor), sensor);
  const Frame identity{0x12, 1, 0x12, 0x67, 0x00, 0x0C};
  EXPECT_EQ(PutBack<IdentityReply>(identity), identity);
  Frame counter{0xB3, 0, 1, 0, 0, 0, 0, 0, 1, 2, 3, 4};
  EXPECT_EQ(PutBack<CounterReply>(counter), counter);
  Frame test{0x9E};
  std::iota(test.begin() + 9, test.end(), std::uint8_t{1});
  EXPECT_EQ(PutBack<TestReply>(test), test);
  const Frame sort{0x35, 1, 0x21, 1, 61, 86, 0};
  EXPECT_EQ(PutBack<SortCommand>(sort), sort);
  Frame route{0x9F, 28, 1};
  std::iota(route.begin() + 8, route.begin() + 63, std::uint8_t{1});
  EXPECT_EQ(PutBack<RouteCommand>(route), route);
  Frame board{0x9D};
  std::fill_n(board.begin() + 8, 52, std::uint8_t{3});
  EXPECT_EQ(PutBack<BoardReply>(board), board);
  Frame log{0xA0};
  std::iota(log.begin() + 8, log.begin() + 63, std::uint8_t{1});
  EXPECT_EQ(PutBack<CardLogReply>(log), log);
  EXPECT_EQ(Get<CardLogReply>(log).Cards[MachineCard(1)], 1);
  EXPECT_EQ(Get<CardLogReply>(log).Cards[MachineCard(55)], 55);
}

}  // namespace
}  // namespace morvane::wire
