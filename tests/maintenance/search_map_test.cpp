#include "maintenance/search_map.h"

#include <gtest/gtest.h>

namespace morvane::maintenance {
namespace {

using wire::CardIndex;
using Mark = SearchMap::Mark;
using Place = SearchMap::Place;

/// A search with its map, a second a trial.
struct Searched {
  explicit Searched(CardIndex index) : Search(index), Map(Search, 100) {}
  void Trial(const TrialAnswer& answer) {
    Search.Take(answer);
    Map.Take(Now += 1);
  }
  void Miss(int times = 1) {
    for (int i = 0; i < times; ++i) Trial({});
  }
  /// A symbol of 40 by 60, off its place by `off` either way.
  void Hit(int off = 0) {
    const auto at = [off](int place) { return static_cast<std::uint8_t>(place + off); };
    Trial({.Verdict = {.Rank = 10, .Suit = 1},
           .Symbol = {.XMin = at(54), .XMax = at(94), .YMin = at(20), .YMax = at(80)},
           .Suit = {}});
  }
  SetupSearch Search;
  double Now = 100;
  SearchMap Map;
};

TEST(SearchMap, HasTheRowsOfTheIndex) {
  EXPECT_EQ(SearchMap::kColumns, 23);
  EXPECT_EQ(Searched(CardIndex::Standard).Map.Rows(), 10);
  EXPECT_EQ(Searched(CardIndex::Jumbo).Map.Rows(), 1);
  EXPECT_EQ(Searched(CardIndex::Small).Map.Rows(), 12);
  EXPECT_EQ(Searched(CardIndex::Small).Map.FirstY(), 130);
}

TEST(SearchMap, MarksWhereItHasBeen) {
  Searched searched(CardIndex::Standard);
  EXPECT_EQ(searched.Map.At(0, 0), Mark::kAhead);
  searched.Miss(24);
  EXPECT_EQ(searched.Map.At(0, 0), Mark::kMissed);
  EXPECT_EQ(searched.Map.At(22, 0), Mark::kMissed);
  EXPECT_EQ(searched.Map.At(0, 1), Mark::kMissed);
  EXPECT_EQ(searched.Map.At(1, 1), Mark::kAhead);
  EXPECT_EQ(searched.Map.Here(), (Place{1, 1}));
  EXPECT_EQ(searched.Map.RowNow(), 1);
}

TEST(SearchMap, AHitIsMarkedUntilItIsLostInAnyRound) {
  for (const int rounds : {1, 2}) {
    SCOPED_TRACE(rounds);
    Searched searched(CardIndex::Standard);
    searched.Miss(3);
    for (int i = 0; i < rounds; ++i) searched.Hit();
    EXPECT_EQ(searched.Map.At(3, 0), Mark::kHit);
    EXPECT_EQ(searched.Map.At(4, 0), Mark::kAhead);
    EXPECT_EQ(searched.Map.HitsLost(), 0);
    searched.Miss();
    EXPECT_EQ(searched.Map.At(3, 0), Mark::kLost);
    EXPECT_EQ(searched.Map.HitsLost(), 1);
    EXPECT_EQ(searched.Map.Here(), (Place{4, 0}));
    searched.Miss();
    EXPECT_EQ(searched.Map.At(4, 0), Mark::kMissed);
  }
}

// 50 - 5 lies between the columns of 40 and 50, 110 - 5 between the first two rows.
TEST(SearchMap, WhereItIsMayLieBetweenThePointsOfTheGrid) {
  Searched searched(CardIndex::Standard);
  searched.Miss(3);
  searched.Hit(5);
  EXPECT_EQ(searched.Map.Here(), (Place{2.5, 0.5}));
  EXPECT_EQ(searched.Map.RowNow(), 0);
}

TEST(SearchMap, WhereItIsStaysOnTheMap) {
  Searched searched(CardIndex::Standard);
  searched.Hit(30);  // 20 - 30 is held at 1
  EXPECT_EQ(searched.Search.At().pos_x, 1);
  EXPECT_EQ(searched.Map.Here().Column, 0);
}

TEST(SearchMap, ACardThatWasFoundStaysAHit) {
  Searched searched(CardIndex::Small);
  searched.Miss();
  for (int i = 0; i < 3; ++i) searched.Hit();
  ASSERT_EQ(searched.Search.Now(), SetupSearch::State::kFound);
  searched.Map.Take(300);
  EXPECT_EQ(searched.Map.At(1, 0), Mark::kHit);
  EXPECT_EQ(searched.Map.SecondsLeft(), 0);
}

TEST(SearchMap, OfACardThatIsNotThereEveryPointIsMarked) {
  for (const auto& [index, trials] :
       {std::pair(CardIndex::Jumbo, 23), {CardIndex::Standard, 230}}) {
    Searched searched(index);
    searched.Miss(trials);
    ASSERT_EQ(searched.Search.Now(), SetupSearch::State::kNotFound);
    for (int row = 0; row < searched.Map.Rows(); ++row) {
      for (int column = 0; column < SearchMap::kColumns; ++column) {
        EXPECT_EQ(searched.Map.At(column, row), Mark::kMissed) << column << " " << row;
      }
    }
  }
}

// Two trials in three seconds: 1.5 s each for the 228 that are left.
TEST(SearchMap, TheTimeLeftFollowsFromTheTrialsBehind) {
  SetupSearch search(CardIndex::Standard);
  SearchMap map(search, 100);
  EXPECT_EQ(map.SecondsLeft(), std::nullopt);
  for (const double now : {101.0, 103.0}) {
    search.Take({});
    map.Take(now);
  }
  EXPECT_EQ(map.SecondsLeft(), 342);
}

}  // namespace
}  // namespace morvane::maintenance
