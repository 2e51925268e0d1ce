#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "support/noisy_dealing.h"

namespace morvane::machine {
namespace {

using test::DealingTally;
using test::NoisyDealing;

TEST(NoisyDeals, OverAGoodLineNothingIsRepeatedAndNothingShown) {
  NoisyDealing dealing(0.0, 1);
  ASSERT_TRUE(dealing.Deal(20));
  const DealingTally& tally = dealing.Tally();
  EXPECT_EQ(tally.Ok, 20);
  EXPECT_EQ(tally.AtOnce, 20);
  EXPECT_EQ(tally.Wrong, 0);
  EXPECT_EQ(tally.Repeats, 0);
  EXPECT_THAT(tally.Shown, testing::IsEmpty());
}

TEST(NoisyDeals, WhatTheLogCallsOkLiesRight) {
  DealingTally all;
  for (const std::uint64_t seed : {1U, 2U, 3U}) {
    NoisyDealing dealing(0.004, seed);
    ASSERT_TRUE(dealing.Deal(60));
    const DealingTally& tally = dealing.Tally();
    EXPECT_EQ(tally.Ok, 60);
    EXPECT_EQ(tally.AtOnce + tally.AfterRepeats + tally.AfterFaults, 60);
    EXPECT_EQ(tally.Wrong, 0) << seed;
    all.AfterRepeats += tally.AfterRepeats;
    all.LinkLost += tally.LinkLost;
  }
  EXPECT_GT(all.AfterRepeats, 0) << "the line was not bad enough to show anything";
  EXPECT_GT(all.LinkLost, 0);
}

TEST(NoisyDeals, ABoardThatLiesWrongIsCounted) {
  NoisyDealing dealing(0.0, 1);
  int boards = 0;
  dealing.OnPockets = [&](Board& pockets) {
    if (++boards != 7) return;
    const auto other = std::find_if(pockets.Cards.begin() + 2, pockets.Cards.end(),
                                    [&](std::uint8_t hand) { return hand != pockets.Cards[1]; });
    std::swap(pockets.Cards[1], *other);
  };
  ASSERT_TRUE(dealing.Deal(10));
  EXPECT_EQ(dealing.Tally().Wrong, 1);
}

TEST(NoisyDeals, ALineThatIsTooBadIsGivenUp) {
  NoisyDealing dealing(0.5, 1);
  EXPECT_FALSE(dealing.Deal(2));
  EXPECT_EQ(dealing.Tally().Ok, 0);
}

}  // namespace
}  // namespace morvane::machine
