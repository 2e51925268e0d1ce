#include <algorithm>

#include "generate/generate_set.h"
#include "generate/seeds.h"
#include "model/text.h"
#include "support/fakes.h"

// The number generator makes the same deals from the same seeds, so a set that stands in the
// history is met again card for card.

namespace morvane::generate {
namespace {

const std::string kSeedr = "000102030405060708090A0B0C0D0E0F10111213";
const std::string kSeedo = "A0A1A2A3A4A5A6A7A8A9AAABACADAEAFB0B1B2B3";

class NoView final : public GenerateView {
 public:
  void RunStarts() override {}
  void BoardsGen(int /*count*/) override {}
};

struct AgainDesk : test::TestDesk {
  AgainDesk() { History.LoadHistory(Prog); }
  GenerateResult Run(int first, int last, bool withHistory) {
    EXPECT_TRUE(UseNumberSeeds(Prog, Gen.Number, kSeedr, kSeedo));
    NoView view;
    return GenerateSet(Prog, Gen, History.Ring(),
                       {std::to_string(first),
                        std::to_string(last),
                        true,
                        DealGenerator::kNumber,
                        {.History = withHistory}},
                       view);
  }
  Generator Gen{Prog};
};

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
  AgainDesk desk;
  ASSERT_EQ(desk.Run(1, 8, false).End, GenerateEnd::kDone);
  desk.Prog.Set.LastBoard = 4;
  desk.History.AddToHistory(desk.Prog, "Yesterday");
  const Board fifth = desk.Prog.Set.At(5);

  const GenerateResult result = desk.Run(1, 4, true);
  ASSERT_EQ(result.End, GenerateEnd::kDone);
  EXPECT_EQ(desk.Prog.Set.At(1).Cards, fifth.Cards) << "the first deal that was not played";
  ASSERT_TRUE(result.HisRejects.has_value());
  EXPECT_EQ(result.HisRejects->Count, 4);
  EXPECT_EQ(result.HisRejects->Colour, CounterColour::kRed);
  EXPECT_TRUE(result.InviteAnother);
  EXPECT_EQ(desk.LogLines().at(desk.LogLines().size() - 5), "  Generate: 1,4 : 0,0,1 : 0,0,4");
}

TEST(GenerateWithHistory, TheMostAlikePairNamesTheNewBoardFirstAndItsFile) {
  AgainDesk desk;
  ASSERT_EQ(desk.Run(21, 40, false).End, GenerateEnd::kDone);
  desk.History.AddToHistory(desk.Prog, "Yesterday");
  desk.Gen.Limits.HistoryLimit = 14;  // nothing is too much alike
  const GenerateResult result = desk.Run(1, 3, true);
  ASSERT_EQ(result.End, GenerateEnd::kDone);
  // Board 1 is board 21 again, North with North.
  EXPECT_EQ(result.OuSim, "13, 1N:21N");
  EXPECT_EQ(result.OuDeals, "Yesterday");
  EXPECT_EQ(result.HisRejects->Colour, CounterColour::kGreen);
}

TEST(GenerateWithHistory, ThePairIsTheMostAlikeOfAllBoardsMade) {
  AgainDesk desk;
  ASSERT_EQ(desk.Run(1, 20, false).End, GenerateEnd::kDone);
  desk.History.AddToHistory(desk.Prog, "Yesterday");
  const auto played = std::make_unique<BoardSet>(desk.Prog.Set);
  const GenerateResult result = desk.Run(101, 140, true);
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
  AgainDesk desk;
  ASSERT_EQ(desk.Run(1, 49, false).End, GenerateEnd::kDone);
  desk.History.AddToHistory(desk.Prog, "All");
  // The first candidate that was not played is the 50th, and it comes too late.
  EXPECT_EQ(desk.Run(1, 1, true).End, GenerateEnd::kCannotGenerate);
}

}  // namespace
}  // namespace morvane::generate
