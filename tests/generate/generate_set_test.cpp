#include "generate/generate_set.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "generate/generate_desk.h"
#include "generate/reference.h"
#include "text/text.h"

namespace morvane::generate {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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
