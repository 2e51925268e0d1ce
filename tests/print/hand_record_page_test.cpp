#include "print/hand_record_page.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "print/board_parts.h"
#include "print/layout.h"
#include "print/page_checks.h"
#include "print/print_fixture.h"

namespace morvane::print {
namespace {

using test::DrawnPage;
using test::DrawnText;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr Font kTimes10{Typeface::kTimes, 10};
constexpr Font kArial10{Typeface::kArial, 10};

class HandRecordPageTest : public PrintTest {
 protected:
  /// Levels 1..7, 1..7, 1..6 from North's no-trump on.
  void Analyse(int n) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(kResults); ++i) {
      set.At(n).Tricks[i] = static_cast<std::uint8_t>(i % 7 + 1);
    }
  }
  /// The one text `text` of the first page.
  DrawnText TheText(const std::string& text) {
    const auto found = DrawFirst().Find(text);
    EXPECT_THAT(found, SizeIs(1)) << text;
    return found.empty() ? DrawnText{} : found.front();
  }
};

TEST_F(HandRecordPageTest, RulesLieAt10And34AndTheHeaderIsCentredAt50) {
  Boards(1, 1);
  const DrawnText header = TheText("Autumn Teams");
  const std::vector<test::DrawnRule>& rules = canvas.Pages.front().Rules;
  EXPECT_EQ(rules.at(0), (test::DrawnRule{0, 10, 571, 10}));
  EXPECT_EQ(rules.at(1), (test::DrawnRule{0, 34, 571, 34}));
  // 12 characters of 20 points, each half as wide as high: 120 points.
  EXPECT_DOUBLE_EQ(header.X, (571 - 120) / 2.0);
  EXPECT_EQ(header.Y, 50);
  EXPECT_EQ(header.Font, (Font{Typeface::kTimes, 20, true}));
  EXPECT_EQ(header.Colour, (Colour{0, 0, 255}));
}

TEST_F(HandRecordPageTest, ALongHeaderShrinksAndStaysOnThePage) {
  Boards(1, 1);
  options.Header = std::string(200, 'W');
  const DrawnText header = TheText(options.Header);
  EXPECT_LT(header.Font.Size, 6);
  EXPECT_GE(header.X, 10);
  EXPECT_LE(header.X + header.Width, 561);
  // On the baseline that it would have in full size.
  EXPECT_DOUBLE_EQ(header.Y + Ascent(header.Font), 50 + 18);
}

TEST_F(HandRecordPageTest, ALineEndInTheHeaderIsABlank) {
  Boards(1, 1);
  options.Header = "Autumn\r\nTeams";
  EXPECT_THAT(DrawFirst().Find("Autumn  Teams"), SizeIs(1));
}

/// Three columns leave her 49 points from her usual place to the compass, for a sign and 7 cards.
TEST_F(HandRecordPageTest, WestMovesToTheLeftBeforeHerSuitsShrink) {
  Boards(1, 1);
  options.PerPage = 4;
  Board& board = set.At(1);
  board = NumberedBoard(1);
  for (int card = 1; card <= 9; ++card) board.Cards[static_cast<std::size_t>(card)] = kWest;
  AnalyzeBoard(board);
  const DrawnText suit = TheText("AKQJT9876");
  EXPECT_EQ(suit.Font, kArial10);
  EXPECT_LT(suit.X, 10 + 10 + 9);
  EXPECT_GE(suit.X, 10 + 9 - 1);
}

TEST_F(HandRecordPageTest, TheHeadTellsNumberDealerAndVulnerability) {
  Boards(1, 12);
  const std::array<std::string, 4> vuls{"None Vul", "N-S Vul", "E-W Vul", "Both Vul"};
  DrawFirst();
  const DrawnPage& page = canvas.Pages.front();
  for (int n = 1; n <= 12; ++n) {
    const auto number = page.Find("Board: " + std::to_string(n));
    ASSERT_THAT(number, SizeIs(1));
    EXPECT_EQ(number[0].Font, (Font{Typeface::kTimes, 12, true}));
    EXPECT_EQ(number[0].Colour, kBlue);
  }
  // Of boards 1 to 12: North deals 1, 5 and 9; none vulnerable are 1, 8 and 11.
  for (const char dealer : {'N', 'E', 'S', 'W'}) {
    EXPECT_THAT(page.Find(std::string("Dealer: ") + dealer), SizeIs(3)) << dealer;
  }
  for (const std::string& vul : vuls) {
    EXPECT_THAT(page.Find(vul), AllOf(SizeIs(3), Each(Field(&DrawnText::Colour, kBlue)),
                                      Each(Field(&DrawnText::Font, kTimes10))))
        << vul;
  }
}

