#include "print/score_card.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "print/board_parts.h"
#include "print/page_checks.h"
#include "print/paper_boards.h"
#include "print/print_fixture.h"

namespace morvane::print {
namespace {

using test::DrawnPage;
using test::DrawnRule;
using test::DrawnText;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kSpade = "\u2660";
const std::string kHeart = "\u2665";

class ScoreCardTest : public PrintTest {
 protected:
  ScoreCardTest() { options.Mode = PrintMode::kScoreCards; }
  /// The card of `board` alone on a page.
  const DrawnPage& Card(const Board& board, int n) {
    canvas.Begin();
    DrawScoreCard(canvas, options, board, n);
    return canvas.Pages.front();
  }
  static DrawnText Only(const DrawnPage& page, std::string_view text) {
    const auto found = page.Find(text);
    EXPECT_EQ(found.size(), 1U) << text;
    return found.empty() ? DrawnText{} : found.front();
  }
  static double Baseline(const DrawnText& drawn) { return drawn.Y + Ascent(drawn.Font); }
  static double Right(const DrawnText& drawn) { return drawn.X + drawn.Width; }
};

struct Lengths {
  std::vector<double> Level;
  std::vector<double> Upright;
};

/// Where the rules of a page lie, below the diagram.
Lengths TableRules(const DrawnPage& page) {
  Lengths found;
  for (const DrawnRule& rule : page.Rules) {
    if (rule.FromY < 300) continue;
    if (rule.FromY == rule.ToY) {
      found.Level.push_back(rule.FromY);
    } else {
      found.Upright.push_back(rule.FromX);
    }
  }
  return found;
}

TEST_F(ScoreCardTest, TheHeadTellsNumberDealerAndVulnerability) {
  const DrawnPage& page = Card(test::VoidBoard(23), 23);
  const Font head{Typeface::kTimes, 14};
  const DrawnText number = Only(page, "23");
  EXPECT_EQ(number.Font, (Font{Typeface::kTimes, 20}));
  for (const char* const text : {"Board", "Dealer: S", "Vul:     Both"}) {
    EXPECT_EQ(Only(page, text).Font, head) << text;
    EXPECT_DOUBLE_EQ(Baseline(Only(page, text)), Baseline(number)) << text;
  }
  EXPECT_EQ(Only(page, "Board").X, 15);
  EXPECT_GT(number.X, Right(Only(page, "Board")));
  EXPECT_LT(Baseline(number), 77);
}

TEST_F(ScoreCardTest, VulnerabilitiesHaveTheirLongNames) {
  EXPECT_EQ(Card(Board{}, 1).Find("Vul:     None").size(), 1U);
  EXPECT_EQ(Card(Board{}, 2).Find("Vul:     N-S").size(), 1U);
  EXPECT_EQ(Card(Board{}, 3).Find("Vul:     E-W").size(), 1U);
  EXPECT_EQ(Card(Board{}, 4).Find("Vul:     Both").size(), 1U);
}

TEST_F(ScoreCardTest, DealerAndVulnerabilityAreThoseOfTheNumber) {
  Board board = test::VoidBoard(6);
  board.Dealer = kNorth;
  board.Vul = 1;
  const DrawnPage& page = Card(board, 6);
  EXPECT_EQ(page.Find("Dealer: E").size(), 1U);
  EXPECT_EQ(page.Find("Vul:     E-W").size(), 1U);
}

TEST_F(ScoreCardTest, TheEventStaysOffTheCard) {
  options.Header = "Autumn Teams";
  EXPECT_THAT(Card(test::VoidBoard(7), 7).Find("Autumn Teams"), IsEmpty());
}

TEST_F(ScoreCardTest, HandsStandOnTheirLines) {
  options.Analysis = false;
  const DrawnPage& page = Card(test::VoidBoard(7), 7);
  const auto spades = page.Find(kSpade);
  ASSERT_EQ(spades.size(), 4U);
  EXPECT_THAT((std::vector{spades[0].Y, spades[1].Y, spades[2].Y, spades[3].Y}),
              ElementsAre(77, 147, 147, 217));
  EXPECT_EQ(spades[0].Font, (Font{Typeface::kSymbol, 14}));
  const DrawnText ranks = Only(page, "AKQJT98765");
  EXPECT_EQ(ranks.Font, (Font{Typeface::kArial, 12}));
  EXPECT_DOUBLE_EQ(Baseline(ranks), 77 + 0.9 * 14);
  EXPECT_GT(ranks.X, Right(spades[0]));
  EXPECT_LT(Right(spades[1]), Only(page, "W").X);  // West at the left of the compass, East right
  EXPECT_LT(Only(page, "W").X, Only(page, "AKQ432").X);
}

TEST_F(ScoreCardTest, AVoidShowsItsSignAlone) {
  const DrawnPage& page = Card(test::BoardOfHands(7, {"AKQ...", "", "", ""}), 7);
  EXPECT_EQ(page.Find(kHeart).size(), 4U);
  EXPECT_THAT(page.Find(""), IsEmpty());
}

TEST_F(ScoreCardTest, PointsStandAsTheHandsSit) {
  const DrawnPage& page = Card(test::VoidBoard(7), 7);
  const DrawnText word = Only(page, "HCP");
  const DrawnText north = Only(page, "13");
  const DrawnText east = Only(page, "20");
  const auto sevens = page.Find("7");  // the board's number, South's points, a level
  ASSERT_EQ(sevens.size(), 3U);
  EXPECT_LT(north.Y, word.Y);
  EXPECT_GT(sevens[1].Y, word.Y);
  EXPECT_GT(east.X, Right(word));
  EXPECT_LT(Right(Only(page, "0")), word.X);
}

TEST_F(ScoreCardTest, TheAnalysisStandsAtTheRight) {
  const DrawnPage& page = Card(test::VoidBoard(7), 7);
  ASSERT_EQ(page.Fills.size(), 1U);
  const Area area = page.Fills.front().Area;
  EXPECT_EQ(page.Fills.front().Colour, (Colour{0xE6, 0xE6, 0xE6}));
  EXPECT_DOUBLE_EQ(area.X + area.Width, 15 + 255);
  EXPECT_LT(area.Y + area.Height, 300);
}

TEST_F(ScoreCardTest, WhatIsOffIsNotDrawn) {
  options.Hcp = false;
  EXPECT_THAT(Card(test::VoidBoard(7), 7).Find("HCP"), IsEmpty());
  EXPECT_EQ(Card(test::VoidBoard(7), 7).Fills.size(), 1U);
  options.Analysis = false;
  EXPECT_THAT(Card(test::VoidBoard(7), 7).Fills, IsEmpty());
  EXPECT_EQ(Card(test::VoidBoard(7), 7).Find(kSpade).size(), 4U);
}

TEST_F(ScoreCardTest, ABoardWithoutResultHasNoAnalysis) {
  EXPECT_THAT(Card(test::RoundBoard(7), 7).Fills, IsEmpty());
}

TEST_F(ScoreCardTest, WithoutBoardsTheSpaceAboveTheTableStaysFree) {
  options.PrintBoards = false;
  const DrawnPage& page = Card(test::VoidBoard(7), 7);
  EXPECT_THAT(page.Find(kSpade), IsEmpty());
  EXPECT_THAT(page.Find("HCP"), IsEmpty());
  EXPECT_THAT(page.Find("N"), IsEmpty());
  EXPECT_THAT(page.Fills, IsEmpty());
  const bool isFree = std::none_of(page.Texts.begin(), page.Texts.end(), [](const DrawnText& text) {
    return text.Y > 70 && text.Y < 300;
  });
  EXPECT_TRUE(isFree);
  EXPECT_TRUE(std::all_of(page.Rules.begin(), page.Rules.end(),
                          [](const DrawnRule& rule) { return rule.FromY >= 300; }));
  EXPECT_EQ(Only(page, "Dealer: S").Font.Size, 14);
}

TEST_F(ScoreCardTest, SeventeenRowsHaveARuleAboveAndBelow) {
  for (const bool withBoards : {false, true}) {
    options.PrintBoards = withBoards;
    EXPECT_THAT(TableRules(Card(test::VoidBoard(8), 8)).Level,
                ElementsAre(300, 330, 355, 380, 405, 430, 455, 480, 505, 530, 555, 580, 605, 630,
                            655, 680, 705, 730));
  }
}

TEST_F(ScoreCardTest, RulesAreAsLongAsTheTable) {
  const DrawnPage& page = Card(test::VoidBoard(8), 8);
  EXPECT_THAT(page.Rules, Contains(DrawnRule{300, 730, 555, 730}));
  EXPECT_THAT(page.Rules, Contains(DrawnRule{300, 300, 300, 730}));
  EXPECT_THAT(page.Rules, Contains(DrawnRule{555, 300, 555, 730}));
}

TEST_F(ScoreCardTest, EightColumnsHaveTheirHeaders) {
  const DrawnPage& page = Card(test::VoidBoard(7), 7);
  const std::vector<double> edges = TableRules(page).Upright;
  ASSERT_EQ(edges.size(), 9U);
  const std::vector<std::vector<std::string>> headers{
      {"NS", "Pair"},     {"EW", "Pair"},  {"Contract"},    {"Declarer"},
      {"Tricks", "Made"}, {"NS", "Score"}, {"EW", "Score"}, {"Match", "Points"}};
  for (std::size_t column = 0; column < headers.size(); ++column) {
    std::vector<std::string> found;
    for (const DrawnText& text : page.Texts) {
      if (text.Y > 300 && text.X >= edges[column] && Right(text) <= edges[column + 1]) {
        EXPECT_LE(text.Font.Size, 10);
        EXPECT_LT(Baseline(text), 330);
        found.push_back(text.Text);
      }
    }
    EXPECT_EQ(found, headers[column]);
  }
}

TEST_F(ScoreCardTest, PairsAreCountedFromTheFirstOne) {
  options.PrintNS = true;
  options.NsOffset = 99;
  const DrawnPage& page = Card(test::VoidBoard(7), 7);
  for (int row = 0; row < 16; ++row) {
    const DrawnText pair = Only(page, std::to_string(99 + row));
    EXPECT_EQ(pair.Font, (Font{Typeface::kTimes, 16}));
    EXPECT_DOUBLE_EQ(Right(pair), Right(Only(page, "99")));
    EXPECT_GT(InkOf(pair).Y, 330 + 25 * row);
    EXPECT_LT(Baseline(pair), 330 + 25 * (row + 1));
    EXPECT_GE(pair.X, 15);
  }
  EXPECT_THAT(page.Find("98"), IsEmpty());
  EXPECT_THAT(page.Find("115"), IsEmpty());
}

TEST_F(ScoreCardTest, OneDigitStandsBelowTheLastOfTwo) {
  options.PrintNS = true;
  options.PrintBoards = false;
  options.NsOffset = 9;
  const DrawnPage& page = Card(Board{}, 32);
  EXPECT_DOUBLE_EQ(Right(Only(page, "9")), Right(Only(page, "10")));
  EXPECT_DOUBLE_EQ(Only(page, "9").X - Only(page, "10").X, 8);  // a digit is 8 wide
}

TEST_F(ScoreCardTest, PairsAreDrawnOnDemandOnly) {
  options.NsOffset = 99;
  EXPECT_THAT(Card(test::VoidBoard(7), 7).Find("99"), IsEmpty());
}

TEST_F(ScoreCardTest, ColoursAreThoseOfHandRecords) {
  options.PrintNS = true;
  const DrawnPage& page = Card(test::VoidBoard(7), 7);
  EXPECT_EQ(Only(page, "Board").Colour, kBlue);
  EXPECT_EQ(Only(page, "Dealer: S").Colour, kBlue);
  EXPECT_EQ(Only(page, "AKQ432").Colour, kRed);
  EXPECT_EQ(Only(page, "AK32").Colour, kBlack);
  EXPECT_EQ(Only(page, "Contract").Colour, kBlack);
  options.Colour = false;
  for (const DrawnText& text : Card(test::VoidBoard(7), 7).Texts) {
    EXPECT_EQ(text.Colour, kBlack) << text.Text;
  }
}

TEST_F(ScoreCardTest, RanksAreInTheLettersChosen) {
  options.National = 4;
  options.TenAsNumber = true;
  EXPECT_EQ(Card(test::VoidBoard(7), 7).Find("AHVB1098765").size(), 1U);
}

TEST_F(ScoreCardTest, NothingOverlapsOrLeavesTheCard) {
  options.PrintNS = true;
  const std::vector<Board> boards{test::VoidBoard(1), test::SuitBoard(1), test::RoundBoard(1),
                                  Board{}, test::BoardOfHands(1, {"", "", "AKQJT98765432", ""})};
  for (const double width : {571.0, 588.0}) {
    canvas.PageWidth = width;
    for (Board board : boards) {
      for (const int n : {8, 639, 640}) {
        for (const int national : {0, 6}) {
          options.National = national;
          options.TenAsNumber = national == 6;
          options.NsOffset = n == 8 ? 1 : 990;  // to 1005
          EXPECT_THAT(test::PageFaults(Card(board, n), {n % 2 == 1 ? 15.0 : 300.0, 0, 255, 768}),
                      IsEmpty());
        }
      }
      board.Tricks.fill(7);
      EXPECT_THAT(test::PageFaults(Card(board, 1), {15, 0, 255, 768}), IsEmpty());
    }
  }
}

TEST_F(ScoreCardTest, AnEvenBoardEndsThePage) {
  Boards(3, 6);
  EXPECT_THAT(TheDocument().Pages(), ElementsAre(Page{{3, 4}}, Page{{5, 6}}));
  Boards(2, 5);
  EXPECT_THAT(TheDocument().Pages(), ElementsAre(Page{{2}}, Page{{3, 4}}, Page{{5}}));
  Boards(2, 2);
  EXPECT_THAT(TheDocument().Pages(), ElementsAre(Page{{2}}));
}

TEST_F(ScoreCardTest, AnEvenStartLeavesTheLeftHalfEmpty) {
  Boards(2, 5);
  const DrawnPage& first = DrawFirst();
  ASSERT_EQ(canvas.Pages.size(), 3U);
  EXPECT_THAT(test::PageFaults(first, {300, 0, 255, 768}), IsEmpty());
  const auto dealers = [this](std::size_t page) {
    const auto found = [&](const char* text) { return canvas.Pages[page].Find(text).size(); };
    return std::vector{found("Dealer: N"), found("Dealer: E"), found("Dealer: S"),
                       found("Dealer: W")};
  };
  EXPECT_THAT(dealers(0), ElementsAre(0, 1, 0, 0));
  EXPECT_THAT(dealers(1), ElementsAre(0, 0, 1, 1));
  EXPECT_THAT(dealers(2), ElementsAre(1, 0, 0, 0));
  EXPECT_THAT(test::PageFaults(canvas, canvas.Pages[1]), IsEmpty());
  EXPECT_THAT(test::PageFaults(canvas.Pages[2], {15, 0, 255, 768}), IsEmpty());
}

}  // namespace
}  // namespace morvane::print
