#include "simulator/talk.h"
#include "support/fakes.h"

namespace morvane::simulator {
namespace {

/// A plain CmdRead for cards that come round from `first`: the pockets go 4, 3, 1, 2 by hand.
Bytes ReadFrame(int first = kNorth) {
  constexpr std::array<std::uint8_t, 4> kPockets{4, 3, 1, 2};
  Bytes plain(136);
  plain[0] = 0x9C;
  plain[4] = 11;
  plain[5] = 36;
  for (std::size_t k = 0; k < 52; ++k) {
    plain[8 + k] = kPockets[(k + static_cast<std::size_t>(first) - 1) % 4];
  }
  return plain;
}

/// A plain CmdRead for the cards of a hand one after the other, with one byte too many.
Bytes ReadByHands() {
  Bytes plain(136);
  plain[0] = 0x9C;
  plain[4] = 11;
  plain[5] = 36;
  for (std::size_t k = 0; k < 53; ++k) {
    plain[8 + k] = static_cast<std::uint8_t>(std::min<std::size_t>(k / 13 + 1, 4));
  }
  return plain;
}

/// The hand of each card in a plain 0x9D: pocket 1 South, 2 West, 3 East, 4 North.
std::array<std::uint8_t, 53> HandsIn(const Bytes& reply) {
  constexpr std::array<std::uint8_t, 5> kHands{0, 3, 4, 2, 1};
  std::array<std::uint8_t, 53> hands{};
  for (int card = 1; card <= 52; ++card) {
    hands[static_cast<std::size_t>(card)] = kHands.at(reply.at(ByteOfCard(card)));
  }
  return hands;
}

TEST(Reading, FindsTheBoardThatWasLaid) {
  for (std::uint64_t seed = 1; seed <= 50; ++seed) {
    Talk talk(Talk::Fast(seed));
    const Board board = RandomBoard(seed + 1000);
    talk.Machine.LayBoard(board);
    ASSERT_TRUE(talk.Accepted(ReadFrame()));
    ASSERT_EQ(talk.PollToEnd(), 0);
    const Bytes reply = talk.Ask({0x1D});
    ASSERT_EQ(reply.at(0), 0x9D);
    ASSERT_EQ(HandsIn(reply), board.Cards);
  }
}

TEST(Reading, APileByHandsWithOneByteTooManyIsReadToo) {
  Talk talk;
  const Board board = RandomBoard(8);
  talk.Machine.LayBoard(board);
  ASSERT_TRUE(talk.Accepted(ReadByHands()));
  ASSERT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(HandsIn(talk.Ask({0x1D})), board.Cards);
}

class ReadingAPile : public testing::Test {
 protected:
  Talk talk;
  const std::vector<Board> boards{RandomBoard(1), RandomBoard(2), RandomBoard(3)};