TEST_F(HandRecordPageTest, DealerAndVulnerabilityComeFromTheNumber) {
  Boards(1, 1);
  set.At(1).Dealer = kWest;
  set.At(1).Vul = 4;
  DrawFirst();
  EXPECT_THAT(canvas.Pages.front().Find("Dealer: N"), SizeIs(1));
  EXPECT_THAT(canvas.Pages.front().Find("None Vul"), SizeIs(1));
}

TEST_F(HandRecordPageTest, CellsFillByRowsFromLeftToRight) {
  Boards(1, 18);
  for (const Layout& form : Layouts) {
    options.PerPage = static_cast<int>(&form - Layouts.data()) + 1;
    DrawFirst();
    std::vector<DrawnText> heads;
    for (int n = 1; n <= form.PerPage; ++n) {
      heads.push_back(canvas.Pages.front().Find("Board: " + std::to_string(n)).at(0));
    }
    EXPECT_EQ(form.PerPage, form.Columns * form.Rows);
    for (int n = 0; n < form.PerPage; ++n) {
      const DrawnText& head = heads[static_cast<std::size_t>(n)];
      EXPECT_DOUBLE_EQ(head.X, 10 + n % form.Columns * (561.0 / form.Columns));
      const DrawnText& first = heads[static_cast<std::size_t>(n - n % form.Columns)];
      EXPECT_DOUBLE_EQ(head.Y + Ascent(head.Font), first.Y + Ascent(first.Font));
    }
    EXPECT_GT(heads.front().Y, 34);
    EXPECT_TRUE(canvas.Pages.size() == 1 || canvas.Pages[1].Find("Board: 1").empty());
  }
}

/// In a board where each hand holds one suit, 28 suits are voids: 12 signs and no ranks behind
/// them.
TEST_F(HandRecordPageTest, AVoidShowsItsSignAlone) {
  Boards(1, 1);
  set.At(1) = test::SuitBoard(1);
  DrawFirst();
  const DrawnPage& page = canvas.Pages.front();
  for (const char* sign : {"♠", "♥", "♦", "♣"}) {
    EXPECT_THAT(page.Find(sign),
                AllOf(SizeIs(4), Each(Field(&DrawnText::Font, Font{Typeface::kSymbol, 10}))));
  }
  EXPECT_THAT(page.Find("AKQJT98765432"), SizeIs(4));
  EXPECT_THAT(page.Find(""), IsEmpty());
}

TEST_F(HandRecordPageTest, HandsStandAsPlayersSitAroundTheCompass) {
  Boards(1, 1);
  set.At(1) = test::SuitBoard(1);
  options.Hcp = false;
  DrawFirst();
  auto hands = canvas.Pages.front().Find("AKQJT98765432");
  ASSERT_THAT(hands, SizeIs(4));  // drawn North, West, East, South
  const DrawnText letterN = canvas.Pages.front().Find("N").at(0);
  const DrawnText letterW = canvas.Pages.front().Find("W").at(0);
  const DrawnText letterE = canvas.Pages.front().Find("E").at(0);
  const DrawnText letterS = canvas.Pages.front().Find("S").at(0);
  EXPECT_LT(hands[0].Y, letterN.Y);
  EXPECT_LT(hands[1].X + hands[1].Width, letterW.X);
  EXPECT_GT(hands[2].X, letterE.X + letterE.Width);
  EXPECT_GT(hands[3].Y, letterS.Y);
  EXPECT_LT(letterN.Y, letterW.Y);
  EXPECT_EQ(letterW.Y, letterE.Y);
  EXPECT_LT(letterE.Y, letterS.Y);
  EXPECT_LT(letterW.X, letterE.X);
}

TEST_F(HandRecordPageTest, EachHandHasFourLinesInTheOrderOfTheSuits) {
  Boards(1, 1);
  set.At(1) = test::RoundBoard(1);
  DrawFirst();
  // Cards going round from North: she has the ace, ten, six and two of spades.
  const auto& texts = canvas.Pages.front().Texts;
  const auto at = [&](const char* sign, std::size_t hand) {
    return canvas.Pages.front().Find(sign).at(hand);
  };
  for (std::size_t hand = 0; hand < 4; ++hand) {
    EXPECT_LT(at("♠", hand).Y, at("♥", hand).Y);
    EXPECT_LT(at("♥", hand).Y, at("♦", hand).Y);
    EXPECT_LT(at("♦", hand).Y, at("♣", hand).Y);
    EXPECT_EQ(at("♠", hand).X, at("♣", hand).X);
  }
  const auto ranks =
      std::find_if(texts.begin(), texts.end(), [](const auto& t) { return t.Text == "AT62"; });
  ASSERT_NE(ranks, texts.end());
  EXPECT_EQ(ranks->Y, at("♠", 0).Y);
  EXPECT_EQ(ranks->Font, kArial10);
  // A sign is 7.5 points wide, and 1.2 signs lie between its left end and the ranks'.
  EXPECT_DOUBLE_EQ(ranks->X, at("♠", 0).X + 9);
}

