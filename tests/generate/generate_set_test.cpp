#include "generate/generate_set.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "generate/reference.h"
#include "generate/seeds.h"
#include "model/shapes.h"
#include "model/similarity.h"
#include "model/text.h"
#include "support/append_count.h"
#include "support/fakes.h"

namespace morvane::generate {
namespace {

using test::TestDesk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr RejectionSwitches kNoTests{};
constexpr RejectionSwitches kUsualTests{.Shape = false, .Inner = true, .History = true};
constexpr RejectionSwitches kAllTests{true, true, true};
const std::string kSeedr = "000102030405060708090A0B0C0D0E0F10111213";
const std::string kSeedo = "A0A1A2A3A4A5A6A7A8A9AAABACADAEAFB0B1B2B3";
const std::string kLfsr = "0123456789ABCDEFFEDCBA9876543210";

class RecordingView final : public GenerateView {
 public:
  void RunStarts() override { ++Starts; }
  void BoardsGen(int count) override { Progress.push_back(count); }
  int Starts = 0;
  std::vector<int> Progress;
};

struct GenerateDesk : TestDesk {
  GenerateDesk() { History.LoadHistory(Prog); }

  GenerateResult Run(const GenerateRequest& request) {
    return GenerateSet(Prog, Gen, History.Ring(), request, View);
  }
  GenerateResult RunSeeded(int first, int last, RejectionSwitches reject) {
    EXPECT_TRUE(UseNumberSeeds(Prog, Gen.Number, kSeedr, kSeedo));
    return Run({std::to_string(first), std::to_string(last), true, DealGenerator::kNumber, reject});
  }

  Generator Gen{Prog};
  RecordingView View;
};

/// A request for random boards without tests.
GenerateRequest Plain(const std::string& first, const std::string& last) {
  return {first, last, true, DealGenerator::kNumber, kNoTests};
}

GenerateRequest Empty(const std::string& first, const std::string& last) {
  GenerateRequest request = Plain(first, last);
  request.Random = false;
  return request;
}

TEST(GenerateSet, FillsBoardsFirstToLast) {
  GenerateDesk desk;
  const GenerateResult result = desk.RunSeeded(3, 34, kUsualTests);
  EXPECT_EQ(result.End, GenerateEnd::kDone);
  const BoardSet& set = desk.Prog.Set;
  EXPECT_EQ(set.FirstBoard, 3);
  EXPECT_EQ(set.LastBoard, 34);
  EXPECT_EQ(set.CurrentBoard, 1);
  for (int n = 1; n <= kMaxBoards; ++n) {
    const bool inSet = n >= 3 && n <= 34;
    EXPECT_EQ(set.At(n).Number, n);
    EXPECT_EQ(set.At(n).Status, inSet ? Board::kComplete : Board::kEmpty);
    EXPECT_EQ(set.At(n).Dealer, inSet ? DealerOfNumber(n) : 0);
    EXPECT_EQ(set.At(n).Vul, inSet ? VulOfNumber(n) : 0);
  }
}

TEST(GenerateSet, EachBoardCarriesTheNumberOfItsDeal) {
  GenerateDesk desk;
  desk.RunSeeded(1, 32, kNoTests);
  for (int n = 1; n <= 32; ++n) {
    const Board& board = desk.Prog.Set.At(n);
    EXPECT_TRUE(reference::EncodeDeal(board) == reference::WideOfBytes(board.DealNumber));
    EXPECT_NE(board.DealCounter, (std::array<std::uint8_t, 4>{}));
  }
}

TEST(GenerateSet, TheShufflingGeneratorLeavesNumberAndCounterZero) {
  GenerateDesk desk;
  ASSERT_TRUE(UseLfsrSeed(desk.Prog, desk.Gen.Shuffling, kLfsr));
  GenerateRequest request = Plain("1", "32");
  request.With = DealGenerator::kShuffling;
  EXPECT_EQ(desk.Run(request).End, GenerateEnd::kDone);
  for (int n = 1; n <= 32; ++n) {
    const Board& board = desk.Prog.Set.At(n);
    EXPECT_EQ(board.Status, Board::kComplete);
    EXPECT_EQ(board.DealNumber, (std::array<std::uint8_t, 12>{}));
    EXPECT_EQ(board.DealCounter, (std::array<std::uint8_t, 4>{}));
  }
}

TEST(GenerateSet, TheLastBoardAloneCanBeMade) {
  GenerateDesk desk;
  EXPECT_EQ(desk.RunSeeded(640, 640, kAllTests).End, GenerateEnd::kDone);
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 640);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 640);
  EXPECT_EQ(desk.Prog.Set.At(640).Status, Board::kComplete);
  EXPECT_THAT(desk.View.Progress, ElementsAre(1));
}

