#include "print/document.h"

#include "print/print_fixture.h"

namespace morvane::print {
namespace {

using DocumentTest = PrintTest;

TEST_F(DocumentTest, ANewPageStartsWhenTheGridIsFull) {
  Boards(5, 17);
  const std::vector<Page> expected{{{5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}, false},
                                   {{17}, false}};
  EXPECT_EQ(TheDocument().Pages(), expected);
}

TEST_F(DocumentTest, AFullGridLeavesNoBlankPageBehind) {
  Boards(1, 36);
  const std::array<std::size_t, 4> pages{4, 3, 3, 2};  // of 10, 12, 15 and 18
  for (int layout = 1; layout <= 4; ++layout) {
    options.PerPage = layout;
    EXPECT_EQ(TheDocument().Pages().size(), pages[static_cast<std::size_t>(layout) - 1]);
  }
}

TEST_F(DocumentTest, StatisticsHaveAPageOfTheirOwnInFrontOrBehind) {
  Boards(1, 13);
  const Page statistics{{}, true};
  options.Statistics = PrintOptions::kStatisticsFirst;
  EXPECT_EQ(TheDocument().Pages().size(), 3U);
  EXPECT_EQ(TheDocument().Pages().front(), statistics);
  options.Statistics = PrintOptions::kStatisticsLast;
  EXPECT_EQ(TheDocument().Pages().size(), 3U);
  EXPECT_EQ(TheDocument().Pages().back(), statistics);
}

TEST_F(DocumentTest, ScoreCardsStandTwoToAPageAndAnEvenBoardEndsIt) {
  Boards(2, 5);
  options.Mode = PrintMode::kScoreCards;
  options.Statistics = PrintOptions::kStatisticsFirst;  // not on score cards
  const std::vector<Page> expected{{{2}, false}, {{3, 4}, false}, {{5}, false}};
  EXPECT_EQ(TheDocument().Pages(), expected);
}

TEST_F(DocumentTest, ScoreCardsNeedNoLayout) {
  Boards(1, 1);
  options.Mode = PrintMode::kScoreCards;
  options.PerPage = 0;
  EXPECT_EQ(TheDocument().Pages().size(), 1U);
}

TEST_F(DocumentTest, EachBoardIsToldOnceItIsDrawn) {
  Boards(1, 13);
  options.Statistics = PrintOptions::kStatisticsLast;
  std::vector<std::size_t> pagesThen;
  EXPECT_TRUE(TheDocument().Draw(canvas, [&] {
    pagesThen.push_back(canvas.Pages.size());
    return true;
  }));
  std::vector<std::size_t> expected(12, 1U);
  expected.push_back(2U);
  EXPECT_EQ(pagesThen, expected);
  EXPECT_EQ(canvas.Pages.size(), 3U);
}

TEST_F(DocumentTest, WhoeverIsToldCanEndIt) {
  Boards(1, 13);
  int boards = 0;
  EXPECT_FALSE(TheDocument().Draw(canvas, [&] { return ++boards < 3; }));
  EXPECT_EQ(boards, 3);
  EXPECT_TRUE(canvas.Pages.front().Find("Board: 4").empty());
}

TEST_F(DocumentTest, APrinterThatTakesNoMoreEndsIt) {
  Boards(1, 36);
  canvas.MostPages = 2;
  int boards = 0;
  EXPECT_FALSE(TheDocument().Draw(canvas, [&] { return ++boards > 0; }));
  EXPECT_EQ(boards, 24);
}

}  // namespace
}  // namespace morvane::print
