#include <gmock/gmock.h>

#include <tuple>

#include "print/page_checks.h"
#include "print/paper_boards.h"
#include "print/print_fixture.h"

namespace morvane::print {
namespace {

using ::testing::Combine;
using ::testing::IsEmpty;
using ::testing::Range;
using ::testing::Values;

class SmallPaper : public PrintTest {
 protected:
  /// Boards 1 to 18 in layout 1..4, or on score cards.
  void Choose(int perPage) {
    Boards(1, 18);
    set.At(2) = test::VoidBoard(2);
    set.At(3) = test::SuitBoard(3);
    options.Mode = perPage == 0 ? PrintMode::kScoreCards : PrintMode::kHandRecords;
    options.PerPage = perPage;
    options.PrintNS = true;
    options.Statistics = perPage == 0 ? 1 : PrintOptions::kStatisticsLast;
  }
};

TEST_F(SmallPaper, HasAllOfAScoreCardInProportion) {
  Choose(0);
  canvas.PageWidth = 555.0 / 2;
  const test::DrawnPage& page = DrawFirst();
  EXPECT_EQ(page.Find("Dealer: N").front().Font.Size, 7);
  EXPECT_EQ(page.Find("\u2660").front().Y, 77.0 / 2);
  EXPECT_EQ(page.Find("Board").back().X, 150);
  EXPECT_EQ(page.Rules.back().ToY, 365);
}

TEST_F(SmallPaper, HasAllOfAHandRecordInProportion) {
  Choose(2);
  canvas.PageHeight = 384;
  const test::DrawnPage& page = DrawFirst();
  EXPECT_EQ(page.Find("Board: 1").front().Font.Size, 6);
  EXPECT_EQ(page.Rules.front().FromY, 5);
}

TEST_F(SmallPaper, ThatHoldsItsBoardsIsNotSmall) {
  canvas.PageWidth = 555;
  canvas.PageHeight = 730;
  Choose(0);
  EXPECT_EQ(DrawFirst().Find("Dealer: N").front().Font.Size, 14);
  canvas.PageHeight = 768;
  Choose(2);
  EXPECT_EQ(DrawFirst().Find("Board: 1").front().Font.Size, 12);
}

/// Layout (0: score cards), and the sizes of a page.
class EveryPaper : public SmallPaper,
                   public ::testing::WithParamInterface<std::tuple<int, std::pair<int, int>>> {};
INSTANTIATE_TEST_SUITE_P(Layouts, EveryPaper,
                         Combine(Range(0, 5), Values(std::pair{555, 768}, std::pair{396, 571},
                                                     std::pair{186, 273}, std::pair{571, 200})));

TEST_P(EveryPaper, HoldsAllAndNothingOverlaps) {
  const auto& [perPage, sizes] = GetParam();
  Choose(perPage);
  canvas.PageWidth = sizes.first;
  canvas.PageHeight = sizes.second;
  DrawFirst();
  for (const test::DrawnPage& page : canvas.Pages) {
    EXPECT_THAT(test::PageFaults(canvas, page), IsEmpty());
  }
}

}  // namespace
}  // namespace morvane::print
