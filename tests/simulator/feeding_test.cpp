// A card that a technician feeds, against frames on paper.

#include <gmock/gmock.h>

#include "simulator/talk.h"

namespace morvane::simulator {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;

const Bytes kFeed{23, 0, 1};
const Bytes kLook{23, 0, 0};

Options OfSpeed(double speed) {
  Options options = Talk::Fast();
  options.Speed = speed;
  return options;
}

/// The seven plain bytes of a frame.
Bytes Head(const Bytes& frame) {
  return frame.size() < 7 ? Bytes() : Bytes(frame.begin(), frame.begin() + 7);
}

int PhotoBits(const Bytes& reply) { return reply.empty() ? -1 : reply[6] & 0x1F; }

/// What comes unasked when machine card `card` is fed.
Bytes VerdictOn(int card) {
  Talk talk;
  EXPECT_TRUE(talk.Machine.LayInFeeder(std::vector{card}));
  EXPECT_EQ(talk.Ask(kFeed).at(0), 23);
  return Head(talk.Receive());
}

TEST(Feeding, TheVerdictComesUnaskedBehindTheAnswer) {
  // Time in bytes 1 and 2, rank, suit, threshold, no error.
  EXPECT_THAT(VerdictOn(13), ElementsAre(21, 0, 41, 14, 1, 46, 0)) << "the Ace of Spades";
  EXPECT_THAT(VerdictOn(14), ElementsAre(21, 0, 41, 2, 2, 46, 0)) << "the Two of Hearts";
  EXPECT_THAT(VerdictOn(38), ElementsAre(21, 0, 41, 13, 3, 46, 0)) << "the King of Diamonds";
  EXPECT_THAT(VerdictOn(48), ElementsAre(21, 0, 41, 10, 4, 46, 0)) << "the Ten of Clubs";
}

TEST(Feeding, AJokerIsAnError) { EXPECT_THAT(VerdictOn(54), ElementsAre(21, 0, 41, 0, 0, 46, 25)); }

TEST(Feeding, WhereNothingIsFedNothingComesUnasked) {
  Talk talk;
  EXPECT_EQ(talk.Ask(kLook).at(0), 23);
  EXPECT_TRUE(talk.Receive().empty());
  EXPECT_EQ(talk.Ask(kFeed).at(0), 23);
  EXPECT_EQ(talk.Receive().at(0), 21);
  EXPECT_TRUE(talk.Receive().empty()) << "once";
  EXPECT_EQ(talk.Ask(kLook).at(0), 23);
  EXPECT_TRUE(talk.Receive().empty());
}

// A card takes 280 ms, 56 of them at each photo sensor.
TEST(Feeding, TheCardPassesThePhotoSensorsOneAfterTheOther) {
  Talk talk(OfSpeed(1));
  EXPECT_EQ(PhotoBits(talk.Ask(kFeed)), 0x01);
  EXPECT_EQ(PhotoBits(talk.Ask(kLook)), 0x01);
  for (const int bit : {0x02, 0x04, 0x08, 0x10}) {
    talk.Clock.Spend(milliseconds(56 - 3));  // an exchange takes 3.4 ms
    const Bytes reply = talk.Ask(kLook);
    EXPECT_EQ(PhotoBits(reply), bit);
    EXPECT_EQ(reply.at(1) != reply.at(5), bit == 0x10) << "a dark one and a free one";
  }
  talk.Clock.Spend(milliseconds(53));
  EXPECT_EQ(PhotoBits(talk.Ask(kLook)), 0);
}

TEST(Feeding, TheVerdictComesBehindTheFirstAnswerAfterTheCardHasPassed) {
  Talk talk(OfSpeed(1));
  ASSERT_EQ(talk.Ask(kFeed).at(0), 23);
  talk.Clock.Spend(milliseconds(270));
  ASSERT_EQ(talk.Ask({27, 0}).at(0), 27);
  ASSERT_TRUE(talk.Receive().empty()) << "and 200 ms have gone";
  EXPECT_EQ(talk.Ask({27, 0}).at(0), 27);
  EXPECT_EQ(talk.Receive().at(0), 21);
}

TEST(Feeding, ASecondCardDoesNotFollowBeforeTheFirstHasPassed) {
  Talk talk(OfSpeed(1));
  ASSERT_TRUE(talk.Machine.LayInFeeder(std::vector{1, 2, 3}));
  talk.Ask(kFeed);
  talk.Clock.Spend(milliseconds(100));
  talk.Ask(kFeed);
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 2U);
  talk.Clock.Spend(milliseconds(280));
  EXPECT_EQ(PhotoBits(talk.Ask(kFeed)), 0x01);
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 1U);
  EXPECT_EQ(talk.Receive().at(3), 2) << "the verdict on the first, a Two";
}

