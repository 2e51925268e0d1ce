#include "maintenance/setup_search.h"

#include <gtest/gtest.h>

namespace morvane::maintenance {
namespace {

using wire::CardIndex;
using State = SetupSearch::State;

TrialAnswer Miss() { return {}; }

/// The ten of spades, its symbol in this box.
TrialAnswer Hit(const wire::SymbolFrame& symbol) {
  return {.Verdict = {.Rank = 10, .Suit = 1}, .Symbol = symbol, .Suit = {}};
}

/// A symbol of 40 by 60 that stands where it belongs: a quarter of its width at 64, its top at 20.
constexpr wire::SymbolFrame kInPlace{.XMin = 54, .XMax = 94, .YMin = 20, .YMax = 80};

SetupSearch After(CardIndex index, int misses) {
  SetupSearch search(index);
  for (int i = 0; i < misses; ++i) search.Take(Miss());
  return search;
}

TEST(SetupSearch, BeginsWhereTheIndexIsExpected) {
  EXPECT_EQ(SetupSearch(CardIndex::Standard).At(), (SearchPosition{20, 110, 66, 60}));
  EXPECT_EQ(SetupSearch(CardIndex::Jumbo).At(), (SearchPosition{20, 22, 66, 60}));
  EXPECT_EQ(SetupSearch(CardIndex::Small).At(), (SearchPosition{20, 130, 66, 60}));
}

TEST(SetupSearch, ScansRowByRowByTens) {
  EXPECT_EQ(After(CardIndex::Standard, 1).At().pos_x, 30);
  EXPECT_EQ(After(CardIndex::Standard, 22).At(), (SearchPosition{240, 110, 66, 60}));
  EXPECT_EQ(After(CardIndex::Standard, 23).At(), (SearchPosition{20, 100, 66, 60}));
}

TEST(SetupSearch, EndsBehindTheRowAtTwenty) {
  // The rows 110, 100 .. 20, 23 trials each.
  EXPECT_EQ(After(CardIndex::Standard, 229).Now(), State::kSearching);
  EXPECT_EQ(After(CardIndex::Standard, 229).Progress(), 46) << "(220 + 220 x 9) / 48";
  EXPECT_EQ(After(CardIndex::Standard, 230).Now(), State::kNotFound);
  EXPECT_EQ(After(CardIndex::Standard, 230).Progress(), 100);
  EXPECT_EQ(SetupSearch(CardIndex::Standard).GridTrials(), 230);
  EXPECT_EQ(After(CardIndex::Small, 275).Now(), State::kSearching);
  EXPECT_EQ(After(CardIndex::Small, 276).Now(), State::kNotFound);
}

TEST(SetupSearch, OfTheJumboIndexThereIsOneRow) {
  EXPECT_EQ(After(CardIndex::Jumbo, 22).Now(), State::kSearching);
  const SetupSearch over = After(CardIndex::Jumbo, 23);
  EXPECT_EQ(over.Now(), State::kNotFound);
  EXPECT_EQ(over.At().pos_y, 22);
}

TEST(SetupSearch, AHitOnTheFirstTrialStillNeedsTwoMore) {
  SetupSearch search(CardIndex::Standard);
  search.Take(Hit(kInPlace));
  EXPECT_EQ(search.Now(), State::kSearching);
  EXPECT_EQ(search.Progress(), 90);
  search.Take(Hit(kInPlace));
  EXPECT_EQ(search.Now(), State::kSearching);
  EXPECT_EQ(search.Progress(), 95);
  search.Take(Hit(kInPlace));
  EXPECT_EQ(search.Now(), State::kFound);
  EXPECT_EQ(search.Progress(), 100);
  EXPECT_EQ(search.At(), (SearchPosition{20, 110, 66, 60}));
}

TEST(SetupSearch, ARefinementBringsTheSymbolToItsPlace) {
  SetupSearch search(CardIndex::Standard);
  // 40 wide: the quarter is at 74, 10 too far right; the top is 15 too low.
  search.Take(Hit({.XMin = 64, .XMax = 104, .YMin = 35, .YMax = 95}));
  EXPECT_EQ(search.At(), (SearchPosition{20 + 64 - 74, 110 + 20 - 35, 66, 2 * 60 / 3 + 35}));
}

TEST(SetupSearch, TheColumnCanFallToOneAndNoFurther) {
  SetupSearch search(CardIndex::Standard);
  search.Take(Hit({.XMin = 73, .XMax = 113, .YMin = 20, .YMax = 80}));
  EXPECT_EQ(search.At().pos_x, 1);
  SetupSearch further(CardIndex::Standard);
  further.Take(Hit({.XMin = 100, .XMax = 120, .YMin = 20, .YMax = 80}));
  EXPECT_EQ(further.At().pos_x, 1);
}

TEST(SetupSearch, TheRowIsHeldBetweenItsLimits) {
  const auto rowAfter = [](CardIndex index, int rows, std::uint8_t top) {
    SetupSearch search = After(index, 23 * rows);
    search.Take(Hit({.XMin = 54, .XMax = 94, .YMin = top, .YMax = 100}));
    return search.At().pos_y;
  };
  EXPECT_EQ(rowAfter(CardIndex::Standard, 0, 17), 113) << "110 + 3";
  EXPECT_EQ(rowAfter(CardIndex::Standard, 0, 16), 113) << "114 is too high";
  EXPECT_EQ(rowAfter(CardIndex::Small, 0, 13), 137);
  EXPECT_EQ(rowAfter(CardIndex::Small, 0, 12), 137);
  EXPECT_EQ(rowAfter(CardIndex::Standard, 8, 27), 23) << "30 - 7";
  EXPECT_EQ(rowAfter(CardIndex::Standard, 8, 28), 22);
  EXPECT_EQ(rowAfter(CardIndex::Jumbo, 0, 60), 22) << "its row never moves";
}

TEST(SetupSearch, AHitThatIsLostGoesOnFromWhereItWas) {
  for (int again = 0; again < 2; ++again) {
    SCOPED_TRACE(again);
    SetupSearch search = After(CardIndex::Standard, 3);
    search.Take(Hit({.XMin = 74, .XMax = 114, .YMin = 35, .YMax = 95}));
    for (int i = 0; i < again; ++i) search.Take(Hit(kInPlace));
    search.Take(Miss());
    EXPECT_EQ(search.At(), (SearchPosition{60, 110, 66, 60}));
    EXPECT_EQ(search.Refinements(), 0);
    EXPECT_EQ(search.Progress(), 1) << "(60 - 20) / 48";
  }
}

TEST(SetupSearch, OnlyTheTenOfSpadesWithoutAnErrorIsAHit) {
  for (const wire::VerdictReply& verdict :
       {wire::VerdictReply{.Rank = 9, .Suit = 1}, wire::VerdictReply{.Rank = 10, .Suit = 2},
        wire::VerdictReply{.Rank = 10, .Suit = 1, .Error = 1}}) {
    SetupSearch search(CardIndex::Standard);
    search.Take({verdict, kInPlace, {}});
    EXPECT_EQ(search.At().pos_x, 30);
  }
}

TEST(SetupSearch, AFindThatIsTooFarRightCountsAsNone) {
  SetupSearch search = After(CardIndex::Standard, 22);  // 240
  for (int i = 0; i < 3; ++i) search.Take(Hit(kInPlace));
  EXPECT_EQ(search.Now(), State::kNotFound);
}

TEST(SetupSearch, TheProgressFollowsTheGrid) {
  EXPECT_EQ(After(CardIndex::Standard, 0).Progress(), 0);
  EXPECT_EQ(After(CardIndex::Standard, 5).Progress(), 1) << "50 / 48";
  EXPECT_EQ(After(CardIndex::Standard, 23).Progress(), 5) << "220 / 48 = 4.6";
  EXPECT_EQ(After(CardIndex::Standard, 23 * 9).Progress(), 41) << "9 x 220 / 48";
}

TEST(SetupSearch, SaysHowMuchOfTheGridIsBehind) {
  EXPECT_EQ(After(CardIndex::Standard, 40).GridTrialsDone(), 40);
  SetupSearch search = After(CardIndex::Standard, 40);
  search.Take(Hit({.XMin = 0, .XMax = 40, .YMin = 20, .YMax = 80}));
  EXPECT_EQ(search.GridTrialsDone(), 40) << "a refinement is no step of the grid";
}

}  // namespace
}  // namespace morvane::maintenance