TEST(GenerateSet, WithAllTestsOffEveryCandidateIsAccepted) {
  GenerateDesk desk;
  // As strict as can be, and yet not asked.
  desk.Gen.Limits = {.InnerLimit = 0, .HistoryLimit = 0};
  EXPECT_EQ(desk.RunSeeded(1, 640, kNoTests).End, GenerateEnd::kDone);
  NumberDealer dealer;
  ASSERT_TRUE(UseNumberSeeds(desk.Prog, dealer, kSeedr, kSeedo));
  for (int n = 1; n <= 640; ++n) {
    Board candidate;
    dealer.NextNumberDeal(candidate);
    ASSERT_EQ(desk.Prog.Set.At(n).Cards, candidate.Cards) << n;
  }
}

TEST(GenerateSet, TheSameSeedsGiveTheSameSet) {
  GenerateDesk first;
  GenerateDesk second;
  first.RunSeeded(1, 100, kAllTests);
  second.RunSeeded(1, 3, kNoTests);  // what was made before does not matter
  second.RunSeeded(1, 100, kAllTests);
  EXPECT_EQ(first.Prog.Set.Boards, second.Prog.Set.Boards);
}

TEST(GenerateSet, TheSameRegisterAndAFreshDeckGiveTheSameSet) {
  GenerateDesk first;
  GenerateDesk second;
  GenerateRequest request = Plain("1", "100");
  request.With = DealGenerator::kShuffling;
  second.Run(request);
  for (GenerateDesk* desk : {&first, &second}) {
    ASSERT_TRUE(UseLfsrSeed(desk->Prog, desk->Gen.Shuffling, kLfsr));
    desk->Run(request);
  }
  EXPECT_EQ(first.Prog.Set.Boards, second.Prog.Set.Boards);
}

TEST(GenerateSet, ReplacesTheOldSetAndItsTexts) {
  GenerateDesk desk;
  BoardSet& set = desk.Prog.Set;
  test::FillSet(set, 1, 50);
  set.BoardSetFile = "/home/old.pbn";
  set.EventName = set.EventSite = set.EventDate = "old";
  set.CurrentBoard = 17;
  desk.RunSeeded(2, 3, kNoTests);
  EXPECT_EQ(set.BoardSetFile, "");
  EXPECT_EQ(set.EventName + set.EventSite + set.EventDate, "");
  EXPECT_EQ(set.BoardSetChanged, "1");
  EXPECT_EQ(set.CurrentBoard, 17);
  EXPECT_EQ(desk.Ui.Refreshes, 1);
  EXPECT_EQ(set.At(1).Status, Board::kEmpty);
  EXPECT_EQ(set.At(50).Status, Board::kEmpty);
}

TEST(GenerateSet, CountsTheShapesOfTheNewSetOnly) {
  GenerateDesk desk;
  desk.RunSeeded(1, 64, kNoTests);
  desk.RunSeeded(1, 10, kNoTests);
  const auto& count = desk.Prog.Set.ShapeCount;
  EXPECT_EQ(std::accumulate(count.begin() + 1, count.end(), 0), 40);
}

