// What a run tells of itself: in the log, in the counters, in the boxes.

#include <utility>

#include "generate/generate_desk.h"
#include "model/shapes.h"
#include "model/similarity.h"
#include "support/append_count.h"
#include "text/text.h"

namespace morvane::generate {
namespace {

TEST(GenerateResult, LogsSwitchesCountersAndTheLongFormOfEachBoard) {
  GenerateDesk desk;
  desk.RunSeeded(9, 10, {.Shape = false, .Inner = true, .History = true});
  const std::vector<std::string> lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 2U + 3U);
  EXPECT_EQ(lines[2], "  Generate: 9,10 : 0,1,1 : 0,0,0");
  const Board& board = desk.Prog.Set.At(9);
  EXPECT_EQ(lines[3].substr(0, 9), "   009 : ");
  EXPECT_EQ(lines[3].size(), 112U);
  EXPECT_EQ(lines[3].substr(77),
            " " + HexBytes(board.DealNumber) + "  " + HexBytes(board.DealCounter));
  EXPECT_EQ(lines[4].substr(0, 9), "   010 : ");
}

#ifndef _WIN32  // no count of what is opened
TEST(GenerateResult, LogsTheSetInOneAppend) {
  GenerateDesk desk;
  desk.Prog.Log.WriteLine("---");
  test::AppendCount appends(desk.Prog.Log.Path());
  desk.Run(Plain("1", "32"));
  EXPECT_EQ(appends.Get(), 1);
  EXPECT_EQ(desk.LogLines().size(), 1U + 33U);
}
#endif

TEST(GenerateResult, LogsEachSwitchInItsPlace) {
  const std::vector<std::pair<RejectionSwitches, std::string>> switches = {
      {{.Shape = true}, "1,0,0"}, {{.Inner = true}, "0,1,0"}, {{.History = true}, "0,0,1"}};
  for (const auto& [reject, text] : switches) {
    GenerateDesk desk;
    desk.RunSeeded(9, 9, reject);
    EXPECT_EQ(desk.LogLines()[2], "  Generate: 9,9 : " + text + " : 0,0,0");
  }
}

struct Rejections {
  int Shape = 0;
  int Inner = 0;
};

/// What a run over boards 1 to `last` rejects, counted by going through the same candidates with
/// one test at a time.
Rejections RejectionsOf(GenerateDesk& desk, int last) {
  Rejections rejections;
  BoardSet set;
  NumberDealer dealer;
  EXPECT_TRUE(UseNumberSeeds(desk.Prog, dealer, kSeedr, kSeedo));
  RejectionTests shape(set, desk.History.Ring(), 1, {.Shape = true}, desk.Gen.Limits);
  RejectionTests inner(set, desk.History.Ring(), 1, {.Inner = true}, desk.Gen.Limits);
  for (int k = 1; k <= last;) {
    dealer.NextNumberDeal(set.At(k));
    if (shape.Rejects(set.At(k), k)) {
      ++rejections.Shape;
    } else if (inner.Rejects(set.At(k), k)) {
      ++rejections.Inner;
    } else {
      for (int hand = kNorth; hand <= kWest; ++hand) {
        ++set.ShapeCount[static_cast<std::size_t>(ShapeIndex(GetHandShape(set.At(k), hand)))];
      }
      ++k;
    }
  }
  return rejections;
}

TEST(GenerateResult, LogsTheCountersInTheOrderShapeInnerHistory) {
  GenerateDesk desk;
  desk.Gen.Limits.InnerLimit = 8;
  const Rejections expected = RejectionsOf(desk, 16);
  // All three differ, so that no two can change places.
  ASSERT_GT(expected.Shape, 0);
  ASSERT_GT(expected.Inner, 0);
  ASSERT_NE(expected.Shape, expected.Inner);
  const GenerateResult result = desk.RunSeeded(1, 16, kAllTests);
  ASSERT_EQ(result.End, GenerateEnd::kDone);
  EXPECT_EQ(result.ShpRejects->Count, expected.Shape);
  EXPECT_EQ(result.InnRejects->Count, expected.Inner);
  EXPECT_EQ(result.HisRejects->Count, 0);
  EXPECT_EQ(desk.LogLines()[4], "  Generate: 1,16 : 1,1,1 : " + std::to_string(expected.Shape) +
                                    "," + std::to_string(expected.Inner) + ",0");
}

/// The most alike pair of the finished set, with the later board first.
std::string BestPairOf(const BoardSet& set) {
  std::string text;
  int best = 0;
  for (int k = set.FirstBoard; k <= set.LastBoard; ++k) {
    for (int j = set.FirstBoard; j < k; ++j) {
      const Similarity pair = CompareHands(set.At(j), set.At(k));
      if (pair.Cards <= best) continue;
      best = pair.Cards;
      text = std::to_string(best) + ", " + std::to_string(k) + pair.HandB + ":" +
             std::to_string(j) + pair.HandA;
    }
  }
  return text;
}

TEST(GenerateResult, AQuietRunEndsOnExitAndShowsItsMostAlikePair) {
  GenerateDesk desk;
  const GenerateResult result = desk.RunSeeded(1, 32, kUsualTests);
  EXPECT_EQ(result.InnSim, BestPairOf(desk.Prog.Set));
  EXPECT_EQ(result.OuSim, "");  // the history is empty
  EXPECT_EQ(result.OuDeals, "");
  EXPECT_FALSE(result.ShpRejects.has_value());
  ASSERT_TRUE(result.InnRejects && result.HisRejects);
  EXPECT_EQ(result.InnRejects->Count, 0);
  EXPECT_EQ(result.InnRejects->Colour, CounterColour::kGreen);
  EXPECT_EQ(result.HisRejects->Colour, CounterColour::kGreen);
  EXPECT_FALSE(result.InviteAnother);
  EXPECT_EQ(result.Focus, GenerateFocus::kExit);
}

TEST(GenerateResult, TheBoxesOfATestThatIsOffKeepWhatTheyShow) {
  GenerateDesk desk;
  const GenerateResult inner = desk.RunSeeded(1, 2, {.Inner = true});
  EXPECT_TRUE(inner.InnSim.has_value());
  EXPECT_FALSE(inner.OuSim || inner.OuDeals || inner.HisRejects || inner.ShpRejects);
  const GenerateResult history = desk.RunSeeded(1, 2, {.History = true});
  EXPECT_TRUE(history.OuSim && history.OuDeals);
  EXPECT_FALSE(history.InnSim || history.InnRejects || history.ShpRejects);
}

TEST(GenerateResult, OneInnerRejectionIsRedAndInvitesAnotherAttempt) {
  // The limit at which this seed meets its first rejection is found from the most alike pair.
  GenerateDesk desk;
  desk.RunSeeded(1, 32, {.Inner = true});
  desk.Gen.Limits.InnerLimit = static_cast<std::int16_t>(Val(BestPairOf(desk.Prog.Set)));
  const GenerateResult result = desk.RunSeeded(1, 32, {.Inner = true});
  ASSERT_EQ(result.End, GenerateEnd::kDone);
  ASSERT_TRUE(result.InnRejects.has_value());
  EXPECT_GT(result.InnRejects->Count, 0);
  EXPECT_EQ(result.InnRejects->Colour, CounterColour::kRed);
  EXPECT_TRUE(result.InviteAnother);
  EXPECT_EQ(result.Focus, GenerateFocus::kGenerateButton);
  EXPECT_FALSE(result.HisRejects.has_value());
}

TEST(GenerateResult, MoreThanFiveShapeRejectionsAreRedAndInviteAnotherAttempt) {
  bool sawFive = false;
  bool sawSix = false;
  for (int seed = 10; seed < 100; ++seed) {
    GenerateDesk desk;
    const std::string seedr = std::to_string(seed) + kSeedr.substr(2);
    ASSERT_TRUE(UseNumberSeeds(desk.Prog, desk.Gen.Number, seedr, kSeedo));
    GenerateRequest request = Plain("1", "20");
    request.Reject.Shape = true;
    const GenerateResult result = desk.Run(request);
    ASSERT_EQ(result.End, GenerateEnd::kDone);
    const int count = result.ShpRejects->Count;
    sawFive = sawFive || count == 5;
    sawSix = sawSix || count == 6;
    EXPECT_EQ(result.ShpRejects->Colour, count > 5 ? CounterColour::kRed : CounterColour::kGreen);
    EXPECT_EQ(result.InviteAnother, count > 5);
    EXPECT_EQ(result.Focus, count > 5 ? GenerateFocus::kGenerateButton : GenerateFocus::kExit);
  }
  EXPECT_TRUE(sawFive);
  EXPECT_TRUE(sawSix);
}

}  // namespace
}  // namespace morvane::generate
