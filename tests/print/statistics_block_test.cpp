#include "print/statistics_block.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "print/page_checks.h"
#include "print/print_fixture.h"

namespace morvane::print {
namespace {

using test::DrawnPage;
using test::DrawnRule;
using test::DrawnText;
using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Two boards in which every hand has a suit of its own, and one without South's.
class StatisticsBlockTest : public PrintTest {
 protected:
  StatisticsBlockTest() {
    Boards(1, 3);
    set.At(1) = test::SuitBoard(1);
    set.At(2) = test::SuitBoard(2);
    set.At(3) = test::SuitBoard(3);
    set.At(3).Cards[1] = 0;
    AnalyzeBoard(set.At(3));
    options.Statistics = PrintOptions::kStatisticsFirst;
  }
  /// The texts to the right of a label, on its line.
  std::vector<std::string> RowOf(const std::string& label) {
    const DrawnPage& page = DrawFirst();
    const DrawnText head = page.Find(label).at(0);
    std::vector<std::string> cells;
    for (const DrawnText& text : page.Texts) {
      if (text.Y == head.Y && text.X > head.X) cells.push_back(text.Text);
    }
    return cells;
  }
};

TEST_F(StatisticsBlockTest, ItsTitleStandsBetweenRulesAt480And504) {
  const DrawnPage& page = DrawFirst();
  EXPECT_THAT(page.Rules, Contains(DrawnRule{0, 480, 571, 480}));
  EXPECT_THAT(page.Rules, Contains(DrawnRule{0, 504, 571, 504}));
  const DrawnText title = page.Find("Hands Statistics: ").at(0);
  EXPECT_EQ(title.Font, (Font{Typeface::kTimes, 12, true}));
  EXPECT_EQ(title.Colour, (Colour{0, 0, 255}));
  EXPECT_GT(title.Y, 480);
  EXPECT_LT(title.Y + 12, 504);
}

TEST_F(StatisticsBlockTest, ItsRowsLieAtTheirPartsOfTheHeightBelow504) {
  const DrawnPage& page = DrawFirst();
  // The page is 818 points high: 314 below 504.
  const std::vector<std::pair<std::string, double>> rows{{"Hand: ", 566.8},
                                                         {"Average HCP:  ", 598.2},
                                                         {"Balanced: ", 620.18},
                                                         {"Voids:          ", 642.16},
                                                         {"Singletons:     ", 664.14},
                                                         {"Long suits (7+):", 686.12}};
  for (const auto& [label, y] : rows) {
    EXPECT_NEAR(page.Find(label).at(0).Y, y, 1e-9) << label;
    EXPECT_EQ(page.Find(label).at(0).Font.Face, Typeface::kArial);
  }
  const auto hasRule = [&](DrawnRule wanted) {
    return std::any_of(page.Rules.begin(), page.Rules.end(), [&](const DrawnRule& rule) {
      return std::abs(rule.FromX - wanted.FromX) + std::abs(rule.FromY - wanted.FromY) +
                 std::abs(rule.ToX - wanted.ToX) + std::abs(rule.ToY - wanted.ToY) <
             1e-9;
    });
  };
  EXPECT_TRUE(hasRule({0, 563.66, 571, 563.66}));
  EXPECT_TRUE(hasRule({0, 591.92, 571, 591.92}));
  EXPECT_TRUE(hasRule({0, 714.38, 571, 714.38}));
  EXPECT_TRUE(hasRule({182.72, 563.66, 182.72, 714.38}));  // 0.32 of 571
}

TEST_F(StatisticsBlockTest, CompleteBoardsAloneCount) {
  EXPECT_EQ(RowOf("Hand: "), (std::vector<std::string>{"N", "S", "E", "W", "NS", "EW"}));
  EXPECT_EQ(RowOf("Average HCP:  "),
            (std::vector<std::string>{"10.00", "10.00", "10.00", "10.00", "20.00", "20.00"}));
  EXPECT_EQ(RowOf("Balanced: "), (std::vector<std::string>{"0", "0", "0", "0", "0", "0"}));
  // Two boards, three voids a hand, and a suit of thirteen.
  EXPECT_EQ(RowOf("Voids:          "), (std::vector<std::string>{"6", "6", "6", "6", "12", "12"}));
  EXPECT_EQ(RowOf("Singletons:     "), (std::vector<std::string>{"0", "0", "0", "0", "0", "0"}));
  EXPECT_EQ(RowOf("Long suits (7+):"), (std::vector<std::string>{"2", "2", "2", "2", "4", "4"}));
}

TEST_F(StatisticsBlockTest, OnlyThePrintedBoardsCount) {
  options.To = 1;
  EXPECT_EQ(RowOf("Voids:          "), (std::vector<std::string>{"3", "3", "3", "3", "6", "6"}));
}

TEST_F(StatisticsBlockTest, ValuesStandInTheMiddleOfColumnsOf11Hundredths) {
  const DrawnPage& page = DrawFirst();
  for (const auto& [text, column] : {std::pair{"N", 0}, {"W", 3}, {"EW", 5}}) {
    const auto found = page.Find(text);
    ASSERT_THAT(found, SizeIs(1));
    EXPECT_NEAR(found[0].X + found[0].Width / 2, 182.72 + (column + 0.5) * 62.81, 1e-9) << text;
  }
}

TEST_F(StatisticsBlockTest, ItIsPrintedOnceOnAPageOfItsOwn) {
  DrawFirst();
  ASSERT_THAT(canvas.Pages, SizeIs(2));
  EXPECT_THAT(canvas.Pages[0].Find("Board: 1"), IsEmpty());
  EXPECT_THAT(canvas.Pages[0].Find("Autumn Teams"), SizeIs(1));
  EXPECT_THAT(canvas.Pages[1].Find("Hands Statistics: "), IsEmpty());
  EXPECT_THAT(test::PageFaults(canvas, canvas.Pages[0]), IsEmpty());
}

TEST_F(StatisticsBlockTest, WithoutACompleteBoardItsPlacesAreEmpty) {
  options.From = 3;
  EXPECT_THAT(RowOf("Average HCP:  "), IsEmpty());
}

}  // namespace
}  // namespace morvane::print
