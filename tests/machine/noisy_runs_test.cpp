#include "support/noisy_runs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace morvane::machine {
namespace {

using test::NoisyRuns;
using test::RunTally;

class NoisyRunsTest : public ::testing::TestWithParam<RunKind> {};

TEST_P(NoisyRunsTest, OverAGoodLineNothingIsRepeatedAndNothingShown) {
  NoisyRuns runs(GetParam(), 0.0, 1);
  ASSERT_TRUE(runs.Run(20));
  const RunTally& tally = runs.Tally();
  EXPECT_EQ(tally.Ok, 20);
  EXPECT_EQ(tally.AtOnce, 20);
  EXPECT_EQ(tally.Wrong + tally.Unknown, 0);
  EXPECT_EQ(tally.Repeats, 0);
  EXPECT_THAT(tally.Shown, testing::IsEmpty());
}

TEST_P(NoisyRunsTest, WhatTheLogCallsOkLiesRight) {
  RunTally all;
  for (const std::uint64_t seed : {1U, 2U, 3U}) {
    NoisyRuns runs(GetParam(), 0.004, seed);
    ASSERT_TRUE(runs.Run(60));
    const RunTally& tally = runs.Tally();
    EXPECT_EQ(tally.Ok, 60);
    EXPECT_EQ(tally.AtOnce + tally.AfterRepeats + tally.AfterFaults, 60);
    EXPECT_EQ(tally.Wrong, 0) << seed;
    all.AfterRepeats += tally.AfterRepeats;
    all.LinkLost += tally.LinkLost;
  }
  EXPECT_GT(all.AfterRepeats, 0) << "the line was not bad enough to show anything";
  EXPECT_GT(all.LinkLost, 0);
}

TEST_P(NoisyRunsTest, ABoardThatLiesWrongIsCounted) {
  NoisyRuns runs(GetParam(), 0.0, 1);
  int boards = 0;
  runs.OnPockets = [&](Board& pockets) {
    if (++boards != 7) return;
    const auto other = std::find_if(pockets.Cards.begin() + 2, pockets.Cards.end(),
                                    [&](std::uint8_t hand) { return hand != pockets.Cards[1]; });
    std::swap(pockets.Cards[1], *other);
  };
  ASSERT_TRUE(runs.Run(10));
  EXPECT_EQ(runs.Tally().Wrong, 1);
}

TEST_P(NoisyRunsTest, ALineThatIsTooBadIsGivenUp) {
  NoisyRuns runs(GetParam(), 0.5, 1);
  EXPECT_FALSE(runs.Run(2));
  EXPECT_EQ(runs.Tally().Ok, 0);
}

INSTANTIATE_TEST_SUITE_P(Every, NoisyRunsTest, ::testing::Values(RunKind::kDeal, RunKind::kRead),
                         [](const auto& kind) {
                           return std::string(kind.param == RunKind::kDeal ? "deal" : "read");
                         });

}  // namespace
}  // namespace morvane::machine
