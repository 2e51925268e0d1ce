// What the simulated machine keeps of the card at which a run has stopped.

#include <gmock/gmock.h>

#include "simulator/camera_talk.h"

namespace morvane::simulator {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

/// Deals until the run stops with `code` at the first card, which is the Ace of Spades.
void StopAtTheAce(CameraTalk& talk, int code) {
  std::array<int, 52> pack{};
  std::iota(pack.begin(), pack.end(), 1);
  ASSERT_TRUE(talk.Machine.LoadPack(pack));
  talk.Machine.CauseFault(code);
  ASSERT_TRUE(talk.Accepted(DealFrame(RandomBoard(1))));
  ASSERT_EQ(talk.PollToEnd(), code);
}

Bytes Verdict(CameraTalk& talk) {
  const Bytes reply = talk.Ask({37, 0, 1, 2, 3, 4, 5});
  return reply.size() < 7 ? Bytes() : Bytes(reply.begin(), reply.begin() + 7);
}

TEST(ErrorPicture, IsEmptyBeforeTheFirstError) {
  CameraTalk talk;
  for (const Bytes& row : talk.Fetch(2)) {
    ASSERT_EQ(row.size(), 128U);
    EXPECT_THAT(row, Each(0));
  }
  EXPECT_THAT(Verdict(talk), ElementsAre(37, 0, 0, 0, 0, 0, 0));
  EXPECT_EQ(talk.Ask({37, 255, 254, 253, 252, 251, 250}).at(0), 37) << "all of it may be random";
}

TEST(ErrorPicture, IsOfTheCardAtWhichTheRunStopped) {
  CameraTalk talk;
  talk.Ask({23, 0, 0});  // in a run the machine has its own light
  StopAtTheAce(talk, 54);
  const Rows kept = talk.Fetch(2);
  EXPECT_EQ(Shapes(kept).at(0), (Bounds{59, 82, 21, 60}));
  EXPECT_THAT(Verdict(talk), ElementsAre(37, 0, 41, 14, 1, 46, 54));
  EXPECT_EQ(talk.Fetch(2), kept) << "taken once";
}

TEST(ErrorPicture, AWrongCardHasItsRankAndSuitAndTheRunsCode) {
  CameraTalk talk;
  StopAtTheAce(talk, 62);
  EXPECT_THAT(Verdict(talk), ElementsAre(37, 0, 41, 14, 1, 46, 62));
}

TEST(ErrorPicture, AWrongCardIsWhatItIsMistakenFor) {
  Options options = Talk::Fast();
  options.Misread = 28;
  CameraTalk talk(options);
  StopAtTheAce(talk, 62);
  EXPECT_THAT(Verdict(talk), ElementsAre(37, 0, 41, 3, 3, 46, 62)) << "the Three of Diamonds";
}

TEST(ErrorPicture, ACardThatHadNoPartInTheStopHasNoError) {
  CameraTalk talk;
  StopAtTheAce(talk, 57);
  EXPECT_THAT(Verdict(talk), ElementsAre(37, 0, 41, 14, 1, 46, 0));
}

TEST(ErrorPicture, ACardThatCouldNotBeTakenHasRank61) {
  CameraTalk talk;
  StopAtTheAce(talk, 55);
  EXPECT_THAT(Verdict(talk), ElementsAre(37, 0, 41, 61, 0, 46, 55));
}

TEST(ErrorPicture, ACardThatWasNotRecognisedHasTheRunsCode) {
  CameraTalk talk;
  StopAtTheAce(talk, 30);
  EXPECT_THAT(Verdict(talk), ElementsAre(37, 0, 41, 0, 0, 46, 30));
}

TEST(ErrorPicture, IsReplacedByTheNextErrorAndGoesWithThePower) {
  CameraTalk talk;
  StopAtTheAce(talk, 54);
  const Rows first = talk.Fetch(2);
  talk.Ask({26});
  StopAtTheAce(talk, 54);
  EXPECT_NE(talk.Fetch(2), first) << "other noise";
  talk.Machine.PowerOff();
  talk.Machine.PowerOn();
  EXPECT_THAT(talk.Fetch(2).at(30), Each(0));
  EXPECT_THAT(Verdict(talk), ElementsAre(37, 0, 0, 0, 0, 0, 0));
}

TEST(ErrorPicture, OneThatNobodyHasAskedForGoesWithThePowerToo) {
  CameraTalk talk;
  StopAtTheAce(talk, 54);
  talk.Machine.PowerOff();
  talk.Machine.PowerOn();
  EXPECT_THAT(Verdict(talk), ElementsAre(37, 0, 0, 0, 0, 0, 0));
}

TEST(ErrorPicture, ReadsTheLettersOfItsCards) {
  Options options = Talk::Fast();
  options.Letters = 5;
  CameraTalk talk(options);
  StopAtTheAce(talk, 54);
  EXPECT_THAT(Verdict(talk), ElementsAre(37, 0, 41, 14, 1, 46, 54)) << "its ace is an E";
}

TEST(ErrorPicture, LeavesTheBufferAndItsMeasuresAlone) {
  CameraTalk talk;
  const Rows grey = talk.CapturedAt(60, 90);
  StopAtTheAce(talk, 54);
  talk.Fetch(2);
  EXPECT_EQ(talk.Fetch(), grey);
  EXPECT_EQ(talk.Recognised(), (Bytes{10, 1, 0})) << "not the ace";
  const Rows labels = talk.Fetch();
  EXPECT_NE(labels, grey);
  StopAtTheAce(talk, 62);
  talk.Fetch(2);
  EXPECT_EQ(talk.Fetch(), labels);
}

TEST(ErrorPicture, TheBufferIsEmptyWhereNothingWasCaptured) {
  CameraTalk talk;
  StopAtTheAce(talk, 62);
  talk.Fetch(2);
  for (const Bytes& row : talk.Fetch()) EXPECT_THAT(row, Each(0));
}

}  // namespace
}  // namespace morvane::simulator