TEST(Feeding, AtSpeedZeroAllPhotoSensorsSeeTheCardInTheAnswerThatFeedsIt) {
  Talk talk;
  EXPECT_EQ(PhotoBits(talk.Ask(kFeed)), 0x1F);
  talk.Flush();
  EXPECT_EQ(PhotoBits(talk.Ask(kLook)), 0);
}

TEST(Feeding, TheCardFallsIntoNorth) {
  Talk talk;
  ASSERT_TRUE(talk.Machine.LayInFeeder(std::vector{13, 14}));
  talk.Ask(kFeed);
  EXPECT_THAT(talk.Machine.MachineCardsByPocket()[4], ElementsAre(13));
  EXPECT_THAT(talk.Machine.NextCards(5), ElementsAre(26)) << "the Two of Hearts";
}

TEST(Feeding, AnEmptyFeederGetsAPack) {
  Talk talk;
  talk.Ask(kFeed);
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 51U);
}

TEST(Feeding, ARunIsNotDisturbed) {
  Talk talk;
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
  EXPECT_EQ(talk.Ask(kFeed).at(0), 23);
  EXPECT_TRUE(talk.Receive().empty());
  EXPECT_EQ(talk.Machine.CardsInFeeder(), 52U);
  EXPECT_EQ(talk.PollToEnd(), 0);
}

TEST(Feeding, AVerdictThatALostAnswerCarriesComesBehindTheNext) {
  Talk talk;
  talk.Machine.Faults().AtExchange(1, LinkFault::LoseReply());
  EXPECT_TRUE(talk.Ask(kFeed).empty());
  EXPECT_EQ(talk.Ask({27, 0}).at(0), 27);
  EXPECT_EQ(talk.Receive().at(0), 21);
}

TEST(Feeding, APowerCycleForgetsTheCard) {
  Talk talk(OfSpeed(1));
  talk.Ask(kFeed);
  talk.Machine.PowerOff();
  talk.Machine.PowerOn();
  talk.Clock.Spend(milliseconds(1000));
  EXPECT_EQ(PhotoBits(talk.Ask(kLook)), 0);
  EXPECT_TRUE(talk.Receive().empty());
}

TEST(Feeding, WithoutFirmwareNothingIsFed) {
  Options options = Talk::Fast();
  options.BootMajor = options.BootMinor = 0;
  Talk talk(options);
  EXPECT_EQ(PhotoBits(talk.Ask(kFeed)), 0);
  EXPECT_TRUE(talk.Receive().empty());
}

TEST(Feeding, TheVerdictStandsAmongTheFrames) {
  Talk talk;
  ASSERT_TRUE(talk.Machine.LayInFeeder(std::vector{13}));
  talk.Ask(kFeed);
  ASSERT_EQ(talk.Machine.Frames().Count(), 2U);
  EXPECT_EQ(talk.Machine.Frames().Text(1), "unasked: verdict: rank 14, suit 1");
}

}  // namespace
}  // namespace morvane::simulator
