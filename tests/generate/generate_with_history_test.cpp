#include <algorithm>

#include "generate/generate_desk.h"
#include "text/text.h"

// The number generator makes the same deals from the same seeds, so a set that stands in the
// history is met again card for card.

namespace morvane::generate {
namespace {

int MostInCommon(const Board& a, const Board& b) {
  int most = 0;
  for (int handA = 1; handA <= 4; ++handA) {
    for (int handB = 1; handB <= 4; ++handB) {
      int common = 0;
      for (std::size_t card = 1; card <= 52; ++card) {
        if (a.Cards[card] == handA && b.Cards[card] == handB) ++common;
      }
      most = std::max(most, common);
    }
  }
  return most;
}

TEST(GenerateWithHistory, ADealThatWasPlayedIsRejectedAndTheNextOneTaken) {
  GenerateDesk desk;
  ASSERT_EQ(desk.RunSeeded(1, 8, kNoTests).End, GenerateEnd::kDone);
  desk.Prog.Set.LastBoard = 4;
  desk.History.AddToHistory(desk.Prog, "Yesterday");
  const Board fifth = desk.Prog.Set.At(5);

  const GenerateResult result = desk.RunSeeded(1, 4, {.History = true});
  ASSERT_EQ(result.End, GenerateEnd::kDone);
  EXPECT_EQ(desk.Prog.Set.At(1).Cards, fifth.Cards) << "the first deal that was not played";
  ASSERT_TRUE(result.HisRejects.has_value());
  EXPECT_EQ(result.HisRejects->Count, 4);
  EXPECT_EQ(result.HisRejects->Colour, CounterColour::kRed);
  EXPECT_TRUE(result.InviteAnother);
  EXPECT_EQ(desk.LogLines().at(desk.LogLines().size() - 5), "  Generate: 1,4 : 0,0,1 : 0,0,4");
}

TEST(GenerateWithHistory, TheMostAlikePairNamesTheNewBoardFirstAndItsFile) {
  GenerateDesk desk;
  ASSERT_EQ(desk.RunSeeded(21, 40, kNoTests).End, GenerateEnd::kDone);
  desk.History.AddToHistory(desk.Prog, "Yesterday");
  desk.Gen.Limits.HistoryLimit = 14;  // nothing is too much alike
  const GenerateResult result = desk.RunSeeded(1, 3, {.History = true});
  ASSERT_EQ(result.End, GenerateEnd::kDone);
  // Board 1 is board 21 again, North with North.
  EXPECT_EQ(result.OuSim, "13, 1N:21N");
  EXPECT_EQ(result.OuDeals, "Yesterday");
  EXPECT_EQ(result.HisRejects->Colour, CounterColour::kGreen);
}

TEST(GenerateWithHistory, ThePairIsTheMostAlikeOfAllBoardsMade) {
  GenerateDesk desk;
  ASSERT_EQ(desk.RunSeeded(1, 20, kNoTests).End, GenerateEnd::kDone);
  desk.History.AddToHistory(desk.Prog, "Yesterday");
  const auto played = std::make_unique<BoardSet>(desk.Prog.Set);
  const GenerateResult result = desk.RunSeeded(101, 140, {.History = true});
  ASSERT_EQ(result.End, GenerateEnd::kDone);
  int most = 0;
  for (int k = 101; k <= 140; ++k) {
    for (int n = 1; n <= 20; ++n) {
      most = std::max(most, MostInCommon(desk.Prog.Set.At(k), played->At(n)));
    }
  }
  EXPECT_EQ(result.HisRejects->Count, 20);
  EXPECT_LT(most, 13);
  EXPECT_EQ(Val(result.OuSim.value_or("")), most);
}

TEST(GenerateWithHistory, FortyNinePlayedDealsInARowCannotGenerate) {
  GenerateDesk desk;
  ASSERT_EQ(desk.RunSeeded(1, 49, kNoTests).End, GenerateEnd::kDone);
  desk.History.AddToHistory(desk.Prog, "All");
  // The first candidate that was not played is the 50th, and it comes too late.
  EXPECT_EQ(desk.RunSeeded(1, 1, {.History = true}).End, GenerateEnd::kCannotGenerate);
}

}  // namespace
}  // namespace morvane::generate