TEST(GenerateSet, LetsTheInterfaceBreatheOnceABoardUnderTheHourglass) {
  GenerateDesk desk;
  int pumps = 0;
  desk.Loop.OnPump = [&] {
    ++pumps;
    EXPECT_TRUE(desk.Ui.HourglassNow);
    EXPECT_EQ(desk.View.Progress.size(), static_cast<std::size_t>(pumps - 1));
    EXPECT_FALSE(desk.Prog.Set.Exists());
  };
  desk.RunSeeded(11, 15, kNoTests);
  EXPECT_EQ(pumps, 5);
  EXPECT_THAT(desk.View.Progress, ElementsAre(1, 2, 3, 4, 5));
  EXPECT_EQ(desk.View.Starts, 1);
  EXPECT_FALSE(desk.Ui.HourglassNow);
}

TEST(GenerateSet, AProgramThatQuitsLeavesNoSet) {
  GenerateDesk desk;
  test::FillSet(desk.Prog.Set, 1, 8);
  int pumps = 0;
  desk.Loop.OnPump = [&] {
    if (++pumps == 3) desk.Loop.Quit();
  };
  EXPECT_EQ(desk.RunSeeded(1, 32, kNoTests).End, GenerateEnd::kQuit);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 0);
  EXPECT_EQ(pumps, 3);
  EXPECT_THAT(desk.View.Progress, ElementsAre(1, 2));
  EXPECT_TRUE(desk.Ui.Boxes.empty());
  EXPECT_FALSE(desk.Ui.HourglassNow);
}

struct Refusal {
  std::string First;
  std::string Last;
  std::string Text;
  GenerateFocus Focus;
};

class GenerateSetRefuses : public ::testing::TestWithParam<Refusal> {};

TEST_P(GenerateSetRefuses, AndLeavesTheOldSet) {
  for (const bool random : {true, false}) {
    GenerateDesk desk;
    test::FillSet(desk.Prog.Set, 1, 8);
    desk.Prog.Set.EventName = "Cup";
    GenerateRequest request = Plain(GetParam().First, GetParam().Last);
    request.Random = random;
    const GenerateResult result = desk.Run(request);
    EXPECT_EQ(result.End, GenerateEnd::kRefused);
    EXPECT_EQ(result.Focus, GetParam().Focus);
    EXPECT_THAT(desk.Ui.Boxes,
                ElementsAre(test::FakeUi::Box{GetParam().Text, 48, "Generate New Board Set"}));
    EXPECT_EQ(desk.LogLines().size(), 1U);  // the box's
    EXPECT_EQ(desk.Prog.Set.LastBoard, 8);
    EXPECT_EQ(desk.Prog.Set.EventName, "Cup");
    EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
    EXPECT_THAT(desk.View.Progress, IsEmpty());
    EXPECT_EQ(desk.Ui.Refreshes, 0);
  }
}

const std::string kOrderText =
    "      Last Board Number must be greater or equal to the First Board Number.      ";
const std::string kFirstText =
    "      Maximum allowable value for the First Board Number is 640.      ";
const std::string kLastText =
    "      Maximum allowable value for the Last Board Number is 640.       ";
const std::string kZeroText =
    "      First Board number must be between 1 and 640      \r\n"
    "      Please enter correct value      ";

INSTANTIATE_TEST_SUITE_P(
    Boxes, GenerateSetRefuses,
    ::testing::Values(Refusal{"5", "4", kOrderText, GenerateFocus::kFirstBoard},
                      Refusal{"1", "", kOrderText, GenerateFocus::kFirstBoard},
                      Refusal{"641", "640", kOrderText, GenerateFocus::kFirstBoard},
                      Refusal{"641", "641", kFirstText, GenerateFocus::kFirstBoard},
                      Refusal{"641", "999", kFirstText, GenerateFocus::kFirstBoard},
                      Refusal{"640", "641", kLastText, GenerateFocus::kLastBoard},
                      Refusal{"1", "999", kLastText, GenerateFocus::kLastBoard},
                      Refusal{"0", "32", kZeroText, GenerateFocus::kFirstBoard},
                      Refusal{"", "32", kZeroText, GenerateFocus::kFirstBoard},
                      Refusal{"", "", kZeroText, GenerateFocus::kFirstBoard}));