TEST_F(HandRecordPageTest, HeartsAndDiamondsAreRedAndTitlesBlueWhereColoursAreChosen) {
  Boards(1, 1);
  set.At(1) = test::SuitBoard(1);
  DrawFirst();
  const auto colourOf = [&](const char* sign) {
    return canvas.Pages.front().Find(sign).at(0).Colour;
  };
  EXPECT_EQ(colourOf("♠"), kBlack);
  EXPECT_EQ(colourOf("♥"), (Colour{255, 0, 0}));
  EXPECT_EQ(colourOf("♦"), (Colour{255, 0, 0}));
  EXPECT_EQ(colourOf("♣"), kBlack);
  const auto ranks = canvas.Pages.front().Find("AKQJT98765432");
  EXPECT_EQ(ranks.at(0).Colour, kBlack);  // North's spades
  EXPECT_EQ(ranks.at(2).Colour, kRed);    // East's hearts
}

TEST_F(HandRecordPageTest, WithoutColoursEverythingIsBlack) {
  Boards(1, 3);
  Analyse(1);
  options.Colour = false;
  options.Statistics = PrintOptions::kStatisticsLast;
  DrawFirst();
  for (const DrawnPage& page : canvas.Pages) {
    EXPECT_THAT(page.Texts, Each(Field(&DrawnText::Colour, kBlack)));
  }
}

TEST_F(HandRecordPageTest, DutchLettersWithTheTenAsANumber) {
  Boards(1, 1);
  set.At(1) = test::SuitBoard(1);
  options.National = 4;
  options.TenAsNumber = true;
  DrawFirst();
  EXPECT_THAT(canvas.Pages.front().Find("AHVB1098765432"), SizeIs(4));
}

TEST_F(HandRecordPageTest, PointsStandAroundTheirWordAsTheHandsSit) {
  Boards(1, 1);
  const std::array<std::uint8_t, 5> points{0, 37, 1, 2, 10};
  set.At(1).Hcp = points;
  DrawFirst();
  const DrawnText word = canvas.Pages.front().Find("HCP").at(0);
  const DrawnText north = canvas.Pages.front().Find("37").at(0);
  const DrawnText west = canvas.Pages.front().Find("10").at(0);
  EXPECT_LT(north.Y, word.Y);
  EXPECT_EQ(west.Y, word.Y);
  EXPECT_LT(west.X + west.Width, word.X);
  EXPECT_EQ(TheText("1").Y, word.Y);
  EXPECT_GT(TheText("1").X, word.X + word.Width);
  EXPECT_GT(TheText("2").Y, word.Y);
  options.Hcp = false;
  EXPECT_THAT(DrawFirst().Find("HCP"), IsEmpty());
  EXPECT_THAT(canvas.Pages.front().Find("37"), IsEmpty());
}

TEST_F(HandRecordPageTest, EastsPointsKeepOffSouthsSuitsInEveryLayout) {
  Boards(1, 1);
  set.At(1).Hcp = {0, 1, 11, 2, 12};
  for (int layout = 1; layout <= 4; ++layout) {
    options.PerPage = layout;
    const DrawnText east = TheText("11");
    const DrawnText south = canvas.Pages.front().Find("♥").at(3);
    EXPECT_GE(south.X - east.X - east.Width, 6) << layout;
    EXPECT_GE(TheText("12").X, 10) << layout;
  }
}

TEST_F(HandRecordPageTest, TheTableHasNoTrumpFirstAndNorthSouthEastWestBelow) {
  Boards(1, 1);
  options.Hcp = false;
  Analyse(1);
  DrawFirst();
  const DrawnPage& page = canvas.Pages.front();
  ASSERT_THAT(page.Fills, SizeIs(1));
  const Area table = page.Fills[0].Area;
  EXPECT_EQ(page.Fills[0].Colour, (Colour{0xE6, 0xE6, 0xE6}));
  std::vector<DrawnText> inside;
  for (const DrawnText& text : page.Texts) {
    if (text.X >= table.X && text.Y >= table.Y - 1) inside.push_back(text);
  }
  std::string row;
  double y = 0;
  std::vector<std::string> rows;
  for (const DrawnText& text : inside) {
    if (text.Text == "N" && text.Font.Face == Typeface::kArial) y = y == 0 ? text.Y : y;
    row += text.Text;
  }
  // Levels from North's no-trump on: 12345 N, 67123 E, 45671 S, 23456 W.
  EXPECT_EQ(row, "N♠♥♦♣N12345S45671E67123W23456");
}