  void SetUp() override { talk.Machine.LayBoards(boards); }
  /// Reads to the end; the cards that were found, empty when the machine stopped.
  std::array<std::uint8_t, 53> Found(const Bytes& start = ReadFrame()) {
    EXPECT_TRUE(talk.Accepted(start));
    if (talk.PollToEnd() != 0) return {};
    return HandsIn(talk.Ask({0x1D}));
  }
};

TEST_F(ReadingAPile, EachRunFindsTheNextBoardInEitherMode) {
  EXPECT_EQ(Found(ReadFrame(kNorth)), boards[0].Cards);
  EXPECT_EQ(Found(ReadByHands()), boards[1].Cards);
  EXPECT_EQ(Found(ReadFrame(kWest)), boards[2].Cards);
}

TEST_F(ReadingAPile, ARunThatIsBegunAgainFindsTheSameBoard) {
  ASSERT_TRUE(talk.Accepted(ReadFrame()));
  for (int poll = 1; poll <= 30; ++poll) talk.Status();
  EXPECT_EQ(talk.Status(1).at(1), 57);
  EXPECT_EQ(Found(), boards[0].Cards) << "begun again";
  talk.Machine.CauseFault(25);
  ASSERT_TRUE(talk.Accepted(ReadFrame()));
  EXPECT_EQ(talk.PollToEnd(), 25);
  Bytes goOn = ReadFrame();
  goOn[1] = 1;
  EXPECT_EQ(Found(goOn), boards[1].Cards) << "gone on with";
  EXPECT_EQ(Found(), boards[2].Cards);
}

TEST_F(ReadingAPile, BehindTheLastBoardTheFeederIsEmptyAndGoingOnFindsThemPutBack) {
  for (const Board& board : boards) EXPECT_EQ(Found(), board.Cards);
  ASSERT_TRUE(talk.Accepted(ReadFrame()));
  EXPECT_EQ(talk.PollToEnd(), 55);
  EXPECT_EQ(talk.Machine.StateText(), "the feeder is empty");
  const Bytes reply = talk.Ask({0x1D});
  EXPECT_EQ(std::count(reply.begin() + 8, reply.begin() + 60, 0), 52);
  Bytes goOn = ReadFrame();
  goOn[1] = 1;
  EXPECT_EQ(Found(goOn), boards[0].Cards);
  EXPECT_EQ(Found(), boards[1].Cards);
}

TEST_F(ReadingAPile, BoardsLaidInTheMiddleOfARunAreAllThere) {
  ASSERT_TRUE(talk.Accepted(ReadFrame()));
  for (int poll = 1; poll <= 30; ++poll) talk.Status();
  talk.Machine.LayBoards({boards[2], boards[1]});
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(HandsIn(talk.Ask({0x1D})), boards[0].Cards) << "these cards were in the feeder";
  EXPECT_EQ(Found(), boards[2].Cards);
  EXPECT_EQ(Found(), boards[1].Cards);
}

TEST_F(ReadingAPile, DealingAndSortingTakeNothingFromIt) {
  ASSERT_TRUE(talk.Accepted(DealFrame(boards[2])));
  EXPECT_EQ(talk.PollToEnd(), 0);
  ASSERT_TRUE(talk.Accepted({0x35, 0, 0, 0, 11, 36, 0}));
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(Found(), boards[0].Cards);
}

TEST_F(ReadingAPile, ABoardLaidForGoodIsFoundByEveryRun) {
  talk.Machine.LayBoard(boards[1]);
  for (int run = 1; run <= 3; ++run) EXPECT_EQ(Found(), boards[1].Cards);
}

TEST(Reading, WithoutABoardTheShuffledPackIsRead) {
  Talk talk;
  ASSERT_TRUE(talk.Accepted(ReadFrame(kEast)));
  ASSERT_EQ(talk.PollToEnd(), 0);
  const Bytes reply = talk.Ask({0x1D});
  const Bytes log = talk.Ask({0x20});
  // The card that fell as number n went to pocket 3, 1, 2, 4 in turn.
  constexpr std::array<int, 4> kTurn{3, 1, 2, 4};
  for (std::size_t at = 8; at < 60; ++at) {
    EXPECT_EQ(reply[at], kTurn[static_cast<std::size_t>(log[at] - 1) % 4]) << at;
  }
}

TEST(Reading, ABrokenRunLeavesTheRestUnseen) {
  Talk talk;
  ASSERT_TRUE(talk.Accepted(ReadFrame()));
  for (int poll = 1; poll <= 12; ++poll) talk.Status();
  EXPECT_EQ(talk.Machine.StateText(), "reading card 13 of 52");
  EXPECT_EQ(talk.Status(1).at(1), 57);
  const Bytes reply = talk.Ask({0x1D});
  EXPECT_EQ(std::count(reply.begin() + 8, reply.begin() + 60, 0), 40);
  ASSERT_TRUE(talk.Accepted([] {
    Bytes frame = ReadFrame();
    frame[1] = 1;
    return frame;
  }()));
  EXPECT_EQ(talk.PollToEnd(), 0);
  EXPECT_EQ(talk.Machine.BoardsDealt(), 0);
}

TEST(Sorting, PutsFourPacksSuitBySuitWithFiftyTwoInEachPocket) {
  Talk talk;
  ASSERT_TRUE(talk.Accepted({0x35, 0, 0, 0, 11, 36, 0}));
  EXPECT_EQ(talk.Machine.StateText(), "sorting card 1 of 208");
  ASSERT_EQ(talk.PollToEnd(), 0);
  const Bytes reply = talk.Status();
  EXPECT_EQ(Bytes(reply.begin() + 2, reply.begin() + 6), (Bytes{52, 52, 52, 52}));
  const auto hands = talk.Machine.CardsByHand();
  for (std::size_t hand = 1; hand <= 4; ++hand) {
    for (const int card : hands[hand]) EXPECT_EQ((card - 1) / 13, static_cast<int>(hand) - 1);
  }
}

TEST(Sorting, GoesOnAfterABreak) {
  Talk talk;
  ASSERT_TRUE(talk.Accepted({0x35, 0, 0, 3, 161, 186, 0}));
  for (int poll = 1; poll <= 100; ++poll) talk.Status();
  EXPECT_EQ(talk.Status(1).at(1), 57);
  ASSERT_TRUE(talk.Accepted({0x35, 1, 0, 3, 161, 186, 0}));
  EXPECT_EQ(talk.PollToEnd(), 0);
}

TEST(Sorting, StopsAtTheCardOfAFaultAndGoesOn) {
  Options options = Talk::Fast();
  options.Faults = {{1, 150, 25}, {2, 1, 56}};
  Talk talk(options);
  ASSERT_TRUE(talk.Accepted({0x35, 0, 0, 0, 11, 36, 0}));
  EXPECT_EQ(talk.PollToEnd(), 25);
  EXPECT_EQ(talk.Machine.StateText(), "stopped at card 150 of 208 with code 25");
  const Bytes stopped = talk.Status();
  EXPECT_EQ(std::accumulate(stopped.begin() + 2, stopped.begin() + 6, 0), 149);
  ASSERT_TRUE(talk.Accepted({0x35, 1, 0, 0, 11, 36, 0}));
  EXPECT_EQ(talk.PollToEnd(), 0);
  ASSERT_TRUE(talk.Accepted({0x35, 0, 0, 1, 61, 86, 0}));
  EXPECT_EQ(talk.PollToEnd(), 56) << "the second pile";
}

TEST(Sorting, ABoardPulledOrAFaultByHandStopsIt) {
  Talk talk;
  talk.Machine.InsertBoard(1);
  ASSERT_TRUE(talk.Accepted({0x35, 0, 0, 0, 11, 36, 0}));
  talk.Status();
  talk.Machine.RemoveBoard();
  EXPECT_EQ(talk.PollToEnd(), 58);
  ASSERT_TRUE(talk.Accepted({0x35, 1, 0, 0, 11, 36, 0}));
  talk.Machine.CauseFault(54);
  EXPECT_EQ(talk.PollToEnd(), 54);
}

TEST(Sorting, TakesAsManyPacksAsItIsGiven) {
  Options options = Talk::Fast();
  options.Packs = 2;
  Talk talk(options);
  ASSERT_TRUE(talk.Accepted({0x35, 0, 0, 0, 11, 36, 0}));
  EXPECT_EQ(talk.Machine.StateText(), "sorting card 1 of 104");
  ASSERT_EQ(talk.PollToEnd(), 0);
  const Bytes reply = talk.Status();
  EXPECT_EQ(Bytes(reply.begin() + 2, reply.begin() + 6), (Bytes{26, 26, 26, 26}));
}

TEST(Sorting, AtARealPaceItTakesFourTimesAsLongAsABoard) {
  Options options = Talk::Fast();
  options.Speed = 1.0;
  Talk talk(options);
  ASSERT_TRUE(talk.Accepted({0x35, 0, 0, 0, 11, 36, 0}));
  const auto began = talk.Clock.Elapsed();
  ASSERT_EQ(talk.PollToEnd(), 0);
  const auto took = talk.Clock.Elapsed() - began;
  // 208 cards of 0.28 s; the end shows in the poll behind it.
  EXPECT_GE(took, std::chrono::milliseconds(58'230));
  EXPECT_LE(took, std::chrono::milliseconds(58'250));
}

TEST(Feeder, WhatItFeedsNextCanBeSeen) {
  Talk talk;
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 0U);
  EXPECT_TRUE(talk.Machine.NextCards(5).empty());
  std::array<int, 52> pack{};
  std::iota(pack.rbegin(), pack.rend(), 1);
  ASSERT_TRUE(talk.Machine.LoadPack(pack));
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(3))));
  EXPECT_EQ(talk.Machine.NextCards(3), (std::vector<int>{52, 51, 50}));
  for (int poll = 1; poll <= 50; ++poll) talk.Status();
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 2U);
  EXPECT_EQ(talk.Machine.NextCards(5), (std::vector<int>{2, 1}));
}

}  // namespace
}  // namespace morvane::simulator
