#include <set>

#include "simulator/talk.h"
#include "support/fakes.h"

namespace morvane::simulator {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

TEST(Dealing, EveryPocketHoldsItsHandWhateverThePack) {
  for (std::uint64_t seed = 1; seed <= 300; ++seed) {
    Talk talk(Talk::Fast(seed));
    const Board board = RandomBoard(seed * 7919);
    ASSERT_TRUE(talk.Accepted(DealFrame(board)));
    ASSERT_EQ(talk.PollToEnd(), 0);
    ASSERT_TRUE(LiesAs(talk.Machine, board)) << seed;
  }
}

TEST(Dealing, TellsTheDealtBoardByHand) {
  Talk talk;
  Board board = test::RoundBoard(3);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  ASSERT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(talk.Machine.DealtBoard().Cards, board.Cards);
  EXPECT_EQ(talk.Machine.DealtBoard().Status, Board::kComplete);
  const auto pockets = talk.Machine.CardsByPocket();
  const auto hands = talk.Machine.CardsByHand();
  EXPECT_EQ(pockets[4], hands[kNorth]);
  EXPECT_EQ(pockets[3], hands[kEast]);
  EXPECT_EQ(pockets[1], hands[kSouth]);
  EXPECT_EQ(pockets[2], hands[kWest]);
}

TEST(Dealing, AsFastAsAskedOneCardFallsAPollAndNoTimePasses) {
  Talk talk;
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
  for (int fallen = 1; fallen <= 51; ++fallen) {
    const Bytes reply = talk.Status();
    ASSERT_EQ(reply.at(1), 0xFF);
    ASSERT_EQ(reply[2] + reply[3] + reply[4] + reply[5], fallen);
  }
  const Bytes last = talk.Status();
  EXPECT_EQ(Bytes(last.begin() + 1, last.begin() + 6), (Bytes{0, 13, 13, 13, 13}));
  EXPECT_EQ(talk.Clock.Elapsed().count(), 0);
}

TEST(Dealing, ARealMachineTakesAboutFifteenSeconds) {
  Options options = Talk::Fast();
  options.Speed = 1.0;
  Talk talk(options);
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  ASSERT_EQ(talk.PollToEnd(), 0);
  EXPECT_NEAR(static_cast<double>(talk.Clock.Elapsed().count()) / 1e6, 15.0, 1.0);
  EXPECT_TRUE(LiesAs(talk.Machine, board));
}

TEST(Dealing, TheSpeedDividesTheTime) {
  Options options = Talk::Fast();
  options.Speed = 10.0;
  Talk talk(options);
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
  ASSERT_EQ(talk.PollToEnd(), 0);
  EXPECT_NEAR(static_cast<double>(talk.Clock.Elapsed().count()) / 1e6, 1.5, 0.1);
}

TEST(Dealing, AnExchangeTakesTheTimeOfTheWireAndTheMachine) {
  Options options = Talk::Fast();
  options.Speed = 1.0;
  Talk talk(options);
  ASSERT_EQ(talk.State(), 0);
  // Eight bytes there and eight back at 11520 a second, 694 us each, and 2 ms to think.
  EXPECT_EQ(talk.Clock.Elapsed().count(), 694 + 2000 + 694);
}

TEST(Dealing, TheCardsFallWhileNobodyLooks) {
  Options options = Talk::Fast();
  options.Speed = 1.0;
  Talk talk(options);
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
  talk.Clock.Spend(milliseconds(2900));
  const Bytes reply = talk.Status();
  EXPECT_EQ(reply.at(1), 0xFF);
  EXPECT_EQ(reply[2] + reply[3] + reply[4] + reply[5], 10);  // 2.9 s at 0.28 s a card
  talk.Clock.Spend(seconds(60));
  EXPECT_EQ(talk.State(), 0);
}

TEST(Dealing, TheCardLogNumbersTheCardsInTheOrderTheyFell) {
  Talk talk;
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
  for (int poll = 1; poll <= 7; ++poll) talk.Status();
  const Bytes log = talk.Ask({0x20});
  std::multiset<int> numbers(log.begin() + 8, log.begin() + 8 + 55);
  EXPECT_EQ(numbers.count(0), 55U - 7U);
  for (int n = 1; n <= 7; ++n) EXPECT_EQ(numbers.count(n), 1U) << n;
  std::size_t lying = 0;
  const auto hands = talk.Machine.CardsByHand();
  for (const auto& hand : hands) {
    lying += hand.size();
    for (const int card : hand) EXPECT_NE(log[ByteOfCard(card)], 0) << card;
  }
  EXPECT_EQ(lying, 7U);
}

TEST(Dealing, ThePackIsFedInTheOrderItWasLoaded) {
  Talk talk;
  std::array<int, 52> pack{};
  for (int i = 0; i < 52; ++i) pack[static_cast<std::size_t>(i)] = 52 - i;
  ASSERT_TRUE(talk.Machine.LoadPack(pack));
  ASSERT_TRUE(talk.Accepted(DealFrame(test::SuitBoard(1))));
  ASSERT_EQ(talk.PollToEnd(), 0);
  const Bytes log = talk.Ask({0x20});
  for (int card = 1; card <= 52; ++card) EXPECT_EQ(log[ByteOfCard(card)], 53 - card);
  EXPECT_EQ(talk.Machine.CardsByHand()[kWest].front(), 52);
}

TEST(Dealing, APackThatIsNoneIsRefused) {
  Talk talk;
  std::array<int, 52> pack{};
  std::iota(pack.begin(), pack.end(), 1);
  pack[3] = 5;  // twice
  EXPECT_FALSE(talk.Machine.LoadPack(pack));
  pack[3] = 53;
  EXPECT_FALSE(talk.Machine.LoadPack(pack));
  pack[3] = 0;
  EXPECT_FALSE(talk.Machine.LoadPack(pack));
}

TEST(Dealing, ANewStartEmptiesThePocketsAndTakesAFreshPack) {
  Talk talk;
  const Board board = RandomBoard(5);
  std::set<Bytes> logs;
  for (int copy = 1; copy <= 3; ++copy) {
    ASSERT_TRUE(talk.Accepted(DealFrame(board)));
    ASSERT_EQ(talk.PollToEnd(), 0);
    EXPECT_TRUE(LiesAs(talk.Machine, board));
    logs.insert(talk.Ask({0x20}));
  }
  EXPECT_EQ(logs.size(), 3U);
}

TEST(Dealing, TheSameSeedGivesTheSamePacks) {
  const auto log = [](const Options& options) {
    Talk talk(options);
    EXPECT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
    EXPECT_EQ(talk.PollToEnd(), 0);
    return talk.Ask({0x20});
  };
  EXPECT_EQ(log(Talk::Fast(42)), log(Talk::Fast(42)));
  EXPECT_NE(log(Talk::Fast(42)), log(Talk::Fast(43)));
  Options unseeded = Talk::Fast();
  unseeded.Seed.reset();
  EXPECT_NE(log(unseeded), log(unseeded));
}

TEST(Dealing, ASeedGivenLaterTakesOver) {
  Talk a(Talk::Fast(1));
  Talk b(Talk::Fast(2));
  b.Machine.ShuffleWith(1);
  for (Talk* talk : {&a, &b}) {
    ASSERT_TRUE(talk->Accepted(DealFrame(RandomBoard(5))));
    ASSERT_EQ(talk->PollToEnd(), 0);
  }
  EXPECT_EQ(a.Ask({0x20}), b.Ask({0x20}));
}

TEST(Dealing, TheCounterGoesUpWithEachFinishedBoard) {
  Talk talk;
  for (int board = 1; board <= 3; ++board) {
    ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
    talk.Status();
    EXPECT_EQ(talk.Machine.BoardsDealt(), board - 1);
    ASSERT_EQ(talk.PollToEnd(), 0);
  }
  const Bytes reply = talk.Ask({0x33, 0, 0});
  EXPECT_EQ(reply.at(0), 0xB3);
  EXPECT_EQ(Bytes(reply.begin() + 8, reply.begin() + 12), (Bytes{0, 0, 0, 3}));
  EXPECT_EQ(talk.Machine.BoardsDealt(), 3);
}

TEST(Dealing, OtherCountersAreZeroAndEchoed) {
  Talk talk;
  const Bytes reply = talk.Ask({0x33, 0, 5});
  EXPECT_EQ(reply.at(2), 5);
  EXPECT_EQ(Bytes(reply.begin() + 8, reply.begin() + 12), (Bytes{0, 0, 0, 0}));
}

TEST(Dealing, TheSameStartOnceMoreIsARepetition) {
  Talk talk;
  const Board board = RandomBoard(5);
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  for (int poll = 1; poll <= 20; ++poll) talk.Status();
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  const Bytes reply = talk.Status();
  EXPECT_EQ(reply[2] + reply[3] + reply[4] + reply[5], 21);
  ASSERT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(talk.Machine.BoardsDealt(), 1);
  EXPECT_TRUE(LiesAs(talk.Machine, board));
}

TEST(Dealing, AnotherBoardMeanwhileBeginsAnew) {
  Talk talk;
  const Board second = RandomBoard(6);
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
  for (int poll = 1; poll <= 20; ++poll) talk.Status();
  ASSERT_TRUE(talk.Accepted(DealFrame(second)));
  ASSERT_EQ(talk.PollToEnd(), 0);
  EXPECT_TRUE(LiesAs(talk.Machine, second));
}

TEST(Dealing, AListWithANumberThatIsNoPocketIsNotTaken) {
  Talk talk;
  Bytes frame = DealFrame(RandomBoard(5));
  frame[30] = 5;
  EXPECT_FALSE(talk.Accepted(frame));
  EXPECT_EQ(talk.State(), 0);
  frame[30] = 3;
  frame[60] = 200;  // behind the list: means nothing
  EXPECT_TRUE(talk.Accepted(frame));
}

TEST(Dealing, AStartIsTakenWithEveryRotationAndItsOwnTableEntries) {
  for (std::uint8_t rotation = 0; rotation <= 3; ++rotation) {
    Talk talk;
    Bytes frame = DealFrame(RandomBoard(5));
    frame[2] = 0xFF;
    frame[3] = rotation;
    frame[4] = static_cast<std::uint8_t>(11 + 50 * rotation);
    frame[5] = static_cast<std::uint8_t>(36 + 50 * rotation);
    frame[6] = 7;
    EXPECT_TRUE(talk.Accepted(frame)) << int{rotation};
  }
}

TEST(Dealing, AStartWhoseRotationBytesDisagreeIsNotTaken) {
  const Bytes good = DealFrame(RandomBoard(5));
  for (const std::size_t byte : {std::size_t{3}, std::size_t{4}, std::size_t{5}}) {
    Talk talk;
    Bytes frame = good;
    frame[byte] ^= 4;
    EXPECT_FALSE(talk.Accepted(frame)) << byte;
    EXPECT_FALSE(talk.Accepted({0x35, 0, 0, frame[3], frame[4], frame[5], 0})) << byte;
    EXPECT_FALSE(talk.Machine.Busy()) << byte;
  }
}

TEST(Dealing, ACardThatNobodyWantsStopsTheMachine) {
  Talk talk;
  Bytes frame = DealFrame(RandomBoard(5));
  frame[30] = 0;
  ASSERT_TRUE(talk.Accepted(frame));
  EXPECT_EQ(talk.PollToEnd(), 62);
}

}  // namespace
}  // namespace morvane::simulator