TEST(GenerateSet, LeftEmptyEveryBoardHasDealerAndVulnerabilityByNumber) {
  GenerateDesk desk;
  test::FillSet(desk.Prog.Set, 1, 64);
  const GenerateResult result = desk.Run(Empty("5", "20"));
  EXPECT_EQ(result.End, GenerateEnd::kDone);
  EXPECT_EQ(result.Focus, GenerateFocus::kNone);
  const BoardSet& set = desk.Prog.Set;
  EXPECT_EQ(set.FirstBoard, 5);
  EXPECT_EQ(set.LastBoard, 20);
  EXPECT_EQ(set.BoardSetChanged, "1");
  for (int n = 5; n <= 20; ++n) {
    EXPECT_EQ(set.At(n), NumberedBoard(n));
    EXPECT_EQ(set.At(n).Status, Board::kEmpty);
  }
  EXPECT_EQ(set.At(21).Dealer, 0);
  EXPECT_THAT(desk.View.Progress, ElementsAre(16));
  EXPECT_THAT(desk.LogLines(), ElementsAre("  Generate: 5,20"));
  EXPECT_FALSE(desk.Ui.HourglassNow);
}

TEST(GenerateSet, LogsSwitchesCountersAndTheLongFormOfEachBoard) {
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

TEST(GenerateSet, LogsTheSetInOneAppend) {
  GenerateDesk desk;
  desk.Prog.Log.WriteLine("---");
  test::AppendCount appends(desk.Prog.Log.Path());
  desk.Run(Plain("1", "32"));
  EXPECT_EQ(appends.Get(), 1);
  EXPECT_EQ(desk.LogLines().size(), 1U + 33U);
}

TEST(GenerateSet, LogsEachSwitchInItsPlace) {
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

TEST(GenerateSet, LogsTheCountersInTheOrderShapeInnerHistory) {
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

TEST(GenerateSet, ACandidateThatCannotBeFoundLeavesNoSet) {
  GenerateDesk desk;
  desk.Gen.Limits.HistoryLimit = 0;  // nothing is dissimilar enough
  const GenerateResult result = desk.RunSeeded(1, 32, {.History = true});
  EXPECT_EQ(result.End, GenerateEnd::kCannotGenerate);
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(test::FakeUi::Box{"    Cannot generate!      ", 16,
                                                           "Generate New Board Set"}));
  EXPECT_EQ(desk.Prog.Set.LastBoard, 0);
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
  EXPECT_FALSE(desk.Ui.HourglassNow);
  EXPECT_THAT(desk.View.Progress, IsEmpty());
  const std::vector<std::string> lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[2], "    Generate New Board Set:     Cannot generate!");
}

TEST(GenerateSet, WhatWasAcceptedBeforeTheAttemptsRanOutStays) {
  GenerateDesk desk;
  desk.Gen.Limits.InnerLimit = 0;  // board 1 has nothing to resemble, board 2 resembles it
  EXPECT_EQ(desk.RunSeeded(1, 32, {.Inner = true}).End, GenerateEnd::kCannotGenerate);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 0);
  EXPECT_EQ(desk.Prog.Set.At(1).Status, Board::kComplete);
  EXPECT_EQ(desk.Prog.Set.At(2).Status, Board::kEmpty);
  EXPECT_THAT(desk.View.Progress, ElementsAre(1));
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

TEST(GenerateSet, AQuietRunEndsOnExitAndShowsItsMostAlikePair) {
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

TEST(GenerateSet, TheBoxesOfATestThatIsOffKeepWhatTheyShow) {
  GenerateDesk desk;
  const GenerateResult inner = desk.RunSeeded(1, 2, {.Inner = true});
  EXPECT_TRUE(inner.InnSim.has_value());
  EXPECT_FALSE(inner.OuSim || inner.OuDeals || inner.HisRejects || inner.ShpRejects);
  const GenerateResult history = desk.RunSeeded(1, 2, {.History = true});
  EXPECT_TRUE(history.OuSim && history.OuDeals);
  EXPECT_FALSE(history.InnSim || history.InnRejects || history.ShpRejects);
}

TEST(GenerateSet, OneInnerRejectionIsRedAndInvitesAnotherAttempt) {
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

TEST(GenerateSet, MoreThanFiveShapeRejectionsAreRedAndInviteAnotherAttempt) {
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

TEST(PressBigDeal, PreparesSeedsThenGenerates) {
  GenerateDesk desk;
  desk.Gen.Pool.SeedmCounter = 40;
  GenerateRequest request = Plain("1", "2");
  request.With = DealGenerator::kShuffling;  // the button decides
  const GenerateResult result =
      PressBigDeal(desk.Prog, desk.Gen, desk.History.Ring(), request, desk.View);
  EXPECT_EQ(result.End, GenerateEnd::kDone);
  EXPECT_EQ(desk.Gen.Pool.SeedmCounter, 0);
  const std::vector<std::string> lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 7U);
  EXPECT_EQ(lines[0], "  New random bits collected: 56");
  EXPECT_EQ(lines[1].substr(0, 9), "  Seedm: ");
  EXPECT_EQ(lines[2].substr(0, 9), "  Seedr: ");
  EXPECT_EQ(lines[3].substr(0, 9), "  Seedo: ");
  EXPECT_EQ(lines[4], "  Generate: 1,2 : 0,0,0 : 0,0,0");
  EXPECT_EQ(lines[5].size(), 112U);
  EXPECT_NE(desk.Prog.Set.At(1).DealNumber, (std::array<std::uint8_t, 12>{}));
}

TEST(PressBigDeal, AFailedSystemSourceChangesNothing) {
  GenerateDesk desk;
  test::FillSet(desk.Prog.Set, 1, 8);
  desk.Random.AllZero = true;
  const GenerateResult result =
      PressBigDeal(desk.Prog, desk.Gen, desk.History.Ring(), Plain("1", "2"), desk.View);
  EXPECT_EQ(result.End, GenerateEnd::kNoSeeds);
  EXPECT_EQ(desk.View.Starts, 0);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 8);
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
}

TEST(PressBigDeal, PressedTwiceGivesAnotherSet) {
  // The system's bytes are the same in this test; only the pool has moved on.
  GenerateDesk desk;
  PressBigDeal(desk.Prog, desk.Gen, desk.History.Ring(), Plain("1", "1"), desk.View);
  const auto cards = desk.Prog.Set.At(1).Cards;
  for (int i = 1; i <= 10; ++i) desk.Gen.Pool.SampleMouse(7 * i, 3 * i);
  PressBigDeal(desk.Prog, desk.Gen, desk.History.Ring(), Plain("1", "1"), desk.View);
  EXPECT_NE(desk.Prog.Set.At(1).Cards, cards);
}

TEST(PressCmdDeal, PreparesTheRegisterThenGenerates) {
  GenerateDesk desk;
  const GenerateResult result =
      PressCmdDeal(desk.Prog, desk.Gen, desk.History.Ring(), Plain("1", "2"), desk.View);
  EXPECT_EQ(result.End, GenerateEnd::kDone);
  const std::vector<std::string> lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_EQ(lines[0], "  New random bits collected: 16");
  EXPECT_EQ(lines[1].substr(0, 8), "  Seed: ");
  EXPECT_EQ(lines[2], "  Generate: 1,2 : 0,0,0 : 0,0,0");
  EXPECT_EQ(lines[3].substr(77), " 000000000000000000000000  00000000");
}

TEST(PressCmdDeal, MakesTheEmptySetToo) {
  GenerateDesk desk;
  const GenerateResult result =
      PressCmdDeal(desk.Prog, desk.Gen, desk.History.Ring(), Empty("3", "7"), desk.View);
  EXPECT_EQ(result.End, GenerateEnd::kDone);
  const std::vector<std::string> lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[2], "  Generate: 3,7");
}

}  // namespace
}  // namespace morvane::generate