TEST_F(HandRecordPageTest, LevelsOfADenominationStandInItsColumn) {
  Boards(1, 1);
  options.Hcp = false;
  Analyse(1);
  DrawFirst();
  const DrawnPage& page = canvas.Pages.front();
  const double left = page.Fills.at(0).Area.X;
  const double column = page.Fills.at(0).Area.Width / 6.5;  // the hands' is one and a half
  std::vector<int> columns;
  for (const DrawnText& text : page.Find("1")) {
    columns.push_back(static_cast<int>((text.X + text.Width / 2 - left) / column - 0.5));
  }
  // Level 1: of North in no-trump (column 1), South in clubs (5), East in hearts (3).
  EXPECT_EQ(columns, (std::vector<int>{1, 5, 3}));
}

TEST_F(HandRecordPageTest, ALevelOfNoneIsAnEmptyPlace) {
  Boards(1, 1);
  options.Hcp = false;
  set.At(1).Tricks[TricksIndex(kSouth, 1)] = 7;
  DrawFirst();
  EXPECT_THAT(canvas.Pages.front().Find("7"), SizeIs(1));
  EXPECT_THAT(canvas.Pages.front().Find("0"), IsEmpty());
}

TEST_F(HandRecordPageTest, OnlyAnalysedBoardsHaveATable) {
  Boards(1, 2);
  Analyse(2);
  EXPECT_THAT(DrawFirst().Fills, SizeIs(1));
  options.Analysis = false;
  EXPECT_THAT(DrawFirst().Fills, IsEmpty());
}

TEST_F(HandRecordPageTest, TheLettersOfTableAndStatisticsFollowTheLayout) {
  Boards(1, 1);
  options.Statistics = PrintOptions::kStatisticsLast;
  Analyse(1);
  const std::array<double, 4> sizes{10, 10, 8, 8};
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    options.PerPage = static_cast<int>(i) + 1;
    DrawFirst();
    EXPECT_EQ(canvas.Pages.at(0).Find("7").back().Font, (Font{Typeface::kArial, sizes[i]}));
    EXPECT_EQ(canvas.Pages.at(1).Find("NS").at(0).Font, (Font{Typeface::kArial, sizes[i]}));
  }
}

TEST_F(HandRecordPageTest, ThePageTellsItsBoardsAndItsNumber) {
  Boards(1, 13);
  DrawFirst();
  EXPECT_THAT(canvas.Pages.at(0).Find("Boards 1 - 12"), SizeIs(1));
  EXPECT_THAT(canvas.Pages.at(0).Find("Page 1 of 2"), SizeIs(1));
  EXPECT_THAT(canvas.Pages.at(1).Find("Board 13"), SizeIs(1));
  EXPECT_THAT(canvas.Pages.at(1).Find("Page 2 of 2"), SizeIs(1));
}

/// All layouts on both papers, the longest suits, names and letters there are, with every option.
class CrowdedPage : public HandRecordPageTest, public ::testing::WithParamInterface<int> {
 protected:
  void Crowd() {
    Boards(629, 640);
    for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
      Board& board = set.At(n);
      if (n % 2 == 0) board = test::SuitBoard(n);
      if (n % 3 == 0) board = Turned(board);
      Analyse(n);
    }
    options.PerPage = GetParam();
    options.National = 6;
    options.TenAsNumber = true;
    options.Header = std::string(150, 'W');
  }
  /// The hands' suits moved on, so that each hand holds each long suit in some board.
  static Board Turned(Board board) {
    for (std::uint8_t& hand : board.Cards) hand = static_cast<std::uint8_t>(NextHand(hand));
    board.Cards[0] = 0;
    AnalyzeBoard(board);
    return board;
  }
};

TEST_P(CrowdedPage, HasNoTextOverAnotherAndNothingOutside) {
  Crowd();
  for (const auto& [width, height] : {std::pair{571.0, 818.0}, {588.0, 768.0}}) {
    canvas.PageWidth = width;
    canvas.PageHeight = height;
    DrawFirst();
    for (const DrawnPage& page : canvas.Pages) {
      EXPECT_THAT(test::PageFaults(canvas, page), IsEmpty());
    }
  }
}

TEST_P(CrowdedPage, KeepsTheHandsOffTheTable) {
  Crowd();
  DrawFirst();
  for (const DrawnPage& page : canvas.Pages) {
    for (const DrawnText& text : page.Texts) {
      if (!text.Text.ends_with("5432")) continue;
      const Area ink = test::InkOf(text);
      for (const auto& fill : page.Fills) {
        const bool apart =
            ink.X + ink.Width <= fill.Area.X || ink.X >= fill.Area.X + fill.Area.Width ||
            ink.Y + ink.Height <= fill.Area.Y || ink.Y >= fill.Area.Y + fill.Area.Height;
        EXPECT_TRUE(apart) << text.Text << " at " << text.X << ", " << text.Y;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Every, CrowdedPage, ::testing::Range(1, 5));

}  // namespace
}  // namespace morvane::print
