// The frames of a test deal against their tables on paper.

#include <gmock/gmock.h>

#include <numeric>

#include "support/scripted_bridge.h"
#include "wire/picture_commands.h"
#include "wire/service_commands.h"

namespace morvane::wire {
namespace {

using test::Bytes;
using ::testing::Each;
using ::testing::ElementsAre;

constexpr std::uint8_t kR = 0xEE;

template <typename Command>
Frame Whole(const Command& command, std::uint8_t filler = kR) {
  Frame frame;
  frame.fill(filler);
  Put(command, frame);
  return frame;
}

/// Bytes `first` to `last` of a frame.
Bytes Part(const Frame& frame, std::size_t first, std::size_t last) {
  return {frame.begin() + static_cast<std::ptrdiff_t>(first),
          frame.begin() + static_cast<std::ptrdiff_t>(last) + 1};
}

TEST(TestDealFrames, TheExpectedDeckIsTheCardsInOrderAndThreeZeros) {
  RouteCommand route{.Count = 52, .TestDeal = true, .Order = {}};
  std::iota(route.Order.Bytes.begin(), route.Order.Bytes.begin() + 52, std::uint8_t{1});
  const Frame frame = Whole(route);
  EXPECT_THAT(Part(frame, 0, 7), ElementsAre(159, 52, 1, 0, 0, 0, kR, kR));
  Bytes cards(52);
  std::iota(cards.begin(), cards.end(), std::uint8_t{1});
  EXPECT_EQ(Part(frame, 8, 59), cards);
  EXPECT_THAT(Part(frame, 60, 62), ElementsAre(0, 0, 0));
  EXPECT_THAT(Part(frame, 63, 135), Each(kR)) << "stays as it stands";
}

TEST(TestDealFrames, AnExpectedDeckIsToldFromTheOrderOfAStack) {
  EXPECT_TRUE(Get<RouteCommand>({159, 52, 1}).TestDeal);
  EXPECT_FALSE(Get<RouteCommand>({159, 52, 0}).TestDeal);
  EXPECT_FALSE(Get<RouteCommand>({159, 52, 2}).TestDeal) << "garbled";
}

TEST(TestDealFrames, TheDealSendsEachCardToNorth) {
  StartCommand start;
  start.Pockets.Bytes.fill(4);
  Frame frame = Whole(start);
  EXPECT_THAT(Part(frame, 0, 7), ElementsAre(152, 0, 0, 0, 11, 36, 0, kR));
  EXPECT_THAT(Part(frame, 8, 59), Each(4));
  EXPECT_EQ(frame[60], kR) << "stays as it stands";
  start.Continue = true;
  frame = Whole(start);
  EXPECT_EQ(frame[1], 1);
}

TEST(TestDealFrames, OnlyTheLowestBitOfAPollIsFixed) {
  EXPECT_THAT(Part(Whole(TestPollCommand{}, 0xFF), 0, 7),
              ElementsAre(25, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF));
  EXPECT_THAT(Part(Whole(TestPollCommand{}, 0x00), 0, 7), ElementsAre(25, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(Part(Whole(TestPollCommand{true}, 0x00), 0, 7), ElementsAre(25, 1, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(Part(Whole(TestPollCommand{true}, kR), 0, 7),
              ElementsAre(25, 0xEF, kR, kR, kR, kR, kR, kR));
}

TEST(TestDealFrames, ABreakIsReadFromThatBitAlone) {
  EXPECT_TRUE(Get<TestPollCommand>({25, 0x01}).Break);
  EXPECT_TRUE(Get<TestPollCommand>({25, 0xFF}).Break);
  EXPECT_FALSE(Get<TestPollCommand>({25, 0xFE}).Break);
}

TEST(TestDealFrames, TheVerdictIsAskedInFiller) {
  EXPECT_THAT(Part(Whole(TestVerdictCommand{}), 0, 7), ElementsAre(37, kR, kR, kR, kR, kR, kR, kR));
}

TEST(TestDealFrames, TheCardsDealtAreSixBitsOfNorthsByte) {
  EXPECT_EQ(Get<StatusReply>({25, 0xFF, 0, 0, 0, 52, 0}).Pocket[4], 52);
  EXPECT_EQ(Get<StatusReply>({25, 0xFF, 0, 0, 0, 0xF4, 0}).Pocket[4], 52);
  EXPECT_EQ(Get<StatusReply>({25, 0xFF, 0, 0, 0, 0x40, 0}).Pocket[4], 0);
  EXPECT_EQ(Get<StatusReply>({25, 62, 0, 0, 0, 8, 0}).State, 62);
}

}  // namespace
}  // namespace morvane::wire
